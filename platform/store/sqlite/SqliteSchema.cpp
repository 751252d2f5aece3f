#include "SqliteSchema.h"

#include "GenGuid32.h"
#include "SchemaScript.h"
#include "SqliteConnection.h"
#include "SqliteTransaction.h"
#include "TableCatalog.h"

#include <QDateTime>

namespace
{
QByteArray rowOf(const CatalogTable& table, const QByteArray& alias)
{
    QByteArray values;
    for (const CatalogField& field : table.fields)
        values += (values.isEmpty() ? "" : ", ") + alias + '.' + field.name;
    return "vrk_row(" + values + ")";
}

QByteArray logTriggers(const CatalogTable& table)
{
    const QString write = QStringLiteral("write");
    QByteArray all;
    for (const QStringList& facts : {QStringList{QStringLiteral("insert"), write},
                                     {QStringLiteral("update"), write},
                                     {QStringLiteral("delete")}})
        all += SchemaScript::ofTable("sqlite-table.sql", table, facts, rowOf)
                   .replace("%operation", facts.first().toLatin1());
    return all;
}

SchemaScript::Dialect dialect()
{
    return {"sqlite",
            "CREATE TRIGGER %name BEFORE %operation ON %table\n"
            "WHEN (SELECT loader FROM CurrentTransaction) = 0%condition\nBEGIN\n",
            "END;",
            "SELECT RAISE(ABORT, %text)",
            "(%values ->> %place)",
            logTriggers};
}

/// Makes the tables of version \a from those of this one, and creates everything else.
bool makeObjects(SqliteConnection& connection, int from, StoreError* error)
{
    const SchemaScript::Dialect own = dialect();
    return connection.exec(
        SchemaScript::steps(own.engine, from) + SchemaScript::definitions(own) +
            "PRAGMA application_id = " + QByteArray::number(SqliteConnection::ApplicationId) +
            "; PRAGMA user_version = " + QByteArray::number(SchemaScript::version) + ";",
        error);
}

bool dropRules(SqliteConnection& connection, StoreError* error)
{
    QByteArray drops;
    {
        SqliteStatement names = connection.prepare("SELECT 'DROP ' || type || ' \"' || name || '\";' FROM "
                                                   "sqlite_schema WHERE type IN ('trigger', 'view')"
                                                   " ORDER BY type");
        while (names.step())
            drops += names.bytes(0);
    }
    return connection.exec(drops, error);
}

/// Logs the content that the store's own tables had before they were logged.
bool logOwnRows(SqliteConnection& connection, StoreError* error)
{
    SqliteTransaction transaction(connection, SqliteTransaction::loader());
    if (!transaction.begin(error))
        return false;
    for (const CatalogTable& table : TableCatalog::loggedTables()) {
        if (!TableCatalog::table(table.name) &&
            !connection.exec(
                "INSERT INTO ChangeLog (number, tableName, rowKey, event, newRow) SELECT number, '" +
                    table.name + "', " + table.rowKeyOf("T") + ", 601, " + rowOf(table, "T") +
                    " FROM CurrentTransaction, " + table.name + " AS T",
                error))
            return false;
    }
    return transaction.close(GenGuid32(), QDateTime::currentSecsSinceEpoch(), error);
}
/// The log shows from which transaction on there are signatures.
bool beginSignatures(SqliteConnection& connection, StoreError* error)
{
    SqliteTransaction transaction(connection, SqliteTransaction::loader());
    return transaction.begin(error) &&
           connection.exec("INSERT INTO StoreProperties (name, value) VALUES ('signatures', '1')", error) &&
           transaction.close(GenGuid32(), QDateTime::currentSecsSinceEpoch(), error);
}
} // namespace

bool SqliteSchema::install(SqliteConnection& connection, StoreError* error)
{
    return makeObjects(connection, 0, error);
}

bool SqliteSchema::upgrade(SqliteConnection& connection, int from, StoreError* error)
{
    return dropRules(connection, error) && makeObjects(connection, from, error) &&
           (from >= 2 || rebuildSearch(connection, error)) && (from >= 4 || logOwnRows(connection, error)) &&
           (from >= 6 || beginSignatures(connection, error));
}

bool SqliteSchema::rebuildSearch(SqliteConnection& connection, StoreError* error)
{
    QByteArray drops;
    QByteArray triggers;
    {
        SqliteStatement rows = connection.prepare(
            "SELECT name, sql FROM sqlite_schema WHERE type = 'trigger' AND tbl_name = 'RecordSearch'");
        while (rows.step()) {
            drops += "DROP TRIGGER " + rows.bytes(0) + ';';
            triggers += rows.bytes(1) + ';';
        }
    }
    return connection.exec(drops + SchemaScript::file("sqlite-fill-search.sql") + triggers, error);
}
