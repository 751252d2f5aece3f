#include "KeptFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{
constexpr off_t longestFile = 64 << 20;
const char* const suffix = ".kept";
const char* const newSuffix = ".new";

bool isId(const QByteArray& name)
{
    static const QRegularExpression digits(QStringLiteral("\\A[0-9A-F]{32}\\z"));
    return digits.match(QString::fromLatin1(name)).hasMatch();
}

/// A file descriptor that is closed at the end of its scope.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return m_number; }
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

bool writeAll(int file, const QByteArray& bytes)
{
    const char* from = bytes.constData();
    ssize_t left = bytes.size();
    while (left > 0) {
        const ssize_t written = ::write(file, from, static_cast<size_t>(left));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        from += written;
        left -= written;
    }
    return true;
}

bool readAll(int file, off_t size, QByteArray* bytes)
{
    bytes->resize(static_cast<int>(size));
    off_t done = 0;
    while (done < size) {
        const ssize_t got = ::pread(file, bytes->data() + done, static_cast<size_t>(size - done), done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        done += got;
    }
    return true;
}
} // namespace

KeptFolder::KeptFolder(const QString& path) : m_path(path) {}

KeptFolder::~KeptFolder()
{
    for (const int lock : qAsConst(m_locks))
        ::close(lock);
    if (m_folder >= 0)
        ::close(m_folder);
}

bool KeptFolder::fail(int error)
{
    m_errorText = error == ENOSPC || error == EDQUOT
                      ? QCoreApplication::translate("KeptTexts", "нет места на диске")
                      : QCoreApplication::translate("KeptTexts", "папка «%1» не годится (%2)")
                            .arg(m_path, QString::fromLocal8Bit(std::strerror(error)));
    return false;
}

/// The last two folders of the path belong to the program: each must be a real folder of this user that
/// nobody else can open.
bool KeptFolder::open()
{
    if (m_folder >= 0)
        return true;
    const QFileInfo own(m_path);
    const QFileInfo above(own.path());
    QDir().mkpath(above.path());
    const Descriptor start(
        ::open(QFile::encodeName(above.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    int shared = -1;
    if (start.get() < 0 || !openStep(start.get(), QFile::encodeName(above.fileName()), &shared))
        return fail(errno);
    const Descriptor step(shared);
    if (!openStep(step.get(), QFile::encodeName(own.fileName()), &m_folder))
        return fail(errno);
    return true;
}

bool KeptFolder::openStep(int parent, const QByteArray& name, int* folder)
{
    const bool made = ::mkdirat(parent, name.constData(), S_IRWXU) == 0;
    Descriptor step(::openat(parent, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat about {
    };
    if (step.get() < 0 || ::fstat(step.get(), &about) != 0)
        return false;
    if (about.st_uid != ::geteuid()) {
        errno = EPERM;
        return false;
    }
    if ((about.st_mode & (S_IRWXG | S_IRWXO)) != 0 && ::fchmod(step.get(), S_IRWXU) != 0)
        return false;
    if (made)
        ::fsync(parent);
    *folder = step.release();
    return true;
}

QVector<KeptFolder::File> KeptFolder::takeOver()
{
    QVector<File> files;
    m_errorText.clear();
    if (!open())
        return {};
    DIR* names = ::fdopendir(::openat(m_folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!names) {
        fail(errno);
        return {};
    }
    while (const dirent* entry = ::readdir(names)) {
        const QByteArray name(entry->d_name);
        if (name == "." || name == "..")
            continue;
        const QByteArray id = name.left(32);
        if (isId(id) && name == id + newSuffix) {
            clearAway(name);
            continue;
        }
        File file{id, {}};
        if (!isId(id) || name != id + suffix)
            qWarning().noquote() << "kept texts: foreign file" << m_path + u'/' + QFile::decodeName(name);
        else if (!m_locks.contains(id) && takeFile(id, &file))
            files.append(file);
    }
    ::closedir(names);
    return files;
}

/// Removes partial files of a killed process.
void KeptFolder::clearAway(const QByteArray& name)
{
    const Descriptor half(::openat(m_folder, name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (half.get() >= 0 && ::flock(half.get(), LOCK_EX | LOCK_NB) == 0)
        ::unlinkat(m_folder, name.constData(), 0);
}

bool KeptFolder::takeFile(const QByteArray& id, File* file)
{
    const QByteArray name = id + suffix;
    const auto refuse = [this, &name](const char* why) {
        qWarning().noquote() << "kept texts:" << m_path + u'/' + QString::fromLatin1(name) << why;
        return false;
    };
    Descriptor taken(::openat(m_folder, name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat about {
    };
    if (taken.get() < 0 || ::fstat(taken.get(), &about) != 0)
        return errno != ENOENT && refuse("cannot be opened");
    if (!S_ISREG(about.st_mode) || about.st_uid != ::geteuid() || about.st_nlink > 1)
        return refuse("is no file of this user alone");
    if (::flock(taken.get(), LOCK_EX | LOCK_NB) != 0)
        return false; // of a living process
    struct stat named {
    };
    const bool isStill = ::fstatat(m_folder, name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
                         named.st_ino == about.st_ino && named.st_dev == about.st_dev;
    if (!isStill)
        return false; // its process has replaced it in the meantime and holds the lock of the new one
    if (about.st_size > longestFile || !readAll(taken.get(), about.st_size, &file->bytes))
        return refuse("cannot be read");
    ::fchmod(taken.get(), S_IRUSR | S_IWUSR);
    m_locks.insert(id, taken.release());
    return true;
}

bool KeptFolder::write(const QByteArray& id, const QByteArray& bytes)
{
    m_errorText.clear();
    if (!open())
        return false;
    const QByteArray half = id + newSuffix;
    const QByteArray name = id + suffix;
    ::unlinkat(m_folder, half.constData(), 0);
    Descriptor file(::openat(m_folder, half.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                             S_IRUSR | S_IWUSR));
    if (file.get() < 0)
        return fail(errno);
    // The file is locked before it gets its name, so that another process can never take it.
    const bool written = ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 && writeAll(file.get(), bytes) &&
                         ::fsync(file.get()) == 0 &&
                         ::renameat(m_folder, half.constData(), m_folder, name.constData()) == 0;
    if (!written) {
        fail(errno);
        ::unlinkat(m_folder, half.constData(), 0);
        return false;
    }
    const auto former = m_locks.constFind(id);
    if (former != m_locks.constEnd())
        ::close(*former);
    m_locks.insert(id, file.release());
    return ::fsync(m_folder) == 0 || fail(errno);
}

bool KeptFolder::remove(const QByteArray& id)
{
    m_errorText.clear();
    const auto own = m_locks.constFind(id);
    if (own == m_locks.constEnd())
        return true;
    if (::unlinkat(m_folder, (id + suffix).constData(), 0) != 0 && errno != ENOENT)
        return fail(errno);
    ::close(*own);
    m_locks.remove(id);
    return ::fsync(m_folder) == 0 || fail(errno);
}
