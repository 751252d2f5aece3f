#include "Command.h"

#include "StoreAdmin.h"
#include "StoreUrl.h"

#include <QDateTime>

namespace
{
/// Next to a store's file; for a server, in the current folder.
QString ownPlaceOf(const QString& url, int version)
{
    const StoreUrl parsed(url);
    const QString base = parsed.engine == StoreUrl::Sqlite ? parsed.file : QStringLiteral("vrk-logbook");
    return QStringLiteral("%1.v%2-%3")
        .arg(base)
        .arg(version)
        .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss")));
}
} // namespace

Command::ExitCode Command::upgrade(const QStringList& arguments, Streams& streams)
{
    QString url;
    QString copy;
    bool isCopied = true;
    for (int i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("--no-backup"))
            isCopied = false;
        else if (arguments[i] == QLatin1String("--backup") && i + 1 < arguments.size())
            copy = arguments[++i];
        else if (url.isEmpty() && !arguments[i].startsWith(QLatin1Char('-')))
            url = arguments[i];
        else
            return WrongUsage;
    }
    if (url.isEmpty() || (!isCopied && !copy.isEmpty()))
        return WrongUsage;

    StoreError error;
    const int present = StoreAdmin::schemaVersion();
    const int from = StoreAdmin::version(url, &error);
    if (from < 0)
        return fail(streams, error);
    if (from == present) {
        QVector<StoreAdmin::Finding> findings;
        return StoreAdmin::checkSchema(url, &findings, &error)
                   ? report(findings,
                            QStringLiteral("Хранилище уже версии %1, обновлять нечего.\n").arg(present),
                            streams)
                   : fail(streams, error);
    }
    // The upgrade itself refuses a store that is not older.
    isCopied = isCopied && from < present && from > 0;
    if (isCopied) {
        copy = copy.isEmpty() ? ownPlaceOf(url, from) : copy;
        if (!StoreAdmin::backup(url, copy, &error))
            return fail(streams, error);
        streams.out << QStringLiteral("Копия проверена: %1\n").arg(copy);
    }
    if (!StoreAdmin::upgrade(url, &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Хранилище обновлено с версии %1 до версии %2.\n").arg(from).arg(present);
    return Success;
}
