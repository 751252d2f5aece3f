#include "SqliteSchema.h"

#include "SchemaScript.h"
#include "SqliteConnection.h"
#include "TableCatalog.h"

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
    const QByteArray key = event == 603 ? "OLD.KeyLink" : "NEW.KeyLink";
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

const SchemaScript::Dialect dialect{"CREATE TRIGGER %name BEFORE %operation ON %table\n"
                                    "WHEN (SELECT loader FROM CurrentTransaction) = 0%condition\nBEGIN\n",
                                    "END;", "SELECT RAISE(ABORT, %text)"};
} // namespace

QByteArray SqliteSchema::logTriggers(const CatalogTable& table)
{
    const QByteArray keyCheck = "    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')\n"
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
                               "    WHERE NEW.KeyLink IS NOT OLD.KeyLink;\n";
    return trigger(table, "insert", 601, keyCheck + treeCheck) +
           trigger(table, "update", 602, sameKey + treeCheck) + trigger(table, "delete", 603, QByteArray());
}

bool SqliteSchema::install(SqliteConnection& connection, StoreError* error)
{
    for (int step = 1; step <= version; ++step) {
        if (!connection.exec(SchemaScript::file(qPrintable(
                                 QStringLiteral("sqlite-%1.sql").arg(step, 4, 10, QLatin1Char('0')))),
                             error))
            return false;
    }
    QByteArray rules = SchemaScript::rules(dialect);
    for (const CatalogTable& table : TableCatalog::tables())
        rules += logTriggers(table);
    rules += "PRAGMA application_id = " + QByteArray::number(SqliteConnection::ApplicationId) +
             "; PRAGMA user_version = " + QByteArray::number(version) + ";";
    return connection.exec(rules, error);
}

StoreError SqliteSchema::versionError(int storeVersion, const QString& file)
{
    if (storeVersion > version)
        return {
            StoreError::TooNew,
            QString::fromUtf8("Хранилище «%1» создано более новой программой: нужна версия схемы %2, а эта "
                              "программа знает версию %3.")
                .arg(file)
                .arg(storeVersion)
                .arg(version),
            QString()};
    if (storeVersion < version)
        return {StoreError::TooOld,
                QString::fromUtf8("Хранилище «%1» версии %2 нужно обновить до версии %3.")
                    .arg(file)
                    .arg(storeVersion)
                    .arg(version),
                QString()};
    return StoreError();
}
