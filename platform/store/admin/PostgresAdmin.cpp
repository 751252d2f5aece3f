#include "PostgresAdmin.h"

#include "ContentCheck.h"
#include "EpochHistory.h"
#include "GenGuid32.h"
#include "LongWork.h"
#include "PgAddress.h"
#include "PostgresAccess.h"
#include "PostgresCheck.h"
#include "PostgresEvidence.h"
#include "PostgresObjects.h"
#include "PostgresSchema.h"
#include "PostgresStrangers.h"
#include "SchemaScript.h"
#include "StoreErrors.h"

#include <algorithm>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

namespace
{
constexpr int deadlineMs = 60000;
constexpr int longMs = 6 * 3600 * 1000; ///< for work on the whole store
const char mostConnections[] = "20";    ///< of one person, so that nobody uses up the connections of others
constexpr qint64 mostLocks = 500; ///< of one connection; the lock table is shared, our transactions hold
                                  ///< some dozens

/// An open connection; null with the reason.
std::unique_ptr<PgConnection> connected(const QString& url, StoreError* error,
                                        const QByteArray& database = {}, int limitMs = deadlineMs)
{
    auto link = std::make_unique<PgConnection>(url, limitMs, PgConnection::Instead{database, {}, {}});
    if (!link->connect(link->connectMs(), error))
        return nullptr;
    return link;
}

std::unique_ptr<PgConnection> connectedToStore(const QString& url, StoreError* error,
                                               int limitMs = deadlineMs)
{
    auto link = connected(url, error, {}, limitMs);
    if (!link || !PostgresSchema::isOurs(*link, error))
        return nullptr;
    return link;
}

/// Quoted for statements.
QByteArray databaseName(const QString& url)
{
    return PostgresSchema::identifier(QString::fromUtf8(PgConnection::databaseOf(url)));
}

/// Creates the database of the address if the server has none of this name.
bool makeDatabase(const QString& url, StoreError* error)
{
    const QByteArray name = PgConnection::databaseOf(url);
    StoreError unreachable;
    const auto server = connected(url, &unreachable, "postgres");
    if (!server)
        return false; // the caller reports why the database itself could not be reached
    const PgResult known =
        server->run("SELECT 1 FROM pg_database WHERE datname = $1", PgValues().text(name), error);
    if (!known || known.rows() > 0)
        return false;
    return server->exec("CREATE DATABASE " + databaseName(url) +
                            " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C.UTF-8'",
                        error);
}

bool setProperty(PgConnection& link, const QByteArray& name, const QByteArray& value, StoreError* error)
{
    return bool(link.run("INSERT INTO StoreProperties (name, value) VALUES ($1, $2)"
                         " ON CONFLICT (name) DO UPDATE SET value = excluded.value",
                         PgValues().text(name).text(value), error));
}

/// Whether the database is empty and can hold every text.
bool isFit(PgConnection& link, StoreError* error)
{
    const PgResult state =
        link.run("SELECT (SELECT count(*) FROM pg_class WHERE relnamespace = 'public'::regnamespace), "
                 "current_setting('server_encoding'), current_database()::text",
                 error);
    if (!state)
        return false;
    const QString name = QString::fromUtf8(state.bytes(0, 2));
    if (state.integer(0, 0) > 0)
        return StoreErrors::raise(error, StoreError::BadRequest, "База данных «%1» уже не пуста.", name);
    if (state.bytes(0, 1) != "UTF8")
        return StoreErrors::raise(error, StoreError::BadRequest,
                                  "База данных «%1» должна быть в кодировке UTF8.", name);
    return true;
}

/// A connection to the empty database of the address, which is created if it does not exist.
std::unique_ptr<PgConnection> emptyDatabase(const QString& url, bool* isNew, StoreError* error)
{
    auto link = connected(url, error, {}, longMs);
    *isNew = !link && makeDatabase(url, error);
    if (*isNew) {
        error->clear();
        link = connected(url, error, {}, longMs);
    }
    if (!link || !isFit(*link, error))
        return nullptr;
    return link;
}

/// Restores the database to the state that emptyDatabase() found.
void giveBack(PgConnection& link, const QString& url, bool isNew)
{
    StoreError ignored;
    if (isNew) {
        const auto server = connected(url, &ignored, "postgres");
        if (server)
            server->exec("DROP DATABASE " + databaseName(url) + " WITH (FORCE)", &ignored);
        return;
    }
    link.exec("ROLLBACK", &ignored);
    link.exec("DROP OWNED BY vrk_owner", &ignored);
    PostgresAccess::reopen(link, &ignored);
}

/// Creates schema, properties and access in an empty database, in one transaction.
bool install(PgConnection& link, const QByteArray& codecName, const QByteArray& timeZone, StoreError* error)
{
    return PostgresSchema::beginLogged(link, error) && PostgresSchema::install(link, error) &&
           setProperty(link, "codec", codecName, error) && setProperty(link, "timeZone", timeZone, error) &&
           setProperty(link, "epoch", GenGuid32(), error) && PostgresAccess::close(link, error) &&
           link.exec("COMMIT", error);
}
} // namespace

bool PostgresAdmin::init(const QString& url, const QByteArray& codecName, const QByteArray& timeZone,
                         const std::function<bool()>& isFilled, StoreError* error)
{
    bool isNewDatabase = false;
    const auto link = emptyDatabase(url, &isNewDatabase, error);
    if (!link)
        return false;
    if (install(*link, codecName, timeZone, error) && isFilled())
        return true;
    giveBack(*link, url, isNewDatabase);
    return false;
}

int PostgresAdmin::version(const QString& url, StoreError* error)
{
    const auto link = connected(url, error);
    return link ? PostgresSchema::versionOf(*link, error) : -1;
}

bool PostgresAdmin::upgrade(const QString& url, StoreError* error)
{
    const auto link = connected(url, error, {}, longMs);
    const int version = link ? PostgresSchema::versionOf(*link, error) : -1;
    if (version < 0)
        return false;
    *error = StoreErrors::version(version, link->place());
    if (error->code != StoreError::TooOld)
        return !*error;
    error->clear();
    return PostgresSchema::beginLogged(*link, error) &&
           link->exec("SET LOCAL statement_timeout = 0", error) &&
           PostgresSchema::upgrade(*link, version, error) && PostgresAccess::close(*link, error) &&
           link->exec("COMMIT", error);
}

bool PostgresAdmin::rebuildSearch(const QString& url, StoreError* error)
{
    const auto link = connectedToStore(url, error, longMs);
    QVector<StoreAdmin::Finding> findings;
    return link && link->exec("BEGIN; SET LOCAL statement_timeout = 0", error) &&
           PostgresCheck::log(*link, &findings, error) &&
           ContentCheck::isSound(findings, error, ContentCheck::unsoundLog) &&
           PostgresSchema::rebuildSearch(*link, error) && link->exec("COMMIT", error);
}

bool PostgresAdmin::changeProperty(const QString& url, const QByteArray& name, const QByteArray& value,
                                   StoreError* error)
{
    const auto link = connectedToStore(url, error);
    return link && PostgresSchema::beginLogged(*link, error) && setProperty(*link, name, value, error) &&
           link->exec("COMMIT", error);
}

bool PostgresAdmin::checkSchema(const QString& url, QVector<StoreAdmin::Finding>* findings, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    return link && PostgresObjects::compare(*link, findings, error);
}

bool PostgresAdmin::check(const QString& url, QVector<StoreAdmin::Finding>* findings, StoreError* error)
{
    const auto link = connectedToStore(url, error, longMs);
    // One transaction, so that all queries see the same state of a store in use.
    return link && PostgresObjects::compare(*link, findings, error) &&
           link->exec("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY; SET LOCAL statement_timeout = 0",
                      error) &&
           PostgresStrangers::find(*link, findings, error) &&
           PostgresCheck::content(*link, findings, error) && PostgresCheck::search(*link, findings, error) &&
           PostgresCheck::log(*link, findings, error);
}

namespace
{
/// Runs a program of PostgreSQL. False with \a failure as the reason.
bool runTool(const char* name, const QStringList& arguments, const QString& url, const QString& failure,
             StoreError* error)
{
    const LongWork work("Копирование");
    const QString program = QStandardPaths::findExecutable(QLatin1String(name));
    if (program.isEmpty())
        return StoreErrors::raise(error, StoreError::BadRequest,
                                  "Копии базы на сервере делает и возвращает %1, а его здесь нет: установите "
                                  "пакет postgresql-client или выполните команду на сервере.",
                                  QString::fromLatin1(name));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (const QByteArray mode = PgAddress::sslMode(url); !mode.isEmpty())
        environment.insert(QStringLiteral("PGSSLMODE"), QString::fromLatin1(mode));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return true;
    *error = {StoreError::Internal, failure, QString::fromUtf8(process.readAllStandardError()).trimmed()};
    return false;
}

/// Begins an epoch, and names those of the replaced store that the restored log lacks.
bool nameEpochs(PgConnection& link, const EpochHistory& replaced, StoreError* error)
{
    EpochHistory own;
    const auto log = PostgresEvidence::open(link, Store::Access::Read, deadlineMs, error);
    if (!log || !own.load(*log))
        return false;
    const QByteArrayList epochs = replaced.missingFrom(own) << GenGuid32();
    return std::all_of(epochs.cbegin(), epochs.cend(),
                       [&](const QByteArray& epoch) { return setProperty(link, "epoch", epoch, error); });
}

/// Restores the copy at this program's version, with its own history and the access of a store. The
/// database is closed before the copy is read, which takes a while, and again afterwards, because the copy
/// contains its own grants.
bool putBack(PgConnection& link, const QString& url, const QString& copy, const EpochHistory& replaced,
             StoreError* error)
{
    QVector<StoreAdmin::Finding> findings;
    const bool isThere = PostgresSchema::makeRoles(link, error) && PostgresAccess::close(link, error) &&
                         runTool("pg_restore",
                                 {QStringLiteral("--exit-on-error"), QStringLiteral("--single-transaction"),
                                  QStringLiteral("--dbname=") + url, copy},
                                 url, QString::fromUtf8("Копию вернуть не удалось."), error) &&
                         PostgresAdmin::upgrade(url, error) && PostgresSchema::beginLogged(link, error) &&
                         nameEpochs(link, replaced, error) && PostgresAccess::close(link, error) &&
                         link.exec("COMMIT; ANALYZE", error) && PostgresAdmin::check(url, &findings, error);
    return isThere && ContentCheck::isSound(findings, error);
}

/// Gives every login of the store its role. A role without a password cannot log in.
bool admitAll(PgConnection& link, const QString& url, QStringList* withoutPassword, StoreError* error)
{
    const char logins[] = "SELECT login FROM Users WHERE coalesce(deleted_, 0) = 0 ORDER BY login";
    const PgResult all = link.run(logins, error);
    for (int i = 0; all && i < all.rows(); ++i)
        if (!PostgresAdmin::addRole(url, QString::fromUtf8(all.bytes(i, 0)), error))
            return false;
    const PgResult open = link.run(QByteArray("SELECT rolname::text FROM pg_authid WHERE rolpassword IS NULL "
                                              "AND NOT rolsuper AND rolname IN (") +
                                       logins + ") ORDER BY rolname",
                                   error);
    for (int i = 0; open && i < open.rows(); ++i)
        withoutPassword->append(QString::fromUtf8(open.bytes(i, 0)));
    return all && open;
}
} // namespace

bool PostgresAdmin::backup(const QString& url, const QString& copy, StoreError* error)
{
    if (version(url, error) < 0)
        return false;
    const QString failure = QString::fromUtf8("Копию сделать не удалось.");
    return runTool("pg_dump",
                   {QStringLiteral("--format=custom"), QStringLiteral("--file=") + copy,
                    QStringLiteral("--dbname=") + url},
                   url, failure, error) &&
           runTool("pg_restore", {QStringLiteral("--list"), copy}, url, failure, error);
}

bool PostgresAdmin::restore(const QString& url, const QString& copy, const EpochHistory& replaced,
                            QStringList* notes, StoreError* error)
{
    if (!QFileInfo(copy).isFile())
        return StoreErrors::raise(error, StoreError::Missing, "Файл «%1» не найден.", copy);
    bool isNewDatabase = false;
    if (!runTool("pg_restore", {QStringLiteral("--list"), copy}, url,
                 QString::fromUtf8("Файл «%1» не является копией хранилища на сервере.").arg(copy), error))
        return false;
    const auto link = emptyDatabase(url, &isNewDatabase, error);
    if (!link)
        return false;
    QStringList withoutPassword;
    if (!putBack(*link, url, copy, replaced, error) || !admitAll(*link, url, &withoutPassword, error)) {
        giveBack(*link, url, isNewDatabase);
        return false;
    }
    if (!withoutPassword.isEmpty())
        notes->append(
            QString::fromUtf8("Задайте пароли (vrk-admin user URL password ИМЯ), без них не войдут: %1")
                .arg(withoutPassword.join(QStringLiteral(", "))));
    return true;
}

int PostgresAdmin::endRunaways(const QString& url, int seconds, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    if (!link)
        return -1;
    const PgResult found = link->run(SchemaScript::file("postgresql-watchdog.sql"),
                                     PgValues().real(seconds).number(mostLocks), error);
    if (!found)
        return -1;
    int ended = static_cast<int>(found.integer(0, 0));
    for (int i = 0; i < found.rows(); ++i) {
        if (found.isNull(i, 1))
            continue;
        if (!link->exec("ROLLBACK PREPARED " + Store::literal(found.bytes(i, 1)), error))
            return -1;
        ++ended;
    }
    return ended;
}

bool PostgresAdmin::addRole(const QString& url, const QString& login, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    if (!link)
        return false;
    const PgResult known = link->run("SELECT rolsuper, pg_has_role(oid, 'vrk_seal', 'MEMBER') FROM pg_roles"
                                     " WHERE rolname = $1",
                                     PgValues().text(login.toUtf8()), error);
    if (!known)
        return false;
    if (known.rows() > 0 && known.integer(0, 0) != 0)
        return true; // the administrator of the server needs no more
    if (known.rows() > 0 && known.integer(0, 1) != 0)
        return StoreErrors::raise(error, StoreError::BadRequest,
                                  "Учётная запись «%1» опечатывает журнал и вести его не может.", login);
    const QByteArray name = PostgresSchema::identifier(login);
    return link->exec((known.rows() > 0
                           ? "ALTER ROLE " + name + " LOGIN"
                           : "CREATE ROLE " + name + " LOGIN CONNECTION LIMIT " + mostConnections) +
                          "; GRANT vrk_client TO " + name,
                      error);
}

bool PostgresAdmin::lockRole(const QString& url, const QString& login, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    if (!link)
        return false;
    const PgResult known = link->run("SELECT 1 FROM pg_roles WHERE rolname = $1 AND NOT rolsuper",
                                     PgValues().text(login.toUtf8()), error);
    if (!known || known.rows() == 0)
        return bool(known);
    return link->exec("ALTER ROLE " + PostgresSchema::identifier(login) + " NOLOGIN", error) &&
           link->run("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = $1",
                     PgValues().text(login.toUtf8()), error);
}

bool PostgresAdmin::setPassword(const QString& url, const QString& login, const QString& password,
                                StoreError* error)
{
    const auto link = connectedToStore(url, error);
    if (!link)
        return false;
    const QByteArray hash = link->passwordHash(login, password);
    if (hash.isEmpty())
        return StoreErrors::raise(error, StoreError::BadRequest, "Такой пароль не подходит.");
    return link->exec("ALTER ROLE " + PostgresSchema::identifier(login) + " PASSWORD " + Store::literal(hash),
                      error);
}

QStringList PostgresAdmin::files(const QString& url, StoreError* error)
{
    QStringList names;
    const auto link = connectedToStore(url, error);
    if (!link)
        return names;
    const PgResult rows =
        link->run("SELECT folder || '/' || name FROM StoreFiles ORDER BY folder, name", error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        names.append(QString::fromUtf8(rows.bytes(i, 0)));
    return names;
}
