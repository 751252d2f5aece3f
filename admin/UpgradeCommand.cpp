#include "UpgradeCommand.h"

#include "StoreAdmin.h"

QString UpgradeCommand::summary() const
{
    return QStringLiteral("обновить хранилище прежней версии");
}

QString UpgradeCommand::usage() const
{
    return QStringLiteral(
        "vrk-admin upgrade URL\n"
        "  Приводит хранилище, созданное прежней программой, к её нынешней версии. Журнал и журнал\n"
        "  изменений остаются как есть; при неудаче не меняется ничего. Прежние программы на время\n"
        "  обновления закройте: в обновлённое хранилище они писать не смогут.\n");
}

Command::ExitCode UpgradeCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 1)
        return wrongUsage(streams);
    StoreError error;
    if (!StoreAdmin::upgrade(arguments.constFirst(), &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Хранилище версии %1.\n").arg(StoreAdmin::schemaVersion());
    return Success;
}
