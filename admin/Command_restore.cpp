#include "Command.h"

#include "StoreAdmin.h"

Command::ExitCode Command::restore(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage;
    StoreError error;
    QStringList notes;
    if (!StoreAdmin::restore(arguments[0], arguments[1], &notes, &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Копия проверена и возвращена: %1\n").arg(arguments[1]);
    for (const QString& note : qAsConst(notes))
        streams.out << note << QLatin1Char('\n');
    return Success;
}
