#include "PostgresCheck.h"

#include "ContentCheck.h"
#include "LongWork.h"
#include "PostgresSchema.h"
#include "TableCatalog.h"

namespace
{
using StoreAdmin::Finding;

bool addRows(PgConnection& link, const ContentCheck::Look& look, QVector<Finding>* findings,
             StoreError* error)
{
    const PgResult rows = link.run(look.sql, error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        ContentCheck::add(findings, look.grade, look.text, rows.bytes(i, 0),
                          rows.columns() > 1 ? rows.bytes(i, 1) : QByteArray());
    return bool(rows);
}

bool addAll(PgConnection& link, const QVector<ContentCheck::Look>& looks, QVector<Finding>* findings,
            StoreError* error)
{
    for (const ContentCheck::Look& look : looks)
        if (!addRows(link, look, findings, error))
            return false;
    return true;
}

/// Without nulls at its end: a row that was logged before its last fields existed does not have them.
QByteArray withoutNulls(const QByteArray& row)
{
    return "regexp_replace(" + row + ", '(,null)+\\]$', ']')";
}
} // namespace

bool PostgresCheck::content(PgConnection& link, QVector<Finding>* findings, StoreError* error)
{
    const LongWork work("Проверка ссылок");
    return addAll(link, ContentCheck::looks(), findings, error);
}

bool PostgresCheck::search(PgConnection& link, QVector<Finding>* findings, StoreError* error)
{
    const LongWork work("Проверка поиска");
    return addRows(
        link,
        {"SELECT count(*)::text, min(recordKey) FROM ("
         "SELECT recordKey FROM SearchSource AS Q FULL JOIN RecordSearch AS S USING (recordKey)"
         " WHERE S.words IS DISTINCT FROM Q.words OR S.recordTime IS DISTINCT FROM Q.recordTime) AS T"
         " HAVING count(*) > 0",
         Finding::Fault, ContentCheck::searchOutOfStep},
        findings, error);
}

bool PostgresCheck::log(PgConnection& link, QVector<Finding>* findings, StoreError* error)
{
    const LongWork work("Проверка журнала изменений");
    QVector<ContentCheck::Look> looks = {
        {"SELECT (before + 1)::text, (number - 1)::text FROM (SELECT number, lag(number, 1, 0::bigint) "
         "OVER (ORDER BY number) AS before FROM ChangeTransactions) AS T WHERE number <> before + 1",
         Finding::Fault, ContentCheck::missingTransactions},
        {"SELECT number::text FROM (SELECT number, chain, vrk_chain(lag(chain, 1, ''::bytea) OVER (ORDER BY "
         "number), "
         "T) AS expected FROM ChangeTransactions AS T) AS C WHERE chain <> expected",
         Finding::Fault, ContentCheck::changedTransaction},
        {"SELECT DISTINCT number::text FROM ChangeLog WHERE number NOT IN (SELECT number FROM "
         "ChangeTransactions)",
         Finding::Fault, ContentCheck::strayEntries},
        {"SELECT number::text FROM ChangeHead WHERE number <> (SELECT coalesce(max(number), 0) FROM "
         "ChangeTransactions)",
         Finding::Fault, "Конец журнала изменений не на месте (%1)."}};
    for (const CatalogTable& table : TableCatalog::loggedTables()) {
        const QByteArray key = table.rowKeyOf("T");
        const QByteArray row = PostgresSchema::rowOf(table, "T");
        const QByteArray logged =
            "(SELECT DISTINCT ON (rowKey) rowKey, newRow FROM ChangeLog WHERE tableName = '" + table.name +
            "' ORDER BY rowKey, entry DESC) AS L";
        looks.append({"SELECT '" + table.name + "', " + key + " FROM " + table.name + " AS T LEFT JOIN " +
                          logged + " ON L.rowKey = " + key + " WHERE L.newRow IS DISTINCT FROM " + row +
                          " AND " + withoutNulls("L.newRow") + " IS DISTINCT FROM " + withoutNulls(row),
                      Finding::Fault, ContentCheck::changedRow});
        looks.append({"SELECT '" + table.name + "', L.rowKey FROM " + logged +
                          " WHERE L.newRow IS NOT NULL AND NOT EXISTS (SELECT 1 FROM " + table.name +
                          " AS T WHERE " + key + " = L.rowKey)",
                      Finding::Fault, ContentCheck::lostRow});
    }
    return addAll(link, looks, findings, error);
}
