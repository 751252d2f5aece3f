#include "Command.h"

#include "StoreAdmin.h"

namespace
{
constexpr int defaultSeconds = 120; // much longer than the deadline of any workstation
} // namespace

QStringList Command::watchdogWords()
{
    return {QString::number(defaultSeconds)};
}

Command::ExitCode Command::watchdog(const QStringList& arguments, Streams& streams)
{
    int seconds = defaultSeconds;
    const bool isTold = arguments.size() == 3 && arguments[1] == QLatin1String("--seconds");
    if (isTold)
        seconds = arguments[2].toInt();
    if ((arguments.size() != 1 && !isTold) || seconds <= 0)
        return WrongUsage;
    StoreError error;
    const int ended = StoreAdmin::endRunaways(arguments[0], seconds, &error);
    if (ended < 0)
        return fail(streams, error);
    streams.out << QStringLiteral("Завершено запросов: %1\n").arg(ended);
    return Success;
}
