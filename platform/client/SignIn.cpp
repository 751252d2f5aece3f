#include "SignIn.h"

#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "ProcessZone.h"
#include "Store.h"
#include "StoreUrl.h"

#include <ctime>
#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>
#include <QUrlQuery>

struct SignIn::Private {
    static QString tr(const char* text) { return QCoreApplication::translate("SignIn", text); }
    bool fail(const QString& text)
    {
        error = text;
        return false;
    }

    std::unique_ptr<Store> store;
    std::shared_ptr<const ProcessZone> zone; ///< until the session keeps it
    StoreLogin user;
    QVector<StoreDepartment> departments;
    bool signedIn = false;
    bool wantsPassword = false;
    QString error;
};

SignIn::SignIn() : d(std::make_unique<Private>()) {}

SignIn::~SignIn() = default;

QString SignIn::errorText() const
{
    return d->error;
}

bool SignIn::open(const QString& url, const QString& login, const QString& password)
{
    *d = Private();
    StoreError error;
    Store::Options options;
    options.login = login;
    options.password = password;
    d->store = Store::open(url, options, &error);
    d->wantsPassword = error.code == StoreError::Password;
    if (!d->store)
        return d->fail(error.text);
    if (!d->store->codec()) {
        d->store.reset();
        return d->fail(Private::tr("Кодовая страница журнала неизвестна этой системе."));
    }
    const QByteArray timeZone = d->store->timeZone();
    d->zone = ProcessZone::hold(timeZone);
    if (!d->zone) {
        d->store.reset();
        return d->fail(
            Private::tr("Этот журнал ведётся по времени «%1», а в программе уже открыт журнал по времени "
                        "«%2». Откройте его отдельным запуском программы.")
                .arg(QString::fromUtf8(timeZone), QString::fromUtf8(ProcessZone::held())));
    }
    qputenv("TZ", timeZone);
    tzset();
    return true;
}

bool SignIn::wantsPassword() const
{
    return d->wantsPassword;
}

bool SignIn::isServer(const QString& url)
{
    return StoreUrl(url).engine == StoreUrl::PostgreSql;
}

QString SignIn::storeOf(const QString& url)
{
    const StoreUrl address(url);
    if (address.engine == StoreUrl::Sqlite) {
        const QString file = QFileInfo(address.file).canonicalFilePath();
        return file.isEmpty() ? address.file : file;
    }
    QUrl server(url);
    server.setUserInfo(QString());
    QUrlQuery query(server);
    QUrlQuery where;
    for (const QString& name : {QStringLiteral("service"), QStringLiteral("host"), QStringLiteral("hostaddr"),
                                QStringLiteral("port"), QStringLiteral("dbname")})
        if (query.hasQueryItem(name))
            where.addQueryItem(name, query.queryItemValue(name, QUrl::FullyEncoded));
    server.setQuery(where);
    return server.toString(QUrl::FullyEncoded);
}

QString SignIn::loginOf(const QString& url)
{
    return StoreUrl(url).login();
}

QString SignIn::withoutPassword(const QString& url)
{
    return StoreUrl(url).withoutPassword();
}

QVector<SignIn::Login> SignIn::logins() const
{
    QVector<Login> found;
    if (!d->store)
        return found;
    const QVector<StoreLogin> logins = d->store->logins();
    for (const StoreLogin& login : logins)
        found.append({login.login, login.name});
    return found;
}

bool SignIn::signIn(const QString& login)
{
    d->signedIn = false;
    d->departments.clear();
    d->user = StoreLogin();
    d->error.clear();
    if (!d->store)
        return d->fail(Private::tr("Журнал не открыт."));
    StoreError error;
    if (!d->store->signIn(login, &d->user, &error))
        return d->fail(error ? error.text : Private::tr("Пользователь «%1» не найден.").arg(login));
    d->departments = d->store->departments(d->user.key);
    d->signedIn = true;
    return true;
}

QString SignIn::userName() const
{
    return d->user.name;
}

QVector<SignIn::Department> SignIn::departments() const
{
    QVector<Department> found;
    for (const StoreDepartment& department : qAsConst(d->departments))
        found.append(
            {department.key, department.name, department.organizationKey, department.organizationName});
    return found;
}

bool SignIn::enter(CVrkCliApp* app, const QByteArray& departmentKey)
{
    d->error.clear();
    if (!d->store || !d->signedIn)
        return d->fail(Private::tr("Вход в журнал не выполнен."));

    StoreDepartment chosen;
    if (departmentKey.isEmpty()) {
        if (d->departments.size() > 1)
            return d->fail(Private::tr("Не выбрано подразделение."));
        chosen = d->departments.value(0);
    } else {
        for (const StoreDepartment& department : qAsConst(d->departments)) {
            if (department.key == departmentKey)
                chosen = department;
        }
        if (chosen.key.isEmpty())
            return d->fail(Private::tr("Пользователь не работает в выбранном подразделении."));
    }

    auto session = std::make_unique<CVrkCliSes>(std::move(d->store));
    d->zone.reset();
    d->signedIn = false;
    if (!session->startEvents())
        return d->fail(session->lastErrorText());
    app->setSession(std::move(session));
    app->m_user_params.setValue(QStringLiteral("KEYLINK"), QString::fromUtf8(d->user.key));
    app->m_user_params.setValue(QStringLiteral("DEPARTMENTKEY"), QString::fromUtf8(chosen.key));
    app->m_user_params.setValue(QStringLiteral("ORGANIZATIONKEY"), QString::fromUtf8(chosen.organizationKey));
    return true;
}
