#include "FaultVfs.h"

#include <cstring>
#include <sqlite3.h>

namespace
{
struct Fault {
    bool armed = false;
    bool hit = false;
    bool lasting = false;
    FaultVfs::Operation operation = FaultVfs::Read;
    int left = 0;
    int code = SQLITE_OK;
} fault;

/// The result of an operation of this kind: SQLITE_OK lets it pass.
int strike(FaultVfs::Operation operation)
{
    if (!fault.armed || operation != fault.operation)
        return SQLITE_OK;
    if (fault.left > 0 && --fault.left > 0)
        return SQLITE_OK;
    if (fault.hit && !fault.lasting)
        return SQLITE_OK;
    fault.hit = true;
    return fault.code;
}

/// A file of ours: the real one follows it in the same memory.
struct File {
    sqlite3_file base;
};

sqlite3_file* real(sqlite3_file* file)
{
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
}
const sqlite3_io_methods* methods(sqlite3_file* file)
{
    return real(file)->pMethods;
}

int closeFile(sqlite3_file* f)
{
    return methods(f) ? methods(f)->xClose(real(f)) : SQLITE_OK;
}
int readFile(sqlite3_file* f, void* to, int amount, sqlite3_int64 offset)
{
    const int code = strike(FaultVfs::Read);
    return code != SQLITE_OK ? code : methods(f)->xRead(real(f), to, amount, offset);
}
int writeFile(sqlite3_file* f, const void* from, int amount, sqlite3_int64 offset)
{
    const int code = strike(FaultVfs::Write);
    return code != SQLITE_OK ? code : methods(f)->xWrite(real(f), from, amount, offset);
}
int truncateFile(sqlite3_file* f, sqlite3_int64 size)
{
    return methods(f)->xTruncate(real(f), size);
}
int syncFile(sqlite3_file* f, int flags)
{
    const int code = strike(FaultVfs::Sync);
    return code != SQLITE_OK ? code : methods(f)->xSync(real(f), flags);
}
int fileSize(sqlite3_file* f, sqlite3_int64* size)
{
    return methods(f)->xFileSize(real(f), size);
}
int lockFile(sqlite3_file* f, int level)
{
    return methods(f)->xLock(real(f), level);
}
int unlockFile(sqlite3_file* f, int level)
{
    return methods(f)->xUnlock(real(f), level);
}
int checkLock(sqlite3_file* f, int* result)
{
    return methods(f)->xCheckReservedLock(real(f), result);
}
int control(sqlite3_file* f, int op, void* arg)
{
    return methods(f)->xFileControl(real(f), op, arg);
}
int sectorSize(sqlite3_file* f)
{
    return methods(f)->xSectorSize(real(f));
}
int characteristics(sqlite3_file* f)
{
    return methods(f)->xDeviceCharacteristics(real(f));
}
int shmMap(sqlite3_file* f, int page, int size, int extend, void volatile** to)
{
    return methods(f)->xShmMap(real(f), page, size, extend, to);
}
int shmLock(sqlite3_file* f, int offset, int n, int flags)
{
    return methods(f)->xShmLock(real(f), offset, n, flags);
}
void shmBarrier(sqlite3_file* f)
{
    methods(f)->xShmBarrier(real(f));
}
int shmUnmap(sqlite3_file* f, int remove)
{
    return methods(f)->xShmUnmap(real(f), remove);
}

const sqlite3_io_methods fileMethods = {2,          closeFile,  readFile,        writeFile,  truncateFile,
                                        syncFile,   fileSize,   lockFile,        unlockFile, checkLock,
                                        control,    sectorSize, characteristics, shmMap,     shmLock,
                                        shmBarrier, shmUnmap,   nullptr,         nullptr};

sqlite3_vfs* original = nullptr;
sqlite3_vfs ours;

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* f, int flags, int* outFlags)
{
    f->pMethods = nullptr;
    const int code = original->xOpen(original, name, real(f), flags, outFlags);
    if (code == SQLITE_OK)
        f->pMethods = &fileMethods;
    return code;
}
} // namespace

void FaultVfs::install()
{
    if (original)
        return;
    original = sqlite3_vfs_find(nullptr);
    ours = *original;
    ours.zName = "faults";
    ours.szOsFile = static_cast<int>(sizeof(File)) + original->szOsFile;
    ours.xOpen = openFile;
    sqlite3_vfs_register(&ours, 1);
}

void FaultVfs::arm(Operation operation, int n, int code, bool lasting)
{
    fault = Fault();
    fault.armed = true;
    fault.operation = operation;
    fault.left = n;
    fault.code = code;
    fault.lasting = lasting;
}

bool FaultVfs::disarm()
{
    fault.armed = false;
    return fault.hit;
}
