#include "SqliteEvidence.h"

#include "EvidenceRows.h"
#include "SqliteConnection.h"

namespace
{
constexpr char keyTable[] = "json_each($1)";
} // namespace

SqliteEvidence::SqliteEvidence(std::unique_ptr<SqliteConnection> read, StoreError* error)
    : EvidenceLog(error), m_read(std::move(read))
{
}

SqliteEvidence::~SqliteEvidence() = default;

std::unique_ptr<EvidenceLog> SqliteEvidence::open(const QString& file, Store::Access access, int deadlineMs,
                                                  StoreError* error)
{
    const auto mode =
        access == Store::Access::Write ? SqliteConnection::ReadWrite : SqliteConnection::ReadOnly;
    auto connection = SqliteConnection::open(file, mode, deadlineMs, error);
    if (!connection || !connection->exec("BEGIN", error))
        return nullptr;
    return std::unique_ptr<EvidenceLog>(new SqliteEvidence(std::move(connection), error));
}

bool SqliteEvidence::fail() const
{
    *m_error = m_read->lastError();
    return false;
}

bool SqliteEvidence::end(qint64* number, QByteArray* epoch)
{
    SqliteStatement row = m_read->prepare("SELECT (SELECT coalesce(max(number), 0) FROM ChangeTransactions),"
                                          " (SELECT value FROM StoreProperties WHERE name = 'epoch')");
    if (!row.step())
        return fail();
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
    if (rows.code() != SQLITE_DONE)
        return fail();
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
    return rows.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::rowsOf(const QByteArrayList& keys, qint64 to, const Take& take)
{
    const QByteArray values = EvidenceRows::list(keys);
    SqliteStatement rows = m_read->prepare(QByteArray(EvidenceRows::ofKeys).replace("%keys", keyTable));
    rows.bind(1, values).bind(2, to);
    EvidenceRows::Collector collector(take);
    while (rows.step())
        if (!collector.add(rows))
            return true;
    if (rows.code() != SQLITE_DONE)
        return fail();
    collector.flush();
    return true;
}

bool SqliteEvidence::removed(const QByteArrayList& tables, qint64 since, qint64 to, QVector<LoggedRow>* rows)
{
    const QByteArray names = EvidenceRows::list(tables);
    SqliteStatement found = m_read->prepare(QByteArray(EvidenceRows::removed).replace("%keys", keyTable));
    found.bind(1, names).bind(2, since).bind(3, to);
    while (found.step())
        rows->append({found.bytes(0), found.bytes(1), found.integer(2), found.bytes(3), QByteArray()});
    return found.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::batches(const QByteArray& beginning, QMap<qint64, QByteArray>* keys)
{
    const QByteArray end = EvidenceRows::after(beginning);
    SqliteStatement rows = m_read->prepare(EvidenceRows::batches);
    rows.bind(1, beginning).bind(2, end);
    while (rows.step())
        keys->insert(rows.integer(0), rows.bytes(1));
    return rows.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::keysOf(const QByteArray& table, const QByteArray& field, const QByteArrayList& values,
                            QSet<QByteArray>* keys)
{
    const QByteArray all = EvidenceRows::list(values);
    SqliteStatement rows =
        m_read->prepare(EvidenceRows::keysOf(*TableCatalog::table(table), field, keyTable));
    rows.bind(1, all);
    while (rows.step())
        keys->insert(rows.bytes(0));
    return rows.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::timeOf(qint64 number, double* time)
{
    SqliteStatement row = m_read->cached(EvidenceRows::timeOf);
    row.bind(1, number);
    *time = row.step() ? row.real(0) : 0;
    return row.code() == SQLITE_ROW || row.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::chainOf(qint64 number, QByteArray* chain)
{
    SqliteStatement row = m_read->prepare("SELECT chain FROM ChangeTransactions WHERE number = ?");
    row.bind(1, number);
    *chain = row.step() ? row.bytes(0) : QByteArray();
    return row.code() == SQLITE_ROW || row.code() == SQLITE_DONE || fail();
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
    return row.code() == SQLITE_ROW || row.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::writeTile(int level, qint64 place, const QByteArray& hashes)
{
    m_tiles.insert({level, place}, hashes);
    return true;
}

bool SqliteEvidence::headsFrom(qint64 size, QMap<qint64, QByteArray>* notes)
{
    SqliteStatement rows = m_read->prepare("SELECT size, note FROM LogHeads WHERE size >= ?");
    rows.bind(1, size);
    while (rows.step())
        notes->insert(rows.integer(0), rows.bytes(1));
    return rows.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::newestHead(QByteArray* note)
{
    SqliteStatement row = m_read->prepare("SELECT note FROM LogHeads ORDER BY size DESC LIMIT 1");
    *note = row.step() ? row.bytes(0) : QByteArray();
    return row.code() == SQLITE_ROW || row.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::writeHead(qint64 size, const QByteArray& note)
{
    m_heads.insert(size, note);
    return true;
}

bool SqliteEvidence::stamps(QMap<qint64, QByteArray>* responses)
{
    SqliteStatement rows = m_read->prepare("SELECT size, response FROM LogStamps");
    while (rows.step())
        responses->insert(rows.integer(0), rows.bytes(1));
    return rows.code() == SQLITE_DONE || fail();
}

bool SqliteEvidence::writeStamp(qint64 size, const QByteArray& response)
{
    m_stamps.insert(size, response);
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
    SqliteStatement head = m_read->prepare("INSERT OR REPLACE INTO LogHeads (size, note) VALUES (?, ?)");
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
    SqliteStatement stamp =
        m_read->prepare("INSERT OR REPLACE INTO LogStamps (size, response) VALUES (?, ?)");
    for (auto it = m_stamps.cbegin(); isDone && it != m_stamps.cend(); ++it) {
        stamp.bind(1, it.key()).bindBlob(2, it.value());
        isDone = stamp.run();
        stamp.reset();
    }
    // As every transaction does, so that the write-ahead log names its file (SqliteWal).
    SqliteStatement mark = m_read->prepare("UPDATE LogMark SET former = present, present = randomblob(32)");
    return isDone && mark.run() ? m_read->exec("COMMIT", m_error) : fail();
}
