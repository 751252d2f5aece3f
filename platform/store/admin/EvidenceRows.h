#pragma once

#include "EvidenceLog.h"

/// Reads transactions from joined rows of both engines, whose rows have the same accessors.
namespace EvidenceRows
{
/// The transactions from $1 to $2 in order, one row for each of their rows, or one with a null table.
constexpr char select[] = "SELECT T.number, T.batchKey, T.login, T.loader, T.time, L.tableName, L.rowKey, "
                          "L.event, L.oldRow, L.newRow"
                          " FROM ChangeTransactions AS T LEFT JOIN ChangeLog AS L ON L.number = T.number"
                          " WHERE T.number BETWEEN $1 AND $2 ORDER BY T.number, L.entry";

/// Collects the rows of one transaction after another.
class Collector
{
public:
    explicit Collector(const EvidenceLog::Take& take) : m_take(take) {}

    /// False if nothing more is wanted.
    template <class Row>
    bool add(const Row& row)
    {
        if (const qint64 number = row.integer(0); number != m_current.number) {
            if (!flush())
                return false;
            m_current = {number, row.bytes(1), row.bytes(2), row.integer(3) != 0, row.real(4), {}};
        }
        if (!row.isNull(5))
            m_current.rows.append({row.bytes(5), row.bytes(6), row.integer(7), row.bytes(8), row.bytes(9)});
        return true;
    }
    /// Passes on the last transaction.
    bool flush()
    {
        const bool isWanted = m_current.number == 0 || m_take(m_current);
        m_current.number = 0;
        return isWanted;
    }

private:
    const EvidenceLog::Take& m_take;
    LoggedTransaction m_current;
};
} // namespace EvidenceRows
