#include "Command.h"

#include "DemoStore.h"
#include "StoreAdmin.h"
#include "StoreError.h"
#include "StoreUrl.h"

#include <chrono>
#include <functional>
#include <QDateTime>
#include <thread>

namespace
{
constexpr int secondsBetweenLiveRecords = 15;
constexpr int oldTemplates = 400;

QString describe(DemoStore::State state)
{
    switch (state) {
    case DemoStore::State::Current:
        return QStringLiteral("Демонстрационный журнал на месте.\n");
    case DemoStore::State::Ended:
        return QStringLiteral("Смена демонстрационного журнала закончилась: журнал записан заново.\n");
    case DemoStore::State::Touched:
        return QStringLiteral(
            "Смена демонстрационного журнала закончилась: она закрыта, открыта новая, записи сохранены.\n");
    case DemoStore::State::Empty:
    case DemoStore::State::Foreign:
        break;
    }
    return {};
}

/// Gives every login of a store on a server its role; returns a message about it.
bool admitAll(const QString& url, QString* message, StoreError* error)
{
    const auto store = Store::open(url, {}, error);
    QStringList names;
    for (const StoreLogin& login : store ? store->logins() : QVector<StoreLogin>()) {
        if (!StoreAdmin::admit(url, login.login, true, error))
            return false;
        names << login.login;
    }
    *message = QStringLiteral("Входят: %1. Пароли задаёт vrk-admin user URL password ИМЯ.\n")
                   .arg(names.join(QStringLiteral(", ")));
    return store != nullptr;
}

/// Writes so many records, or without end if \a count is negative.
Command::ExitCode writeLive(const QString& url, int count, const std::function<qint64()>& now,
                            Streams& streams)
{
    StoreError error;
    for (int n = 0; n != count; ++n) {
        if (!DemoStore::writeLiveRecord(url, now(), n, &error))
            return Command::fail(streams, error);
        streams.out << QStringLiteral("Запись %1 внесена\n").arg(n + 1);
        streams.out.flush();
        if (n + 1 != count)
            std::this_thread::sleep_for(std::chrono::seconds(secondsBetweenLiveRecords));
    }
    return Command::Success;
}
} // namespace

Command::ExitCode Command::demo(const QStringList& arguments, Streams& streams)
{
    QString url;
    bool live = false;
    int count = -1;
    bool old = false;
    int templates = -1;
    int hoursAgo = 0;
    for (int i = 0; i < arguments.size(); ++i) {
        bool number = true;
        if (arguments[i] == QLatin1String("--live"))
            live = true;
        else if (arguments[i] == QLatin1String("--count") && i + 1 < arguments.size())
            count = arguments[++i].toInt(&number);
        else if (arguments[i] == QLatin1String("--old"))
            old = true;
        else if (arguments[i] == QLatin1String("--old-templates") && i + 1 < arguments.size())
            templates = arguments[++i].toInt(&number);
        else if (arguments[i] == QLatin1String("--ago") && i + 1 < arguments.size())
            hoursAgo = arguments[++i].toInt(&number);
        else if (url.isEmpty() && !arguments[i].startsWith(QLatin1Char('-')))
            url = arguments[i];
        else
            return WrongUsage;
        if (!number || count < -1 || templates < -1 || hoursAgo < 0)
            return WrongUsage;
    }
    if (url.isEmpty() || (count >= 0 && !live) || (templates >= 0 && !old) || (live && (old || hoursAgo > 0)))
        return WrongUsage;

    const auto now = [hoursAgo] {
        constexpr qint64 hour = 3600;
        return QDateTime::currentSecsSinceEpoch() - hoursAgo * hour;
    };
    if (live)
        return writeLive(url, count, now, streams);

    StoreError error;
    DemoStore::State state = DemoStore::State::Empty;
    bool known = DemoStore::state(url, now(), &state, &error);
    if (!known && error.code == StoreError::TooOld) {
        error.clear(); // the demo of an earlier program version
        known = StoreAdmin::upgrade(url, &error) && DemoStore::state(url, now(), &state, &error);
    }
    if (!known) {
        if (error.code != StoreError::Missing)
            return fail(streams, error);
        state = DemoStore::State::Empty;
    }
    if (state != DemoStore::State::Empty && state != DemoStore::State::Foreign) {
        if (!DemoStore::renew(url, now(), &error))
            return fail(streams, error);
        streams.out << describe(state);
    } else {
        if (!DemoStore::fill(url, now(), &error)) // refuses a store with foreign data
            return fail(streams, error);
        streams.out << QStringLiteral("Демонстрационный журнал записан.\n");
        QString message;
        if (StoreUrl(url).engine == StoreUrl::PostgreSql && !admitAll(url, &message, &error))
            return fail(streams, error);
        streams.out << message;
    }
    if (old) {
        if (!DemoStore::writeEarlierJournal(url, now(), templates < 0 ? oldTemplates : templates, &error))
            return fail(streams, error);
        streams.out << QStringLiteral("Таблицы прежнего журнала записаны.\n");
    }
    return Success;
}
