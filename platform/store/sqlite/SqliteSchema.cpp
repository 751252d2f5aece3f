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

QByteArray trigger(const CatalogTable& table, const QByteArray& operation, int event,
                   const QByteArray& checks)
{
    const QByteArray oldRow = event == 601 ? QByteArray("NULL") : rowOf(table, "OLD");
    const QByteArray newRow = event == 603 ? QByteArray("NULL") : rowOf(table, "NEW");
    const QByteArray key = table.rowKeyOf(event == 603 ? "OLD" : "NEW");
    return "CREATE TRIGGER Log_" + table.name + "_" + operation + " AFTER " + operation + " ON " +
           table.name +
           "\nBEGIN\n"
           "    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')\n"
           "    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);\n" +
           checks +
           "    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)\n    SELECT number, "
           "'" +
           table.name + "', " + key + ", " + QByteArray::number(event) + ", " + oldRow + ", " + newRow +
           "\n    FROM CurrentTransaction;\nEND;\n";
}

/// No engine has a literal for infinity, but a number that is too large reads as infinity. NaN is stored as
/// null.
QByteArray finiteCheck(const CatalogTable& table, bool isUpdate)
{
    QByteArray faults;
    for (const QByteArray& field : table.reals())
        faults += (faults.isEmpty() ? "" : " OR ") + QByteArray("abs(NEW.") + field + ") = 9e999" +
                  (isUpdate ? " AND NEW." + field + " IS NOT OLD." + field : QByteArray());
    return faults.isEmpty()
               ? QByteArray()
               : "    SELECT RAISE(ABORT, 'Недопустимое время или число.')\n    WHERE " + faults + ";\n";
}

QByteArray logTriggers(const CatalogTable& table)
{
    QByteArray keyCheck;
    if (table.fieldIndex("KeyLink") >= 0)
        keyCheck = "    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')\n"
                   "    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || "
                   "char(31) || char(39) || '\"\\]*';\n";
    QByteArray treeCheck;
    if (table.isCategoryTree()) {
        treeCheck = "    SELECT RAISE(ABORT, 'Категория не может лежать внутри самой себя.')\n"
                    "    WHERE NEW.KeyLink IN (\n"
                    "        WITH RECURSIVE up (k) AS (\n"
                    "            SELECT NEW.ParentKey UNION\n"
                    "            SELECT T.ParentKey FROM up JOIN " +
                    table.name +
                    " AS T ON T.KeyLink = up.k)\n"
                    "        SELECT k FROM up);\n";
    }
    const QByteArray sameKey = "    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')\n"
                               "    WHERE " +
                               table.rowKeyOf("NEW") + " IS NOT " + table.rowKeyOf("OLD") + ";\n";
    return trigger(table, "insert", 601, keyCheck + treeCheck + finiteCheck(table, false)) +
           trigger(table, "update", 602, sameKey + treeCheck + finiteCheck(table, true)) +
           trigger(table, "delete", 603, QByteArray());
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
} // namespace

bool SqliteSchema::install(SqliteConnection& connection, StoreError* error)
{
    return makeObjects(connection, 0, error);
}

bool SqliteSchema::upgrade(SqliteConnection& connection, int from, StoreError* error)
{
    return dropRules(connection, error) && makeObjects(connection, from, error) &&
           (from >= 2 || rebuildSearch(connection, error)) && (from >= 4 || logOwnRows(connection, error));
}

bool SqliteSchema::rebuildSearch(SqliteConnection& connection, StoreError* error)
{
    // Without the triggers the index is built at once instead of row by row.
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
    return connection.exec(
        drops +
            "DELETE FROM RecordSearch;"
            "INSERT INTO RecordSearch (number, recordKey, words, equipment, marks)"
            " SELECT CASE WHEN place <= 65536 THEN (second << 16) + place - 1 ELSE -row END,"
            " recordKey, words, equipment, marks"
            " FROM (SELECT *, row_number() OVER (PARTITION BY second ORDER BY recordKey) AS place,"
            " row_number() OVER (ORDER BY second, recordKey) AS row FROM SearchSource)"
            " ORDER BY second, recordKey;"
            "INSERT INTO RecordWords (RecordWords) VALUES ('rebuild');" +
            triggers,
        error);
}
