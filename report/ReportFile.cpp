#include "ReportFile.h"

#include <cerrno>
#include <cstdio>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <unistd.h>

namespace
{
QString words(const char* text)
{
    return QCoreApplication::translate("ReportFile", text);
}

bool fail(const QString& file, const QString& reason, QString* error)
{
    *error = words("Файл «%1» не записан: %2.").arg(QDir::toNativeSeparators(file), reason);
    return false;
}

QString reasonOf(const QFile& failed)
{
    const QFileInfo folder(QFileInfo(failed.fileName()).absolutePath());
    if (!folder.isDir())
        return words("папки «%1» нет").arg(folder.filePath());
    if (errno == ENOSPC || failed.error() == QFileDevice::ResourceError)
        return words("на диске нет места");
    if (!folder.isWritable())
        return words("в папку «%1» нельзя писать").arg(folder.filePath());
    return failed.errorString();
}
} // namespace

bool ReportFile::write(const QString& file, const QByteArray& bytes, bool replace, QString* error)
{
    const QFileInfo target(file);
    if (target.isDir())
        return fail(file, words("так называется папка"), error);
    if (target.exists() && !replace)
        return fail(file, words("он уже есть, заменяет его --force"), error);
    errno = 0;
    QFile part(target.absoluteDir().filePath(
        QStringLiteral(".%1.%2.part").arg(target.fileName()).arg(QCoreApplication::applicationPid())));
    const bool isComplete = part.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
                            part.write(bytes) == bytes.size() && part.flush() && ::fsync(part.handle()) == 0;
    if (!isComplete) {
        fail(file, reasonOf(part), error);
        part.close();
        if (part.error() != QFileDevice::OpenError)
            part.remove();
        return false;
    }
    part.close();
    // QFile::rename() never replaces a file, rename() always does.
    const bool isNamed = replace ? std::rename(QFile::encodeName(part.fileName()).constData(),
                                               QFile::encodeName(file).constData()) == 0
                                 : part.rename(file);
    if (!isNamed) {
        fail(file, QFileInfo::exists(file) ? words("он уже есть, заменяет его --force") : reasonOf(part),
             error);
        part.remove();
    }
    return isNamed;
}

bool ReportFile::update(const QString& file, const QByteArray& bytes, bool* isWritten, QString* error)
{
    QFile present(file);
    const bool isSame = present.open(QIODevice::ReadOnly) && present.readAll() == bytes;
    present.close();
    if (isWritten)
        *isWritten = !isSame;
    return isSame || write(file, bytes, true, error);
}
