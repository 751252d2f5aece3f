#include "UpgradeCommand.h"

#include "StoreAdmin.h"
#include "StoreUrl.h"

#include <QDateTime>

QString UpgradeCommand::summary() const
{
    return QStringLiteral("обновить хранилище прежней версии");
}

QString UpgradeCommand::usage() const
{
    return QStringLiteral(
        "vrk-admin upgrade URL [--backup FILE | --no-backup]\n"
        "  Приводит хранилище, созданное прежней программой, к её нынешней версии. Журнал и журнал\n"
        "  изменений остаются как есть; при неудаче не меняется ничего. Прежние программы на время\n"
        "  обновления закройте: в обновлённое хранилище они писать не смогут. Хранилище нынешней\n"
        "  версии не меняется; если его правила отличаются от правил программы, код завершения 3.\n"
        "  --backup     куда сперва положить копию; без этого она ляжет рядом с файлом хранилища, копия "
        "базы\n"
        "               с сервера в эту папку\n"
        "  --no-backup  не делать копии\n");
}

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

Command::ExitCode UpgradeCommand::run(const QStringList& arguments, Streams& streams)
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
            return wrongUsage(streams);
    }
    if (url.isEmpty() || (!isCopied && !copy.isEmpty()))
        return wrongUsage(streams);

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
