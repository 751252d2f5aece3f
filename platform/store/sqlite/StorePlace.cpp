#include "StorePlace.h"

#include "SqliteWal.h"
#include "StoreErrors.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
// The bytes that SQLite locks in a file; every process with the store open holds a part of them.
constexpr off_t lockedFrom = 0x40000000;
constexpr off_t lockedLength = 512;

QByteArray nameOf(const QString& file)
{
    return QFile::encodeName(file);
}

bool isThere(const QString& file)
{
    return QFileInfo::exists(file) || QFileInfo(file).isSymLink();
}

/// Flushes the changes of a folder to the disk.
void syncFolderOf(const QString& file)
{
    const int folder =
        ::open(nameOf(QFileInfo(file).absolutePath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

/// Copies owner and permissions of the former file.
void makeLike(const QString& draft, const QString& former)
{
    struct stat state = {};
    if (::stat(nameOf(former).constData(), &state) != 0)
        return;
    ::chmod(nameOf(draft).constData(), state.st_mode & 07777);
    if (::chown(nameOf(draft).constData(), state.st_uid, state.st_gid) != 0)
        return; // only the administrator of the machine may change a file's owner
}
} // namespace

StorePlace::StorePlace(const QString& file) : m_file(file)
{
    const QFileInfo info(file);
    if (info.isSymLink() && info.exists())
        m_file = info.canonicalFilePath();
}

StorePlace::~StorePlace()
{
    if (m_lock >= 0)
        ::close(m_lock);
}

StoreError StorePlace::failure() const
{
    return {StoreError::ReadOnly, QString::fromUtf8("Файл «%1» нельзя заменить.").arg(m_file),
            QString::fromLocal8Bit(std::strerror(errno))};
}

bool StorePlace::hold(StoreError* error)
{
    if (!isThere(m_file))
        return true;
    m_lock = ::open(nameOf(m_file).constData(), O_RDWR | O_CLOEXEC);
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    whole.l_start = lockedFrom;
    whole.l_len = lockedLength;
    if (m_lock >= 0 && ::fcntl(m_lock, F_OFD_SETLK, &whole) == 0)
        return true;
    *error = failure();
    if (m_lock >= 0)
        return StoreErrors::raise(error, StoreError::Locked,
                                  "С хранилищем «%1» работает другая программа. Закройте её и повторите.",
                                  m_file);
    return false;
}

/// Creates a second name; if the file system does not support links, renames.
bool StorePlace::keepFormer(const QString& kept, StoreError* error) const
{
    for (const QString& suffix : {SqliteWal::of(QString()), QString()}) {
        const QByteArray from = nameOf(m_file + suffix);
        const QByteArray to = nameOf(kept + suffix);
        if (isThere(m_file + suffix) && ::link(from.constData(), to.constData()) != 0 &&
            ::rename(from.constData(), to.constData()) != 0) {
            *error = failure();
            return false;
        }
    }
    syncFolderOf(m_file);
    return true;
}

bool StorePlace::take(const QString& draft, QString* kept, StoreError* error)
{
    kept->clear();
    if (isThere(m_file) || isThere(SqliteWal::of(m_file))) {
        *kept = QStringLiteral("%1.before-%2")
                    .arg(m_file, QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss")));
        const QString name = *kept;
        for (int n = 2; isThere(*kept) || isThere(SqliteWal::of(*kept)); ++n)
            *kept = QStringLiteral("%1-%2").arg(name).arg(n);
        makeLike(draft, m_file);
        if (!keepFormer(*kept, error))
            return false;
    }
    if (::rename(nameOf(draft).constData(), nameOf(m_file).constData()) != 0) {
        *error = failure();
        return false;
    }
    // After a crash before this line the former log is next to the new file; SqliteWal recognises that it
    // belongs to another file.
    QFile::remove(SqliteWal::of(m_file));
    QFile::remove(SqliteWal::indexOf(m_file));
    syncFolderOf(m_file);
    return true;
}
