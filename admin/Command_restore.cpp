#include "Command.h"

#include "Arguments.h"
#include "StoreAdmin.h"

Command::ExitCode Command::restore(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const QString replaced = Arguments::takeValue(&rest, QStringLiteral("--replaces"));
    if (rest.size() != 2)
        return WrongUsage;
    StoreError error;
    QStringList notes;
    if (!StoreAdmin::restore(rest[0], rest[1], replaced, &notes, &error))
        return fail(streams, error);
    streams.out << QStringLiteral("Копия проверена и возвращена: %1\n").arg(rest[1]);
    for (const QString& note : qAsConst(notes))
        streams.out << note << QLatin1Char('\n');
    return Success;
}
