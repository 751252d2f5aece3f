#include "Command.h"

#include "JsonList.h"
#include "StoreAdmin.h"

#include <QFile>
#include <QSaveFile>

Command::ExitCode Command::file(const QStringList& all, Streams& streams)
{
    QStringList arguments = all;
    JsonList list(&arguments);
    if (arguments.size() < 2 || (list.isWanted() && arguments[1] != QLatin1String("list")))
        return WrongUsage;
    const QString& url = arguments[0];
    const QString& verb = arguments[1];
    StoreError error;

    if (verb == QLatin1String("list") && arguments.size() == 2) {
        const QStringList names = StoreAdmin::files(url, &error);
        if (error)
            return fail(streams, error);
        for (const QString& name : names) {
            if (list.isWanted())
                list.add({{QStringLiteral("name"), name}});
            else
                streams.out << name << QLatin1Char('\n');
        }
        if (list.isWanted())
            list.print(streams.out);
        return Success;
    }
    if (verb == QLatin1String("remove") && arguments.size() == 4)
        return outcome(StoreAdmin::removeFile(url, arguments[2], arguments[3], &error), streams, error);
    if (arguments.size() != 5)
        return WrongUsage;

    const QString& path = arguments[4];
    const auto cannot = [&](const QString& what, const QString& why) {
        streams.err << QStringLiteral("Не удалось %1 файл %2: %3\n").arg(what, path, why);
        return Failed;
    };
    if (verb == QLatin1String("put")) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return cannot(QStringLiteral("прочитать"), file.errorString());
        return outcome(StoreAdmin::putFile(url, arguments[2], arguments[3], file.readAll(), &error), streams,
                       error);
    }
    if (verb != QLatin1String("get"))
        return WrongUsage;

    const auto store = Store::open(url, {}, &error);
    QByteArray content;
    if (!store || !store->file(arguments[2], arguments[3], &content, &error))
        return fail(streams, error);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        return cannot(QStringLiteral("записать"), file.errorString());
    return Success;
}
