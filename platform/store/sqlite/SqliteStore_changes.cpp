#include "SqliteStore.h"
#include "StoreErrors.h"

bool SqliteStore::position(ChangePosition* position, StoreError* error)
{
    if (!ready(error))
        return false;
    SqliteStatement row = m_read->cached("SELECT (SELECT value FROM StoreProperties WHERE name = 'epoch'),"
                                         " (SELECT coalesce(max(number), 0) FROM ChangeTransactions)");
    if (!row.step())
        return fail(*m_read, error);
    *position = {row.bytes(0), row.integer(1)};
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
        m_read->cached("SELECT number, event, tableName, rowKey, oldRow, newRow FROM ChangeLog"
                       " WHERE number > ? AND number <= ? ORDER BY number, entry");
    rows.bind(1, position->number).bind(2, end.number);
    int taken = 0;
    qint64 current = position->number;
    while (rows.step()) {
        const qint64 number = rows.integer(0);
        if (number != current && taken >= limit) {
            position->number = current;
            return true;
        }
        current = number;
        if (m_packer->append(number, rows.integer(1), rows.bytes(2), rows.bytes(3), rows.bytes(4),
                             rows.bytes(5), changes))
            ++taken;
    }
    if (rows.code() != SQLITE_DONE)
        return fail(*m_read, error);
    position->number = end.number;
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
