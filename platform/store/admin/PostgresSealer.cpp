#include "PostgresSealer.h"

#include "PostgresSchema.h"
#include "Store.h"
#include "StoreErrors.h"

namespace
{
constexpr int deadlineMs = 60000;
const char mostConnections[] = "5";

std::unique_ptr<PgConnection> connectedToStore(const QString& url, StoreError* error)
{
    auto link = std::make_unique<PgConnection>(url, deadlineMs);
    if (!link->connect(link->connectMs(), error) || !PostgresSchema::isOurs(*link, error))
        return nullptr;
    return link;
}

struct Role {
    bool isKnown = false;
    bool isSuperuser = false;
    bool isPerson = false; ///< of this journal, or of another one of the server
    bool isSealer = false;
};

bool look(PgConnection& link, const QString& login, Role* role, StoreError* error)
{
    const PgResult row =
        link.run("SELECT rolname IS NOT NULL, coalesce(rolsuper, false), coalesce(pg_has_role(R.oid, "
                 "'vrk_client', 'MEMBER'), false) OR EXISTS (SELECT 1 FROM Users WHERE login = $1 AND "
                 "coalesce(deleted_, 0) = 0), coalesce(pg_has_role(R.oid, 'vrk_seal', 'MEMBER'), false)"
                 " FROM (SELECT 1) AS one LEFT JOIN pg_roles AS R ON R.rolname = $1",
                 PgValues().text(login.toUtf8()), error);
    if (!row)
        return false;
    *role = {row.integer(0, 0) != 0, row.integer(0, 1) != 0, row.integer(0, 2) != 0, row.integer(0, 3) != 0};
    return true;
}
} // namespace

bool PostgresSealer::admit(const QString& url, const QString& login, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    Role role;
    if (!link || !look(*link, login, &role, error))
        return false;
    if (role.isSuperuser)
        return StoreErrors::raise(error, StoreError::BadRequest,
                                  "«%1» управляет сервером. Опечатывать должна отдельная учётная запись.",
                                  login);
    if (role.isPerson)
        return StoreErrors::raise(error, StoreError::BadRequest,
                                  "«%1» ведёт журнал. Опечатывать должна отдельная учётная запись.", login);
    const QByteArray name = PostgresSchema::identifier(login);
    return link->exec((role.isKnown ? "ALTER ROLE " + name + " LOGIN"
                                    : "CREATE ROLE " + name + " LOGIN CONNECTION LIMIT " + mostConnections) +
                          "; GRANT vrk_seal TO " + name,
                      error);
}

bool PostgresSealer::dismiss(const QString& url, const QString& login, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    Role role;
    if (!link || !look(*link, login, &role, error))
        return false;
    if (!role.isSealer || role.isSuperuser)
        return StoreErrors::raise(error, StoreError::NoSuchRow, "Учётная запись «%1» не опечатывает.", login);
    const QByteArray name = PostgresSchema::identifier(login);
    return link->exec("REVOKE vrk_seal FROM " + name + "; ALTER ROLE " + name + " NOLOGIN", error) &&
           link->run("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = $1",
                     PgValues().text(login.toUtf8()), error);
}

bool PostgresSealer::isAdmitted(const QString& url, const QString& login, bool* admitted, StoreError* error)
{
    const auto link = connectedToStore(url, error);
    Role role;
    if (!link || !look(*link, login, &role, error))
        return false;
    *admitted = role.isSealer && !role.isSuperuser;
    return true;
}
