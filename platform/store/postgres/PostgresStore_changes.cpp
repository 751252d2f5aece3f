#include "ChainFollower.h"
#include "PostgresStore.h"
#include "StoreErrors.h"

namespace
{
constexpr int slowPollMs = 2000; // in addition to notifications, which may get lost

/// Takes the head of a transaction as changesAfter() selects it.
void begin(ChainFollower* chain, qint64 number, const QByteArray& head)
{
    QByteArray
        words[4]; // the chain hash, whether it was a load, the time, the length of the key of the batch
    int place = 0;
    for (QByteArray& word : words) {
        const int end = head.indexOf(' ', place);
        word = head.mid(place, end - place);
        place = end + 1;
    }
    const int length = words[3].toInt();
    chain->begin(
        {number, head.mid(place, length), head.mid(place + length), words[1] != "0", words[2].toDouble()},
        QByteArray::fromHex(words[0]));
}
} // namespace

bool PostgresStore::position(ChangePosition* position, StoreError* error)
{
    if (!readyAside(error))
        return false;
    const PgResult head = m_link.prepared(
        "SELECT epoch, number, (SELECT chain FROM ChangeTransactions AS T WHERE T.number = ChangeEnd.number)"
        " FROM ChangeEnd",
        {}, error);
    if (!head)
        return false;
    *position = {head.bytes(0, 0), head.integer(0, 1), head.bytes(0, 2), {}};
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
    // statistics exist. The heads of the transactions are one value each: a join costs more time of planning.
    const PgResult rows = m_link.prepared(
        "WITH ends AS MATERIALIZED (SELECT epoch, number AS head, "
        "(SELECT number FROM ChangeLog WHERE number > $1 ORDER BY number, entry OFFSET $2 LIMIT 1) AS last, "
        "number <= $1 OR EXISTS (SELECT 1 FROM ChangeTransactions AS T WHERE T.number = $1 + 1) AS reaches "
        "FROM ChangeEnd LIMIT 1) "
        "SELECT ends.epoch, ends.head, ends.last, L.number, L.event, L.tableName, L.rowKey, L.oldRow, "
        "L.newRow, ends.reaches, (SELECT encode(T.chain, 'hex') || ' ' || T.loader || ' ' || T.time::bigint "
        "|| ' ' || octet_length(T.batchKey) || ' ' || T.batchKey || T.login "
        "FROM ChangeTransactions AS T WHERE T.number = L.number) "
        "FROM ends LEFT JOIN ChangeLog AS L ON L.number > $1 AND L.number <= coalesce(ends.last, ends.head) "
        "ORDER BY L.number, L.entry",
        PgValues().number(position->number).number(qint64(limit - 1)), error);
    if (!rows)
        return false;
    const qint64 end = rows.integer(0, 1);
    if (rows.bytes(0, 0) != position->epoch || end < position->number) {
        *error = StoreErrors::otherHistory(m_link.place());
        return false;
    }
    if (rows.integer(0, 9) == 0) {
        *error = StoreErrors::shorterLog(m_link.place());
        return false;
    }
    ChainFollower chain(position);
    qint64 current = position->number;
    for (int i = 0; i < rows.rows() && !rows.isNull(i, 3); ++i) {
        const qint64 number = rows.integer(i, 3);
        if (number != current) {
            current = number;
            begin(&chain, number, rows.bytes(i, 10));
        }
        const QByteArray table = rows.bytes(i, 5);
        const QByteArray key = rows.bytes(i, 6);
        const QByteArray oldRow = rows.bytes(i, 7);
        const QByteArray newRow = rows.bytes(i, 8);
        chain.add(table, key, rows.integer(i, 4), oldRow, newRow);
        m_packer->append(number, rows.integer(i, 4), table, key, oldRow, newRow, changes);
    }
    chain.end();
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
