#include "Command.h"

#include "SitePlan.h"
#include "StoreAdmin.h"

#include <QFile>
#include <QTimeZone>

Command::ExitCode Command::setup(const QStringList& arguments, Streams& streams)
{
    QString url;
    QString answers;
    QByteArray zone = QTimeZone::systemTimeZoneId();
    for (int i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == QLatin1String("--answers") && hasValue)
            answers = arguments[++i];
        else if (arguments[i] == QLatin1String("--time-zone") && hasValue)
            zone = arguments[++i].toUtf8();
        else if (url.isEmpty() && !arguments[i].startsWith(QLatin1Char('-')))
            url = arguments[i];
        else
            return WrongUsage;
    }
    if (url.isEmpty() || (answers.isEmpty() && !streams.in))
        return WrongUsage;
    QFile file(answers);
    if (!answers.isEmpty() && !file.open(QIODevice::ReadOnly)) {
        streams.err << QStringLiteral("Не удалось прочитать файл %1: %2\n").arg(answers, file.errorString());
        return Failed;
    }
    QTextStream fromFile(&file);
    setUtf8(&fromFile);

    const bool isServer = url.startsWith(QLatin1String("postgres"));
    SitePlan plan;
    QString wrong;
    if (!plan.ask(answers.isEmpty() ? *streams.in : fromFile, streams.out, !answers.isEmpty(), isServer,
                  &wrong)) {
        streams.err << wrong << QLatin1Char('\n');
        return Failed;
    }

    int people = 0;
    const auto fill = [&](Store* store, StoreError* reason) {
        if (!plan.write(store, reason))
            return false;
        for (const SitePlan::Department& department : plan.departments) {
            for (const SitePlan::Person& person : department.people) {
                ++people;
                if (isServer && !(StoreAdmin::admit(url, person.login, true, reason) &&
                                  StoreAdmin::setPassword(url, person.login, person.password, reason)))
                    return false;
            }
        }
        return true;
    };
    StoreError error;
    if (!StoreAdmin::init(url, "Windows-1251", zone, &error, fill))
        return fail(streams, error);
    streams.out << QStringLiteral("Хранилище готово: подразделений %1, сотрудников %2.\n")
                       .arg(plan.departments.size())
                       .arg(people);
    return Success;
}
