#include "RightCommand.h"

#include "StoreAdmin.h"

namespace
{
/// Rights that the modules ask for.
const char* const knownRights[] = {
    "ADMINISTRATOR", "ADMINISTRATOR_OPERLOG_LOCAL", "SQL_EXEC", "SQL_REQUEST", "TBL_REQUEST", "TBL_UPDATE"};

bool isKnown(const QByteArray& right)
{
    for (const char* known : knownRights) {
        if (right == known)
            return true;
    }
    return false;
}
} // namespace

QString RightCommand::summary() const
{
    return QStringLiteral("права: список, выдача, отзыв");
}

QString RightCommand::usage() const
{
    QString text = QStringLiteral("vrk-admin right URL list LOGIN\n"
                                  "vrk-admin right URL grant LOGIN RIGHT\n"
                                  "vrk-admin right URL revoke LOGIN RIGHT\n"
                                  "Права:\n");
    for (const char* right : knownRights)
        text += QStringLiteral("  ") + QLatin1String(right) + QLatin1Char('\n');
    return text;
}

Command::ExitCode RightCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() < 3)
        return wrongUsage(streams);
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
        return wrongUsage(streams);
    const QByteArray right = arguments[3].toUtf8();
    if (!isKnown(right)) {
        streams.err << QStringLiteral("Нет права «%1».\n").arg(arguments[3]);
        return wrongUsage(streams);
    }
    return outcome(StoreAdmin::grant(url, login, right, grant, &error), streams, error);
}
