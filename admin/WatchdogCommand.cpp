#include "WatchdogCommand.h"

#include "StoreAdmin.h"

namespace
{
constexpr int defaultSeconds = 120; // much longer than the deadline of any workstation
} // namespace

QString WatchdogCommand::summary() const
{
    return QStringLiteral("завершить на сервере запросы, которые идут слишком долго");
}

QString WatchdogCommand::usage() const
{
    return QStringLiteral(
               "vrk-admin watchdog URL [--seconds N]\n"
               "  Завершает запросы рабочих мест, которые идут дольше N секунд (по умолчанию %1), "
               "и транзакции,\n"
               "  которые столько же времени не дают работать другим или стоят; соединения, которые "
               "держат\n"
               "  рекомендательные блокировки; подготовленные транзакции.\n"
               "  Запускайте раз в минуту.\n")
        .arg(defaultSeconds);
}

Command::ExitCode WatchdogCommand::run(const QStringList& arguments, Streams& streams)
{
    int seconds = defaultSeconds;
    const bool isTold = arguments.size() == 3 && arguments[1] == QLatin1String("--seconds");
    if (isTold)
        seconds = arguments[2].toInt();
    if ((arguments.size() != 1 && !isTold) || seconds <= 0)
        return wrongUsage(streams);
    StoreError error;
    const int ended = StoreAdmin::endRunaways(arguments[0], seconds, &error);
    if (ended < 0)
        return fail(streams, error);
    streams.out << QStringLiteral("Завершено запросов: %1\n").arg(ended);
    return Success;
}
