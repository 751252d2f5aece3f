#include "UserCommand.h"

#include "HiddenInput.h"
#include "StoreAdmin.h"

namespace
{
QString typedPassword(Streams& streams)
{
    const HiddenInput hidden;
    if (hidden.isTerminal()) {
        streams.out << QStringLiteral("Пароль: ");
        streams.out.flush();
    }
    return streams.in->readLine();
}
} // namespace

QString UserCommand::summary() const
{
    return QStringLiteral("имена для входа: список, добавление, пароль, удаление");
}

QString UserCommand::usage() const
{
    return QStringLiteral("vrk-admin user URL list\n"
                          "vrk-admin user URL add LOGIN NAME\n"
                          "vrk-admin user URL password LOGIN\n"
                          "vrk-admin user URL remove LOGIN\n"
                          "  Пароль (только для сервера PostgreSQL) читается со стандартного ввода.\n");
}

Command::ExitCode UserCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() < 2)
        return wrongUsage(streams);
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    StoreError error;

    if (verb == QLatin1String("list") && arguments.size() == 2) {
        const auto store = Store::open(url, {}, &error);
        if (!store)
            return fail(streams, error);
        for (const StoreLogin& login : store->logins())
            streams.out << login.login << QLatin1Char('\t') << login.name << QLatin1Char('\n');
        return Success;
    }
    if (verb == QLatin1String("add") && arguments.size() == 4)
        return outcome(StoreAdmin::addUser(url, arguments[2], arguments[3], &error), streams, error);
    if (verb == QLatin1String("password") && arguments.size() == 3 && streams.in)
        return outcome(StoreAdmin::setPassword(url, arguments[2], typedPassword(streams), &error), streams,
                       error);
    if (verb == QLatin1String("remove") && arguments.size() == 3)
        return outcome(StoreAdmin::removeUser(url, arguments[2], &error), streams, error);
    return wrongUsage(streams);
}
