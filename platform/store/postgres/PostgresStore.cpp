#include "PostgresStore.h"

#include "GenGuid32.h"
#include "PostgresEvidence.h"
#include "PostgresSchema.h"
#include "StoreErrors.h"

namespace
{
constexpr qint64 reliefMs = 1000; ///< time for the server to end the process of a former connection
} // namespace

std::unique_ptr<Store> PostgresStore::open(const QString& url, const Options& options, StoreError* error)
{
    std::unique_ptr<PostgresStore> store(new PostgresStore(url, options));
    if (!store->ready(error))
        return nullptr;
    return store;
}

PostgresStore::PostgresStore(const QString& url, const Options& options)
    : EngineStore(options),
      m_link(url, options.deadlineMs, {{}, options.login.toUtf8(), options.password.toUtf8()})
{
    m_options.password.clear(); // the link keeps it to reconnect
    m_sinceRead.start();
    m_link.setProgress([this] {
        if (m_progress)
            m_progress();
    });
}

bool PostgresStore::ready(StoreError* error, int waitMs, int deadlineMs)
{
    if (!m_link.isOpen()) {
        m_inRead = false;
        m_hasNews = true;
        m_link.startDeadline(deadlineMs);
        if (!m_link.connect(waitMs, error))
            return false;
        if (!greet(error)) {
            m_link.drop();
            return false;
        }
    }
    m_link.startDeadline(deadlineMs);
    return true;
}

bool PostgresStore::greet(StoreError* error)
{
    if (!PostgresSchema::isOurs(m_link, error) || !relieve(error))
        return false;
    const PgResult me =
        m_link.run("SELECT session_user::text, (SELECT rolsuper FROM pg_roles WHERE rolname = "
                   "session_user)::integer, "
                   "(SELECT value FROM StoreProperties WHERE name = 'codec'), "
                   "(SELECT value FROM StoreProperties WHERE name = 'timeZone')",
                   error);
    if (!me)
        return false;
    m_loginOfUrl = QString::fromUtf8(me.bytes(0, 0));
    m_isSuperuser = me.integer(0, 1) != 0;
    if (!takeProperties(me.bytes(0, 2), me.bytes(0, 3), m_link.place(), error) ||
        !PostgresSchema::columns(m_link, &m_columns, error))
        return false;
    // The login that was signed in before the connection was lost must still exist.
    return m_user.login.isEmpty() || becomePerson(m_user.login, error);
}

bool PostgresStore::relieve(StoreError* error)
{
    const PgResult ends = m_link.run(
        "SELECT own.pid::bigint, own.backend_start::text, "
        "(SELECT pg_terminate_backend(former.pid, $3) FROM pg_stat_get_activity($1::integer) AS former "
        "WHERE former.backend_start::text = $2)::integer "
        "FROM pg_stat_get_activity(pg_backend_pid()) AS own",
        PgValues().number(m_backend).text(m_backendStart).number(reliefMs), error);
    if (!ends)
        return false;
    if (!ends.isNull(0, 2) && ends.integer(0, 2) == 0) {
        *error = m_link.lostError(QStringLiteral("the process of the former connection does not end"));
        return false;
    }
    m_backend = ends.integer(0, 0);
    m_backendStart = ends.bytes(0, 1);
    return true;
}

bool PostgresStore::becomePerson(const QString& login, StoreError* error)
{
    if (login == m_loginOfUrl)
        return true;
    if (!m_isSuperuser)
        return StoreErrors::raise(error, StoreError::Refused, "С сервером соединился «%1», а не «%2».",
                                  m_loginOfUrl, login);
    return m_link.exec("SET SESSION AUTHORIZATION " + PostgresSchema::identifier(login), error);
}

bool PostgresStore::provePassword(const QString& password, StoreError* error)
{
    // With an empty one libpq would take what the machine keeps.
    if (password.isEmpty())
        return StoreErrors::raise(error, StoreError::Password, "Введите пароль.");
    const auto link = m_link.withPassword(password.toUtf8(), m_options.deadlineMs);
    link->setProgress(m_progress);
    if (!link->connect(link->connectMs(), error)) {
        if (error->code == StoreError::Password)
            error->text = QString::fromUtf8("Пароль не подошёл.");
        return false;
    }
    return link->hasUsedPassword() ||
           StoreErrors::raise(error, StoreError::Refused, StoreErrors::noPasswords);
}

QVector<StoreLogin> PostgresStore::logins()
{
    QVector<StoreLogin> all;
    StoreError error;
    if (!ready(&error) || !m_isSuperuser)
        return all;
    const PgResult rows = m_link.prepared(loginsSql, {}, &error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        all.append(loginOf(PgRow(rows, i)));
    return all;
}

bool PostgresStore::signIn(const QString& login, StoreLogin* user, StoreError* error)
{
    if (!ready(error))
        return false;
    const QString name = login.isEmpty() ? m_loginOfUrl : login;
    const PgResult rows = m_link.prepared(loginSql, PgValues().text(name.toUtf8()), error);
    if (!rows)
        return false;
    if (rows.rows() == 0)
        return StoreErrors::raise(error, StoreError::Refused, StoreErrors::noLogin, name);
    if (!becomePerson(name, error))
        return false;
    m_user = loginOf(PgRow(rows, 0));
    *user = m_user;
    return true;
}

QVector<StoreDepartment> PostgresStore::departments(const QByteArray& userKey)
{
    QVector<StoreDepartment> all;
    StoreError error;
    if (!ready(&error))
        return all;
    const PgResult rows = m_link.prepared(departmentsSql, PgValues().text(userKey), &error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        all.append(departmentOf(PgRow(rows, i)));
    return all;
}

bool PostgresStore::hasRight(const QByteArray& right)
{
    StoreError error;
    if (!ready(&error))
        return false;
    const PgResult rows = m_link.prepared(rightSql, PgValues().text(m_user.key).text(right), &error);
    return rows && rows.rows() > 0;
}

double PostgresStore::serverTime()
{
    StoreError error;
    if (!ready(&error))
        return 0;
    const PgResult time =
        m_link.prepared("SELECT floor(extract(epoch FROM clock_timestamp()))::double precision", {}, &error);
    return time ? time.real(0, 0) : 0;
}

std::unique_ptr<EvidenceLog> PostgresStore::evidence(Access access, StoreError* error)
{
    return ready(error) ? PostgresEvidence::open(m_link, access, m_options.deadlineMs, error) : nullptr;
}

bool PostgresStore::file(const QString& folder, const QString& name, QByteArray* content, StoreError* error)
{
    if (!ready(error))
        return false;
    const PgResult rows =
        m_link.prepared(fileSql, PgValues().text(folder.toUtf8()).text(name.toUtf8()), error);
    if (!rows)
        return false;
    if (rows.rows() > 0) {
        *content = rows.bytes(0, 0);
        return true;
    }
    *error = StoreErrors::noFile(folder, name);
    return false;
}

bool PostgresStore::writeFile(const QString& folder, const QString& name, const QByteArray& content,
                              StoreError* error)
{
    if (!ready(error))
        return false;
    if (m_inRead)
        endRead();
    PgValues values;
    values.text(m_options.loader ? "on" : "off").text(GenGuid32()).text(folder.toUtf8()).text(name.toUtf8());
    if (content.isNull())
        values.null();
    else
        values.blob(content);
    // A single statement is a transaction.
    const PgResult done =
        m_link.prepared("SELECT vrk_write_file($3, $4, $5), loader, batchKey "
                        "FROM (SELECT set_config('vrk.loader', $1, true) AS loader, "
                        "set_config('vrk.batch_key', $2, true) AS batchKey OFFSET 0) AS settings",
                        values, error);
    if (!done || done.integer(0, 0) != 0)
        return bool(done);
    *error = StoreErrors::noFile(folder, name);
    return false;
}
