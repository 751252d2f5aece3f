#include "SqliteEvidence.h"

#include "EvidenceRows.h"
#include "SqliteConnection.h"

namespace
{
constexpr int deadlineMs = 15000;
} // namespace

SqliteEvidence::SqliteEvidence(std::unique_ptr<SqliteConnection> read, StoreError* error)
    : EvidenceLog(error), m_read(std::move(read))
{
}

SqliteEvidence::~SqliteEvidence() = default;

std::unique_ptr<EvidenceLog> SqliteEvidence::open(const QString& file, Access access, StoreError* error)
{
    const auto mode = access == Write ? SqliteConnection::ReadWrite : SqliteConnection::ReadOnly;
    auto connection = SqliteConnection::open(file, mode, deadlineMs, error);
    if (!connection || !connection->exec("BEGIN", error))
        return nullptr;
    return std::unique_ptr<EvidenceLog>(new SqliteEvidence(std::move(connection), error));
}

bool SqliteEvidence::end(qint64* number, QByteArray* epoch)
{
    SqliteStatement row = m_read->prepare("SELECT (SELECT coalesce(max(number), 0) FROM ChangeTransactions),"
                                          " (SELECT value FROM StoreProperties WHERE name = 'epoch')");
    if (!row.step()) {
        *m_error = m_read->lastError();
        return false;
    }
    *number = row.integer(0);
    *epoch = row.bytes(1);
    return true;
}

bool SqliteEvidence::read(qint64 from, qint64 to, const Take& take)
{
    SqliteStatement rows = m_read->prepare(EvidenceRows::select);
    rows.bind(1, from).bind(2, to);
    EvidenceRows::Collector collector(take);
    while (rows.step())
        if (!collector.add(rows))
            return true;
    if (rows.code() != SQLITE_DONE) {
        *m_error = m_read->lastError();
        return false;
    }
    collector.flush();
    return true;
}

bool SqliteEvidence::numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers)
{
    SqliteStatement rows = m_read->prepare("SELECT DISTINCT number FROM ChangeLog WHERE rowKey = ?1"
                                           " AND coalesce(?2, '') IN ('', tableName) ORDER BY number");
    rows.bind(1, key).bind(2, table);
    while (rows.step())
        numbers->append(rows.integer(0));
    if (rows.code() == SQLITE_DONE)
        return true;
    *m_error = m_read->lastError();
    return false;
}

bool SqliteEvidence::tile(int level, qint64 place, QByteArray* hashes)
{
    hashes->clear();
    if (const auto written = m_tiles.constFind({level, place}); written != m_tiles.cend()) {
        *hashes = *written;
        return true;
    }
    SqliteStatement row = m_read->cached("SELECT hashes FROM LogTiles WHERE level = ? AND place = ?");
    row.bind(1, qint64(level)).bind(2, place);
    if (row.step())
        *hashes = row.bytes(0);
    else if (row.code() != SQLITE_DONE) {
        *m_error = m_read->lastError();
        return false;
    }
    return true;
}

bool SqliteEvidence::writeTile(int level, qint64 place, const QByteArray& hashes)
{
    m_tiles.insert({level, place}, hashes);
    return true;
}

bool SqliteEvidence::heads(QMap<qint64, QByteArray>* notes)
{
    SqliteStatement rows = m_read->prepare("SELECT size, note FROM LogHeads");
    while (rows.step())
        notes->insert(rows.integer(0), rows.bytes(1));
    if (rows.code() == SQLITE_DONE)
        return true;
    *m_error = m_read->lastError();
    return false;
}

bool SqliteEvidence::writeHead(qint64 size, const QByteArray& note)
{
    m_heads.insert(size, note);
    return true;
}

bool SqliteEvidence::commit()
{
    if (!m_read->exec("COMMIT; BEGIN IMMEDIATE", m_error))
        return false;
    // Tiles only grow: another seal may have written a longer one meanwhile.
    SqliteStatement tile = m_read->prepare(
        "INSERT INTO LogTiles (level, place, hashes) VALUES (?, ?, ?) ON CONFLICT (level, place)"
        " DO UPDATE SET hashes = excluded.hashes WHERE length(excluded.hashes) > length(hashes)");
    SqliteStatement head = m_read->prepare("INSERT OR IGNORE INTO LogHeads (size, note) VALUES (?, ?)");
    bool isDone = true;
    for (auto it = m_tiles.cbegin(); isDone && it != m_tiles.cend(); ++it) {
        tile.bind(1, qint64(it.key().first)).bind(2, it.key().second).bindBlob(3, it.value());
        isDone = tile.run();
        tile.reset();
    }
    for (auto it = m_heads.cbegin(); isDone && it != m_heads.cend(); ++it) {
        head.bind(1, it.key()).bind(2, it.value());
        isDone = head.run();
        head.reset();
    }
    // As every transaction does, so that the write-ahead log names its file (SqliteWal).
    SqliteStatement mark = m_read->prepare("UPDATE LogMark SET former = present, present = randomblob(32)");
    if (isDone && mark.run())
        return m_read->exec("COMMIT", m_error);
    *m_error = m_read->lastError();
    return false;
}
