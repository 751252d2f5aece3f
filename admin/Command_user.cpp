#include "Command.h"

#include "HiddenInput.h"
#include "JsonList.h"
#include "PersonChange.h"
#include "SheetImport.h"
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

/// Adds a login and its worker in one transaction.
bool addWorker(const QString& url, const QString& login, const QString& name, const QString& department,
               StoreError* error)
{
    const auto store = StoreAdmin::openLoader(url, error);
    if (!store)
        return false;
    const QStringList names = name.simplified().split(QLatin1Char(' '));
    const QString loginHeading = QStringLiteral("Логин");
    SheetImport import(store.get());
    import.take(Sheets::of("Users"), {{loginHeading, QStringLiteral("Имя")}, { login, name }});
    import.take(Sheets::of("Workers"), {{QStringLiteral("Подразделение"), QStringLiteral("Фамилия"),
                                         QStringLiteral("Имя"), QStringLiteral("Отчество"), loginHeading},
                                        { department,
                                          names.value(0),
                                          names.value(1),
                                          names.mid(2).join(QLatin1Char(' ')),
                                          login }});
    const bool isSound = import.compare(error);
    const auto refuse = [error](const QString& text) {
        if (!*error)
            *error = {StoreError::BadRequest, text, QString()};
        return false;
    };
    if (!isSound) // without name and line of the sheet, which exists only in memory
        return refuse(import.errors().value(0).section(QStringLiteral(": "), 1));
    if (!import.admitted().contains(login))
        return refuse(QStringLiteral("Пользователь «%1» уже есть.").arg(login));
    return StoreAdmin::admit(url, login, true, error) && import.write(error);
}

/// Lets a person who leaves in no more, or in again; what he wrote keeps his name.
bool retire(const QString& url, const QString& login, bool isLeaving, StoreError* error)
{
    const auto store = StoreAdmin::openLoader(url, error);
    Directory directory;
    if (!store || !directory.load(store.get(), error))
        return false;
    PersonChange change(store.get(), &directory);
    return (isLeaving ? change.retire(login, error) : change.reinstate(login, error)) &&
           StoreAdmin::admit(url, login, !isLeaving, error);
}
} // namespace

Command::ExitCode Command::user(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    if (arguments.size() < 2 || (list.isWanted() && arguments[1] != QLatin1String("list")))
        return WrongUsage;
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    StoreError error;

    if (verb == QLatin1String("list") && arguments.size() == 2) {
        const auto store = Store::open(url, {}, &error);
        if (!store)
            return fail(streams, error);
        for (const StoreLogin& login : store->logins()) {
            if (list.isWanted())
                list.add({{QStringLiteral("login"), login.login}, {QStringLiteral("name"), login.name}});
            else
                streams.out << login.login << QLatin1Char('\t') << login.name << QLatin1Char('\n');
        }
        if (list.isWanted())
            list.print(streams.out);
        return Success;
    }
    if (verb == QLatin1String("add") && arguments.size() == 6 &&
        arguments[4] == QLatin1String("--department"))
        return outcome(addWorker(url, arguments[2], arguments[3], arguments[5], &error), streams, error);
    if (verb == QLatin1String("add") && arguments.size() == 4)
        return outcome(StoreAdmin::addUser(url, arguments[2], arguments[3], &error), streams, error);
    if (verb == QLatin1String("password") && arguments.size() == 3 && streams.in)
        return outcome(StoreAdmin::setPassword(url, arguments[2], typedPassword(streams), &error), streams,
                       error);
    const bool isLeaving = verb == QLatin1String("retire");
    if ((isLeaving || verb == QLatin1String("reinstate")) && arguments.size() == 3)
        return outcome(retire(url, arguments[2], isLeaving, &error), streams, error);
    if (verb == QLatin1String("remove") && arguments.size() == 3)
        return outcome(StoreAdmin::removeUser(url, arguments[2], &error), streams, error);
    return WrongUsage;
}
