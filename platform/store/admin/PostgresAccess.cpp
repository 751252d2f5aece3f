#include "PostgresAccess.h"

#include "PgConnection.h"
#include "SchemaScript.h"

namespace
{
// Advisory locks fill the lock table that the whole server shares; messages and notifications of one
// statement, repeated a million times, fill its disk and its queue; no rules limit large objects, snapshots
// and slots. The store's own trigger notifies as the owner.
const char closedFunctions[] = "(pg_(try_)?advisory_.*|lo_.*|loread|lowrite|pg_logical_emit_message|pg_notify"
                               "|pg_export_snapshot|pg_(create|copy)_(logical|physical)_replication_slot"
                               "|pg_drop_replication_slot|pg_replication_slot_advance|pg_logical_slot_.*)";

QByteArray script(const QByteArray& file)
{
    return SchemaScript::file(file).replace("%closed", PostgresAccess::isClosed("proname"));
}

/// Shown to the administrator in one line, so the file has no remarks. It closes PL/pgSQL, too: its blocks can
/// do anything a million times in one statement.
QByteArray closeScript()
{
    return script("postgresql-close.sql").trimmed();
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

using Symptoms = QVector<StoreAdmin::Symptom>;

/// A restored copy has the access that the server gives to every new database.
void lookAtDatabase(PgConnection& link, Symptoms* symptoms)
{
    StoreError error;
    const PgResult open = link.run("SELECT quote_ident(current_database()) WHERE "
                                   "has_database_privilege('public', current_database(), 'CREATE') "
                                   "OR has_database_privilege('public', current_database(), 'TEMPORARY') "
                                   "OR has_schema_privilege('public', 'public', 'CREATE')",
                                   &error);
    if (open && open.rows() > 0)
        symptoms->append(
            {text("Всякий, кого пускает сервер, может создавать в базе свои таблицы."),
             text("Выполните на сервере: REVOKE ALL ON DATABASE %1 FROM PUBLIC; GRANT CONNECT ON DATABASE "
                  "%1 TO vrk_client; REVOKE CREATE ON SCHEMA public FROM PUBLIC;")
                 .arg(QString::fromUtf8(open.bytes(0, 0)))});
}

/// All databases of a server share the lock table and the notification queue.
void lookAtFunctions(PgConnection& link, Symptoms* symptoms)
{
    StoreError error;
    const PgResult open = link.run(
        "SELECT 1 WHERE has_language_privilege('public', 'plpgsql', 'USAGE') OR EXISTS (SELECT 1 "
        "FROM pg_proc WHERE pronamespace = 'pg_catalog'::regnamespace AND " +
            PostgresAccess::isClosed("proname") + " AND has_function_privilege('public', oid, 'EXECUTE'))",
        &error);
    if (open && open.rows() > 0)
        symptoms->append(
            {text(
                 "Всякому, кого пускает сервер, доступны функции, которыми он может остановить работу всех."),
             text("Выполните в базе журнала: %1;").arg(QString::fromUtf8(closeScript()).simplified())});
    const PgResult others =
        link.run("SELECT string_agg(quote_ident(datname), ', ' ORDER BY datname) FROM pg_database "
                 "WHERE datallowconn AND datname <> current_database() "
                 "AND has_database_privilege('public', oid, 'CONNECT')",
                 &error);
    if (others && !others.isNull(0, 0))
        symptoms->append(
            {text("Диспетчеров пускают и другие базы сервера (%1), а оттуда они могут остановить работу "
                  "всех.")
                 .arg(QString::fromUtf8(others.bytes(0, 0))),
             text("Выполните на сервере: REVOKE CONNECT ON DATABASE %1 FROM PUBLIC;")
                 .arg(QString::fromUtf8(others.bytes(0, 0)))});
}
} // namespace

QByteArray PostgresAccess::isClosed(const QByteArray& name)
{
    return name + QByteArray(" ~ '^") + closedFunctions + "$'";
}

bool PostgresAccess::close(PgConnection& link, StoreError* error)
{
    return link.exec(closeScript(), error);
}

bool PostgresAccess::reopen(PgConnection& link, StoreError* error)
{
    return link.exec(script("postgresql-reopen.sql"), error);
}

void PostgresAccess::examine(PgConnection& link, Symptoms* symptoms)
{
    lookAtDatabase(link, symptoms);
    lookAtFunctions(link, symptoms);
}
