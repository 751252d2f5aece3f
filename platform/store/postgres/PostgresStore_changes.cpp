#include "PostgresStore.h"
#include "TableCatalog.h"

namespace
{
constexpr int slowPollMs = 2000; // in addition to notifications, which may get lost
} // namespace

bool PostgresStore::position(ChangePosition* position, StoreError* error)
{
    if (!readyAside(error))
        return false;
    const PgResult head = m_link.prepared("SELECT epoch, number FROM ChangeEnd", {}, error);
    if (!head)
        return false;
    *position = {head.bytes(0, 0), head.integer(0, 1)};
    return true;
}

bool PostgresStore::changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                                 StoreError* error)
{
    if (!readyAside(error))
        return false;
    m_sinceRead.start();
    // One statement sees one snapshot: the end of the log, and the rows up to it or up to the end of the
    // transaction that reaches the limit. The planner expects one row in the table of ends, also before its
    // statistics exist.
    const PgResult rows = m_link.prepared(
        "WITH ends AS MATERIALIZED (SELECT epoch, number AS head, "
        "(SELECT number FROM ChangeLog WHERE number > $1 ORDER BY number, entry OFFSET $2 LIMIT 1) AS last, "
        "number <= $1 OR EXISTS (SELECT 1 FROM ChangeTransactions AS T WHERE T.number = $1 + 1) AS reaches "
        "FROM ChangeEnd LIMIT 1) "
        "SELECT ends.epoch, ends.head, ends.last, L.number, L.event, L.tableName, L.rowKey, L.oldRow, "
        "L.newRow, ends.reaches "
        "FROM ends LEFT JOIN ChangeLog AS L ON L.number > $1 AND L.number <= coalesce(ends.last, ends.head) "
        "ORDER BY L.number, L.entry",
        PgValues().number(position->number).number(qint64(limit - 1)), error);
    if (!rows)
        return false;
    const qint64 end = rows.integer(0, 1);
    if (rows.bytes(0, 0) != position->epoch || end < position->number) {
        *error = {StoreError::NotAStore,
                  QString::fromUtf8("Хранилище «%1» заменено другим: данные нужно загрузить заново.")
                      .arg(m_link.place()),
                  QString()};
        return false;
    }
    if (rows.integer(0, 9) == 0) {
        *error = {
            StoreError::NotAStore,
            QString::fromUtf8("Журнал изменений хранилища «%1» начинается позже: данные нужно загрузить "
                              "заново.")
                .arg(m_link.place()),
            QString()};
        return false;
    }
    for (int i = 0; i < rows.rows() && !rows.isNull(i, 3); ++i) {
        const CatalogTable* table = TableCatalog::table(rows.bytes(i, 5));
        if (!table)
            continue; // no receiver knows a table of a newer schema
        StoreChange change;
        change.number = rows.integer(i, 3);
        change.event = static_cast<int>(rows.integer(i, 4));
        change.table = table->name;
        change.key = rows.bytes(i, 6);
        change.packedRecord = m_packer->pack(*table, rows.bytes(i, 7), rows.bytes(i, 8));
        changes->append(change);
    }
    position->number = rows.isNull(0, 2) ? end : rows.integer(0, 2);
    return true;
}

bool PostgresStore::hasNews()
{
    if (!m_link.takeNotifications(&m_hasNews))
        return true; // the reader will find the error
    const bool hasNews = m_hasNews || m_sinceRead.hasExpired(slowPollMs);
    m_hasNews = false;
    return hasNews;
}
