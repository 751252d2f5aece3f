#pragma once

#include "ChangeRow.h"
#include "EvidenceLog.h"
#include "TableCatalog.h"

/// Reads transactions from joined rows of both engines, whose rows have the same accessors. SQLite numbers the values
/// in the order in which a statement names them first.
namespace EvidenceRows
{
/// The transactions from $1 to $2 in order, one row for each of their rows, or one with a null table.
constexpr char select[] = "SELECT T.number, T.batchKey, T.login, T.loader, T.time, L.tableName, L.rowKey, "
                          "L.event, L.oldRow, L.newRow"
                          " FROM ChangeTransactions AS T LEFT JOIN ChangeLog AS L ON L.number = T.number"
                          " WHERE T.number BETWEEN $1 AND $2 ORDER BY T.number, L.entry";

/// The rows with the keys in the JSON array $1 until transaction $2; %keys is the engine's table of the array.
constexpr char ofKeys[] = "SELECT T.number, T.batchKey, T.login, T.loader, T.time, L.tableName, L.rowKey,"
                          " L.event, L.oldRow, L.newRow FROM %keys AS K CROSS JOIN ChangeLog AS L"
                          " JOIN ChangeTransactions AS T ON T.number = L.number"
                          " WHERE L.rowKey = K.value AND L.number <= $2 ORDER BY L.number, L.entry";
/// The rows of the tables in the JSON array $1 that were removed after transaction $2 and until $3.
constexpr char removed[] =
    "SELECT tableName, rowKey, event, oldRow FROM ChangeLog WHERE tableName IN"
    " (SELECT K.value FROM %keys AS K) AND number > $2 AND number <= $3 AND event = 603";
/// The transactions whose batch keys are from $1 to $2, this one not included.
constexpr char batches[] =
    "SELECT number, batchKey FROM ChangeTransactions WHERE batchKey >= $1 AND batchKey < $2";
constexpr char timeOf[] = "SELECT time FROM ChangeTransactions WHERE number = $1";

/// The texts as a JSON array.
inline QByteArray list(const QByteArrayList& texts)
{
    QByteArray json("[");
    for (const QByteArray& text : texts)
        json += (json.size() > 1 ? "," : "") + ChangeRow::quoted(text);
    return json + ']';
}

/// The first text after all that begin so, in the order of bytes; the text ends with a character below U+007F.
inline QByteArray after(QByteArray beginning)
{
    ++*(beginning.end() - 1);
    return beginning;
}

/// The keys of a table whose field is one of the values in $1; with an empty field, of all rows.
inline QByteArray keysOf(const CatalogTable& table, const QByteArray& field, const QByteArray& keyTable)
{
    const QByteArray all = "SELECT " + table.rowKeyOf("R") + " FROM " + table.name + " AS R";
    return field.isEmpty() ? all + " WHERE $1 <> ''"
                           : all + " WHERE R." + field + " IN (SELECT K.value FROM " + keyTable + " AS K)";
}

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
