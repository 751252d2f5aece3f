#include "StoreAdmin.h"

#include "SqliteAdmin.h"
#include "SqliteSchema.h"
#include "StoreUrl.h"

namespace
{
/// The file of a SQLite store; empty, with the reason in \a error, for any other address.
QString fileOf(const QString& url, StoreError* error)
{
    const StoreUrl parsed(url);
    *error = parsed.error();
    return *error ? QString() : parsed.file;
}
} // namespace

int StoreAdmin::schemaVersion()
{
    return SqliteSchema::version;
}

bool StoreAdmin::init(const QString& url, const QByteArray& codecName, const QByteArray& timeZone,
                      StoreError* error)
{
    const QString file = fileOf(url, error);
    return !file.isEmpty() && SqliteAdmin::init(file, codecName, timeZone, error);
}

bool StoreAdmin::check(const QString& url, QVector<Finding>* findings, StoreError* error)
{
    findings->clear();
    const QString file = fileOf(url, error);
    return !file.isEmpty() && SqliteAdmin::check(file, findings, error);
}

bool StoreAdmin::backup(const QString& url, const QString& copy, StoreError* error)
{
    const QString file = fileOf(url, error);
    return !file.isEmpty() && SqliteAdmin::backup(file, copy, error);
}

bool StoreAdmin::putFile(const QString& url, const QString& folder, const QString& name,
                         const QByteArray& content, StoreError* error)
{
    const QString file = fileOf(url, error);
    return !file.isEmpty() && SqliteAdmin::putFile(file, folder, name, content, error);
}

QStringList StoreAdmin::files(const QString& url, StoreError* error)
{
    const QString file = fileOf(url, error);
    return file.isEmpty() ? QStringList() : SqliteAdmin::files(file, error);
}

bool StoreAdmin::removeFile(const QString& url, const QString& folder, const QString& name, StoreError* error)
{
    const QString file = fileOf(url, error);
    return !file.isEmpty() && SqliteAdmin::removeFile(file, folder, name, error);
}
