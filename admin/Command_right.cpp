#include "Command.h"

#include "JsonList.h"
#include "Sheet.h"
#include "StoreAdmin.h"

QStringList Command::rightWords()
{
    return {QStringLiteral("  ") + Sheets::rights().join(QStringLiteral("\n  "))};
}

Command::ExitCode Command::right(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    if (arguments.size() < 3 || (list.isWanted() && arguments[1] != QLatin1String("list")))
        return WrongUsage;
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    const QString& login = arguments[2];
    StoreError error;

    if (verb == QLatin1String("list") && arguments.size() == 3) {
        const QVector<QByteArray> rights = StoreAdmin::rights(url, login, &error);
        if (error)
            return fail(streams, error);
        for (const QByteArray& right : rights) {
            if (list.isWanted())
                list.add({{QStringLiteral("right"), QString::fromUtf8(right)}});
            else
                streams.out << QString::fromUtf8(right) << QLatin1Char('\n');
        }
        if (list.isWanted())
            list.print(streams.out);
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
