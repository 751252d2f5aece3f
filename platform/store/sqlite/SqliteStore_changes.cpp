#include "ChainFollower.h"
#include "SqliteStore.h"
#include "StoreErrors.h"

bool SqliteStore::position(ChangePosition* position, StoreError* error)
{
    if (!ready(error))
        return false;
    SqliteStatement row =
        m_read->cached("SELECT (SELECT value FROM StoreProperties WHERE name = 'epoch'),"
                       " (SELECT coalesce(max(number), 0) FROM ChangeTransactions),"
                       " (SELECT chain FROM ChangeTransactions ORDER BY number DESC LIMIT 1)");
    if (!row.step())
        return fail(*m_read, error);
    *position = {row.bytes(0), row.integer(1), row.bytes(2), {}};
    return true;
}

bool SqliteStore::changesAfter(ChangePosition* position, int limit, QVector<StoreChange>* changes,
                               StoreError* error)
{
    ChangePosition end;
    if (!this->position(&end, error))
        return false;
    if (end.epoch != position->epoch || end.number < position->number) {
        *error = StoreErrors::otherHistory(m_file);
        return false;
    }
    SqliteStatement next = m_read->cached("SELECT 1 FROM ChangeTransactions WHERE number = ?");
    next.bind(1, position->number + 1);
    if (end.number > position->number && !next.step()) {
        if (next.code() != SQLITE_DONE)
            return fail(*m_read, error);
        *error = StoreErrors::shorterLog(m_file);
        return false;
    }
    // Changes committed while we read are left for the next call: the transactions up to the end are
    // complete.
    SqliteStatement rows =
        m_read->cached("SELECT T.number, L.event, L.tableName, L.rowKey, L.oldRow, L.newRow, T.batchKey, "
                       "T.login, T.loader, T.time,"
                       " T.chain FROM ChangeTransactions AS T LEFT JOIN ChangeLog AS L ON L.number = T.number"
                       " WHERE T.number > ? AND T.number <= ? ORDER BY T.number, L.entry");
    rows.bind(1, position->number).bind(2, end.number);
    int taken = 0;
    qint64 current = position->number;
    ChangePosition reached = *position;
    ChainFollower chain(&reached);
    while (rows.step()) {
        const qint64 number = rows.integer(0);
        if (number != current) {
            if (taken >= limit)
                break;
            current = number;
            chain.begin({number, rows.bytes(6), rows.bytes(7), rows.integer(8) != 0, rows.real(9)},
                        rows.bytes(10));
        }
        if (rows.isNull(1))
            continue; // a transaction without rows
        const QByteArray table = rows.bytes(2);
        const QByteArray key = rows.bytes(3);
        const QByteArray oldRow = rows.bytes(4);
        const QByteArray newRow = rows.bytes(5);
        chain.add(table, key, rows.integer(1), oldRow, newRow);
        if (m_packer->append(number, rows.integer(1), table, key, oldRow, newRow, changes))
            ++taken;
    }
    if (rows.code() != SQLITE_DONE && rows.code() != SQLITE_ROW)
        return fail(*m_read, error);
    chain.end();
    *position = reached;
    return true;
}

bool SqliteStore::hasNews()
{
    if (!m_read || m_read->place() != SqliteConnection::InPlace)
        return true; // the reader will find the error
    SqliteStatement row = m_read->cached("PRAGMA data_version");
    const qint64 version = row.step() ? row.integer(0) : -1;
    if (version == m_dataVersion && version >= 0)
        return false;
    m_dataVersion = version;
    return true;
}
