#include "Command.h"

#include "StoreAdmin.h"

Command::ExitCode Command::backup(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage;
    StoreError error;
    if (!StoreAdmin::backup(arguments[0], arguments[1], &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Копия проверена: %1\n").arg(arguments[1]);
    return Success;
}
