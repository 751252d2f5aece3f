#include "Command.h"

#include "Sheet.h"
#include "StoreAdmin.h"

QStringList Command::rightWords()
{
    return {QStringLiteral("  ") + Sheets::rights().join(QStringLiteral("\n  "))};
}

Command::ExitCode Command::right(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() < 3)
        return WrongUsage;
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    const QString& login = arguments[2];
    StoreError error;

    if (verb == QLatin1String("list") && arguments.size() == 3) {
        const QVector<QByteArray> rights = StoreAdmin::rights(url, login, &error);
        if (error)
            return fail(streams, error);
        for (const QByteArray& right : rights)
            streams.out << QString::fromUtf8(right) << QLatin1Char('\n');
        return Success;
    }
    const bool grant = verb == QLatin1String("grant");
    if (arguments.size() != 4 || (!grant && verb != QLatin1String("revoke")))
        return WrongUsage;
    const QByteArray right = arguments[3].toUtf8();
    if (!Sheets::rights().contains(arguments[3])) {
        streams.err << QStringLiteral("Нет права «%1».\n").arg(arguments[3]);
        return WrongUsage;
    }
    return outcome(StoreAdmin::grant(url, login, right, grant, &error), streams, error);
}
