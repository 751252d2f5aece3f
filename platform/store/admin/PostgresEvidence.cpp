#include "PostgresEvidence.h"

#include "EvidenceRows.h"
#include "PgConnection.h"
#include "PostgresSchema.h"

namespace
{
constexpr int deadlineMs = 6 * 3600 * 1000; ///< the first tree of a large store
constexpr qint64 transactionsAtOnce = 2000; ///< of one answer, which is kept in memory
} // namespace

PostgresEvidence::PostgresEvidence(std::unique_ptr<PgConnection> link, StoreError* error)
    : EvidenceLog(error), m_link(std::move(link))
{
}

PostgresEvidence::~PostgresEvidence() = default;

std::unique_ptr<EvidenceLog> PostgresEvidence::open(const QString& url, Access access, StoreError* error)
{
    auto link = std::make_unique<PgConnection>(url, deadlineMs);
    const QByteArray mode = access == Write ? "READ WRITE" : "READ ONLY";
    if (!link->connect(link->connectMs(), error) || !PostgresSchema::isOurs(*link, error) ||
        !link->exec("BEGIN ISOLATION LEVEL REPEATABLE READ " + mode + "; SET LOCAL statement_timeout = 0",
                    error))
        return nullptr;
    return std::unique_ptr<EvidenceLog>(new PostgresEvidence(std::move(link), error));
}

bool PostgresEvidence::end(qint64* number, QByteArray* epoch)
{
    const PgResult row = m_link->run("SELECT (SELECT coalesce(max(number), 0) FROM ChangeTransactions),"
                                     " (SELECT value FROM StoreProperties WHERE name = 'epoch')",
                                     m_error);
    if (!row)
        return false;
    *number = row.integer(0, 0);
    *epoch = row.bytes(0, 1);
    return true;
}

bool PostgresEvidence::read(qint64 from, qint64 to, const Take& take)
{
    EvidenceRows::Collector collector(take);
    for (qint64 first = from; first <= to; first += transactionsAtOnce) {
        const PgResult rows = m_link->prepared(
            EvidenceRows::select, PgValues().number(first).number(qMin(to, first + transactionsAtOnce - 1)),
            m_error);
        if (!rows)
            return false;
        for (int i = 0; i < rows.rows(); ++i)
            if (!collector.add(PgRow(rows, i)))
                return true;
    }
    collector.flush();
    return true;
}

bool PostgresEvidence::numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers)
{
    const PgResult rows = m_link->run("SELECT DISTINCT number FROM ChangeLog WHERE rowKey = $1"
                                      " AND coalesce($2, '') IN ('', tableName) ORDER BY number",
                                      PgValues().text(key).text(table), m_error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        numbers->append(rows.integer(i, 0));
    return bool(rows);
}

bool PostgresEvidence::tile(int level, qint64 place, QByteArray* hashes)
{
    const PgResult row = m_link->prepared("SELECT hashes FROM LogTiles WHERE level = $1 AND place = $2",
                                          PgValues().number(qint32(level)).number(place), m_error);
    *hashes = row && row.rows() > 0 ? row.bytes(0, 0) : QByteArray();
    return bool(row);
}

bool PostgresEvidence::writeTile(int level, qint64 place, const QByteArray& hashes)
{
    return bool(m_link->prepared(
        "INSERT INTO LogTiles AS T (level, place, hashes) VALUES ($1, $2, $3) ON CONFLICT (level, place)"
        " DO UPDATE SET hashes = excluded.hashes WHERE length(excluded.hashes) > length(T.hashes)",
        PgValues().number(qint32(level)).number(place).blob(hashes), m_error));
}

bool PostgresEvidence::heads(QMap<qint64, QByteArray>* notes)
{
    const PgResult rows = m_link->run("SELECT size, note FROM LogHeads", m_error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        notes->insert(rows.integer(i, 0), rows.bytes(i, 1));
    return bool(rows);
}

bool PostgresEvidence::writeHead(qint64 size, const QByteArray& note)
{
    return bool(m_link->run("INSERT INTO LogHeads (size, note) VALUES ($1, $2) ON CONFLICT (size) DO NOTHING",
                            PgValues().number(size).text(note), m_error));
}

bool PostgresEvidence::commit()
{
    return m_link->exec("COMMIT", m_error);
}
