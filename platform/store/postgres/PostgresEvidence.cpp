#include "PostgresEvidence.h"

#include "EvidenceRows.h"
#include "PgConnection.h"
#include "PostgresSchema.h"

namespace
{
constexpr int deadlineOfWritesMs = 6 * 3600 * 1000; ///< the first tree of a large store
constexpr qint64 transactionsAtOnce = 2000;         ///< of one answer, which is kept in memory
constexpr char keyTable[] = "(SELECT value COLLATE \"C\" FROM json_array_elements_text($1::json) AS value)";
} // namespace

PostgresEvidence::PostgresEvidence(std::unique_ptr<PgConnection> link, StoreError* error)
    : EvidenceLog(error), m_link(std::move(link))
{
}

PostgresEvidence::~PostgresEvidence() = default;

std::unique_ptr<EvidenceLog> PostgresEvidence::open(const PgConnection& like, Store::Access access,
                                                    int deadlineMs, StoreError* error)
{
    const bool isWriting = access == Store::Access::Write;
    auto link = like.another(isWriting ? deadlineOfWritesMs : deadlineMs);
    if (!link->connect(like.connectMs(), error) || !PostgresSchema::isOurs(*link, error) ||
        !link->exec(isWriting ? "BEGIN ISOLATION LEVEL REPEATABLE READ; SET LOCAL statement_timeout = 0"
                              : "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY",
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

bool PostgresEvidence::rowsOf(const QByteArrayList& keys, qint64 to, const Take& take)
{
    const PgResult rows = m_link->prepared(QByteArray(EvidenceRows::ofKeys).replace("%keys", keyTable),
                                           PgValues().text(EvidenceRows::list(keys)).number(to), m_error);
    EvidenceRows::Collector collector(take);
    for (int i = 0; rows && i < rows.rows(); ++i)
        if (!collector.add(PgRow(rows, i)))
            return true;
    collector.flush();
    return bool(rows);
}

bool PostgresEvidence::removed(const QByteArrayList& tables, qint64 since, qint64 to,
                               QVector<LoggedRow>* rows)
{
    const PgResult found =
        m_link->run(QByteArray(EvidenceRows::removed).replace("%keys", keyTable),
                    PgValues().text(EvidenceRows::list(tables)).number(since).number(to), m_error);
    for (int i = 0; found && i < found.rows(); ++i)
        rows->append(
            {found.bytes(i, 0), found.bytes(i, 1), found.integer(i, 2), found.bytes(i, 3), QByteArray()});
    return bool(found);
}

bool PostgresEvidence::batches(const QByteArray& beginning, QMap<qint64, QByteArray>* keys)
{
    const PgResult rows = m_link->run(
        EvidenceRows::batches, PgValues().text(beginning).text(EvidenceRows::after(beginning)), m_error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        keys->insert(rows.integer(i, 0), rows.bytes(i, 1));
    return bool(rows);
}

bool PostgresEvidence::keysOf(const QByteArray& table, const QByteArray& field, const QByteArrayList& values,
                              QSet<QByteArray>* keys)
{
    const PgResult rows = m_link->run(EvidenceRows::keysOf(*TableCatalog::table(table), field, keyTable),
                                      PgValues().text(EvidenceRows::list(values)), m_error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        keys->insert(rows.bytes(i, 0));
    return bool(rows);
}

bool PostgresEvidence::timeOf(qint64 number, double* time)
{
    const PgResult row = m_link->prepared(EvidenceRows::timeOf, PgValues().number(number), m_error);
    *time = row && row.rows() > 0 ? PgRow(row, 0).real(0) : 0;
    return bool(row);
}

bool PostgresEvidence::chainOf(qint64 number, QByteArray* chain)
{
    const PgResult row = m_link->run("SELECT chain FROM ChangeTransactions WHERE number = $1",
                                     PgValues().number(number), m_error);
    *chain = row && row.rows() > 0 ? row.bytes(0, 0) : QByteArray();
    return bool(row);
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

bool PostgresEvidence::headsFrom(qint64 size, QMap<qint64, QByteArray>* notes)
{
    const PgResult rows =
        m_link->run("SELECT size, note FROM LogHeads WHERE size >= $1", PgValues().number(size), m_error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        notes->insert(rows.integer(i, 0), rows.bytes(i, 1));
    return bool(rows);
}

bool PostgresEvidence::newestHead(QByteArray* note)
{
    const PgResult row = m_link->run("SELECT note FROM LogHeads ORDER BY size DESC LIMIT 1", {}, m_error);
    *note = row && row.rows() > 0 ? row.bytes(0, 0) : QByteArray();
    return bool(row);
}

bool PostgresEvidence::writeHead(qint64 size, const QByteArray& note)
{
    return bool(m_link->run("INSERT INTO LogHeads (size, note) VALUES ($1, $2) ON CONFLICT (size)"
                            " DO UPDATE SET note = excluded.note",
                            PgValues().number(size).text(note), m_error));
}

bool PostgresEvidence::stamps(QMap<qint64, QByteArray>* responses)
{
    const PgResult rows = m_link->run("SELECT size, response FROM LogStamps", m_error);
    for (int i = 0; rows && i < rows.rows(); ++i)
        responses->insert(rows.integer(i, 0), rows.bytes(i, 1));
    return bool(rows);
}

bool PostgresEvidence::writeStamp(qint64 size, const QByteArray& response)
{
    return bool(m_link->run("INSERT INTO LogStamps (size, response) VALUES ($1, $2) ON CONFLICT (size)"
                            " DO UPDATE SET response = excluded.response",
                            PgValues().number(size).blob(response), m_error));
}

bool PostgresEvidence::commit()
{
    return m_link->exec("COMMIT", m_error);
}
