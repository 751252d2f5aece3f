#include "EvidenceBench.h"
#include "Forger.h"
#include "HistoryMemory.h"
#include "LogAudit.h"
#include "SourceFile.h"
#include "SqliteCheck.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>

namespace
{
/// What attacks change in a store, to be put back before the next one.
class StoreCopy
{
public:
    explicit StoreCopy(const TestStore& store) : m_store(store)
    {
        if (TestStore::isSqlite()) {
            run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
            QFile file(m_store.path());
            if (!file.open(QIODevice::ReadOnly))
                qFatal("the store cannot be read");
            m_bytes = file.readAll();
            return;
        }
        QString sql = QStringLiteral("CREATE SCHEMA former;");
        for (const char* table : tables)
            sql += QStringLiteral("CREATE TABLE former.%1 AS TABLE %1;").arg(QLatin1String(table));
        run(sql);
    }
    void putBack() const
    {
        if (TestStore::isSqlite()) {
            for (const char* end : {"", "-wal", "-shm"})
                QFile::remove(m_store.path() + QLatin1String(end));
            QFile file(m_store.path());
            if (!file.open(QIODevice::WriteOnly) || file.write(m_bytes) != m_bytes.size())
                qFatal("the store cannot be put back");
            return;
        }
        QString sql = QStringLiteral("SET session_replication_role = replica;");
        for (const char* table : tables)
            sql += QStringLiteral("DELETE FROM %1; INSERT INTO %1 SELECT * FROM former.%1;")
                       .arg(QLatin1String(table));
        run(sql);
    }

private:
    static constexpr const char* tables[] = {"ChangeLog", "ChangeTransactions", "ChangeHead",    "LogTiles",
                                             "LogHeads",  "StoreFiles",         "LogbookRecords"};

    void run(const QString& sql) const
    {
        if (const QString failure = m_store.exec(sql); !failure.isEmpty())
            qFatal("%s", qPrintable(failure));
    }

    const TestStore& m_store;
    QByteArray m_bytes;
};
} // namespace

/// Seeded attacks by the owner of a store, and honest histories. VRK_LONG=1: 1,000 of each.
class EvidenceAttacks_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void everySeededAttackIsFound();
    void noHonestHistoryIsAccused();
    void everyFlippedBitIsFound();

private:
    static bool isLong() { return qEnvironmentVariableIsSet("VRK_LONG"); }
    QByteArray lastNote() const { return HeadBook(book()).notes().constLast(); }
    qint64 number(const char* sql) const { return m_store->value(QString::fromUtf8(sql)).toLongLong(); }
    void writeText(const QString& html) const { write(html.toUtf8().constData()); }
    void save(const QString& name, const QByteArray& bytes) const;
    /// Writes, seals, replaces the key, archives, copies or restores.
    void honestStep(const QString& copy);
    /// A shift of long ago, sealed and taken out of the journal.
    void archiveShift();
    /// The store of a former version in the place of this one, upgraded.
    void beginInFormerVersion();
    /// What an attack of this seed runs; it changes something among the first \a known transactions.
    QString attack(qint64 known);
    qint64 below(qint64 limit) { return m_random.bounded(int(limit)); }
    QString byteChange(qint64 known);
    QString gapChange(qint64 known);
    /// What the verification of the log finds that knows a head on paper.
    QVector<StoreAdmin::Finding> findings(const LogHead& head) const;
    /// What a workstation with this memory says when it is started.
    HistoryMemory::Report look(const QString& memory) const;
    /// Exit codes of the verifier for lists of arguments.
    static QVector<int> verifyMany(const QVector<QStringList>& runs);

    QRandomGenerator m_random;
};

void EvidenceAttacks_test::save(const QString& name, const QByteArray& bytes) const
{
    QFile file(m_admin->path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("a file cannot be written");
}

QVector<StoreAdmin::Finding> EvidenceAttacks_test::findings(const LogHead& head) const
{
    StoreError error;
    QVector<StoreAdmin::Finding> findings;
    const auto store = Store::open(m_store->url(), {}, &error);
    const auto log = store ? store->evidence(Store::Access::Read, &error) : nullptr;
    if (!log || !LogAudit::run(*log, {LogAudit::fromPaper(QString::fromLatin1(head.onPaper()))}, &findings))
        findings.append({StoreAdmin::Finding::Fault, error.text});
    return findings;
}

HistoryMemory::Report EvidenceAttacks_test::look(const QString& memory) const
{
    StoreError error;
    StoreError missing;
    QByteArray keys;
    HistoryMemory::Report report;
    const auto store = Store::open(m_admin->url, {}, &error);
    if (!store->file(QStringLiteral("evidence"), QStringLiteral("keys"), &keys, &missing))
        keys.clear();
    const auto log = store->evidence(Store::Access::Read, &error);
    if (!log || !HistoryMemory(m_admin->path(memory)).check(*log, keys, &report))
        report = {HistoryMemory::Altered, error.text, {}, {}, {}};
    return report;
}

QVector<int> EvidenceAttacks_test::verifyMany(const QVector<QStringList>& runs)
{
    QProcess python;
    python.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    python.start(QStringLiteral("python3"), {sourceFile("tests/evidence/verify_many.py")});
    for (const QStringList& arguments : runs)
        python.write(QJsonDocument(QJsonArray::fromStringList(arguments)).toJson(QJsonDocument::Compact) +
                     '\n');
    python.closeWriteChannel();
    python.waitForFinished(-1);
    QVector<int> codes;
    for (const QByteArray& line : python.readAllStandardOutput().split('\n'))
        if (!line.isEmpty())
            codes.append(line.toInt());
    return codes;
}

/// One letter of a text, or the lowest digit of a number, changed in the log.
QString EvidenceAttacks_test::byteChange(qint64 known)
{
    static const char* const texts[] = {"oldRow", "newRow", "tableName", "rowKey"};
    static const char* const heads[] = {"login = login || 'x'", "batchKey = batchKey || 'x'",
                                        "loader = 1 - loader", "time = time + 0.001"};
    const qint64 chosen = below(known) + 1;
    if (m_random.bounded(4) == 0)
        return QStringLiteral("UPDATE ChangeTransactions SET %1 WHERE number = %2")
            .arg(QLatin1String(heads[m_random.bounded(4)]))
            .arg(chosen);
    const QString column = QLatin1String(texts[m_random.bounded(4)]);
    const QVector<QVariantList> rows =
        m_store->rows(QStringLiteral("SELECT entry, %1 FROM ChangeLog WHERE number <= %2 AND length(%1) > 0")
                          .arg(column)
                          .arg(known));
    const QVariantList row = rows[below(rows.size())];
    QString text = row[1].toString();
    const int place = int(below(text.size()));
    text[place] = text[place] == QLatin1Char('x') ? QLatin1Char('y') : QLatin1Char('x');
    return QStringLiteral("UPDATE ChangeLog SET %1 = '%2' WHERE entry = %3")
        .arg(column, text.replace(QLatin1Char('\''), QStringLiteral("''")), row[0].toString());
}

/// A transaction taken out, put in or moved; the numbers stay without a gap.
QString EvidenceAttacks_test::gapChange(qint64 known)
{
    const auto shifted = [](const QString& table, qint64 from, int by) {
        return QStringLiteral("UPDATE %1 SET number = -(number + %3) WHERE number >= %2;"
                              "UPDATE %1 SET number = -number WHERE number < 0;")
            .arg(table)
            .arg(from)
            .arg(by);
    };
    const QString log = QStringLiteral("ChangeLog");
    const QString transactions = QStringLiteral("ChangeTransactions");
    const qint64 chosen = below(known - 1) + 1;
    switch (m_random.bounded(3)) {
    case 0:
        return QStringLiteral("DELETE FROM ChangeLog WHERE number = %1; DELETE FROM ChangeTransactions WHERE "
                              "number = %1;")
                   .arg(chosen) +
               shifted(log, chosen + 1, -1) + shifted(transactions, chosen + 1, -1);
    case 1:
        return shifted(log, chosen, 1) + shifted(transactions, chosen, 1) +
               QStringLiteral(
                   "INSERT INTO ChangeTransactions (number, batchKey, login, loader, time, chain) SELECT "
                   "%1, 'inserted', login, loader, time, chain FROM ChangeTransactions WHERE number = %2;"
                   "INSERT INTO ChangeLog (number, tableName, rowKey, event, newRow)"
                   " VALUES (%1, 'Roles', 'X', 601, '[\"X\"]')")
                   .arg(chosen)
                   .arg(chosen + 1);
    default:
        return QStringLiteral(
                   "UPDATE %1 SET number = -number WHERE number IN (%2, %3);"
                   "UPDATE %1 SET number = CASE number WHEN -%2 THEN %3 ELSE %2 END WHERE number < 0;")
                   .arg(log)
                   .arg(chosen)
                   .arg(chosen + 1) +
               QStringLiteral(
                   "UPDATE %1 SET number = -number WHERE number IN (%2, %3);"
                   "UPDATE %1 SET number = CASE number WHEN -%2 THEN %3 ELSE %2 END WHERE number < 0;")
                   .arg(transactions)
                   .arg(chosen)
                   .arg(chosen + 1);
    }
}

QString EvidenceAttacks_test::attack(qint64 known)
{
    switch (m_random.bounded(6)) {
    case 0:
        return gapChange(known);
    case 1: // the tail cut, or an older copy put back
        return QStringLiteral("DELETE FROM ChangeLog WHERE number > %1; DELETE FROM ChangeTransactions WHERE "
                              "number > %1")
            .arg(below(known));
    case 2: // rows of a transaction in another order
    {
        const QVariantList entries =
            m_store
                ->rows(QStringLiteral(
                           "SELECT min(entry), max(entry) FROM ChangeLog WHERE number <= %1 GROUP BY number"
                           " HAVING count(*) > 1 ORDER BY min(entry)")
                           .arg(known))
                .value(0);
        return QStringLiteral(
                   "UPDATE ChangeLog SET entry = -entry WHERE entry IN (%1, %2);"
                   "UPDATE ChangeLog SET entry = CASE entry WHEN -%1 THEN %2 ELSE %1 END WHERE entry < 0")
            .arg(entries[0].toString(), entries[1].toString());
    }
    default:
        return byteChange(known);
    }
}

void EvidenceAttacks_test::everySeededAttackIsFound()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    for (int i = 0; i < 3; ++i)
        writeText(QStringLiteral("вариант %1").arg(i));
    QCOMPARE(seal(), 0);
    const LogHead older = SignedNote(lastNote()).head();
    save(QStringLiteral("older"), lastNote());
    look(QStringLiteral("seen"));
    const QByteArray seen = m_admin->bytes(QStringLiteral("seen"));
    QVERIFY(!seen.isEmpty());
    for (int i = 3; i < 6; ++i)
        writeText(QStringLiteral("вариант %1").arg(i));
    QCOMPARE(seal(), 0);
    const StoreCopy copy(*m_store);

    const int attacks = isLong() ? 1000 : 40;
    QVector<QStringList> runs;
    QVector<int> seeds;
    for (int seed = 1; seed <= attacks; ++seed) {
        m_random.seed(quint32(seed));
        copy.putBack();
        QVERIFY2(findings(older).isEmpty(), "the true log");
        save(QStringLiteral("off"), seen);
        QVERIFY2(!look(QStringLiteral("off")).isAlarm(), "the true log");
        save(QStringLiteral("off"), seen);
        const QString sql = attack(older.size);
        const bool isFork = m_random.bounded(4) == 0;
        const int power = int(m_random.bounded(4)); // of the attacker, see below
        Forger(*m_store).forge(sql, power > 0);
        if (isFork)
            for (qint64 end = number("SELECT max(number) FROM ChangeTransactions"); end <= older.size + 3;
                 ++end)
                writeText(QStringLiteral("другая история %1").arg(end));
        if (power > 1)
            QCOMPARE(m_store->exec(QStringLiteral("DELETE FROM LogHeads")), QString());
        if (power > 2) {
            Forger(*m_store).forge(QStringLiteral("DELETE FROM ChangeLog WHERE tableName = 'StoreFiles';"
                                                  "DELETE FROM StoreFiles; DELETE FROM LogTiles"),
                                   true);
            QFile::remove(m_admin->path(QStringLiteral("own.key")));
            QFile::remove(m_admin->path(QStringLiteral("own.key.heads")));
            m_admin->call("seal", {QStringLiteral("--init"), QStringLiteral("--key"),
                                   m_admin->path(QStringLiteral("own.key"))});
        }
        QVERIFY2(!findings(older).isEmpty(), qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(sql)));
        QVERIFY2(look(QStringLiteral("off")).isAlarm(),
                 qPrintable(QStringLiteral("seed %1, power %2: %3").arg(seed).arg(power).arg(sql)));
        const QString folder = m_admin->path(QStringLiteral("out%1").arg(seed));
        if (m_admin->call("export-evidence", {folder}) == Command::Success) {
            runs.append({folder, QStringLiteral("--head"), m_admin->path(QStringLiteral("older"))});
            seeds.append(seed);
        }
    }
    QVERIFY(runs.size() > attacks / 3); // the others have no head to export with
    const QVector<int> codes = verifyMany(runs);
    QCOMPARE(codes.size(), runs.size());
    for (int i = 0; i < codes.size(); ++i)
        QVERIFY2(codes[i] == 1, qPrintable(QStringLiteral("seed %1: %2").arg(seeds[i]).arg(codes[i])));
}

void EvidenceAttacks_test::beginInFormerVersion()
{
    for (const char* end : {"", "-wal", "-shm"})
        QFile::remove(m_store->path() + QLatin1String(end));
    QProcess sqlite;
    sqlite.setStandardInputFile(
        sourceFile("tests/store/former") +
        QStringLiteral("/version-%1.sqlite.sql").arg(m_random.bounded(StoreAdmin::schemaVersion() - 1) + 1));
    sqlite.start(QStringLiteral("sqlite3"), {m_store->path()});
    QVERIFY(sqlite.waitForFinished(60000));
    QVERIFY2(m_admin->call("upgrade", {QStringLiteral("--no-backup")}) == 0, qPrintable(m_admin->err));
}

void EvidenceAttacks_test::archiveShift()
{
    const QByteArray key = QByteArray::number(m_random.generate64());
    const double start = 1600000000 + below(1000000);
    StoreError error;
    const auto loader = m_store->openLoader();
    std::vector<TestStore::Row> rows{
        {"Departments", ROW_INSERT, "OLD" + key, {{"name_", QString::fromLatin1(key)}}}};
    for (const int day : {0, 1}) {
        const QByteArray shift = day > 0 ? "LAST" + key : key;
        rows.push_back({"LogbookWorkshifts",
                        ROW_INSERT,
                        shift,
                        {{"DepartmentKey", "OLD" + key},
                         {"CloseWorkerKey", "WORKER_PETROV"},
                         {"startTime", start + day * 86400},
                         {"endTime", start + day * 86400 + 7200}}});
        rows.push_back({"LogbookRecords",
                        ROW_INSERT,
                        "RECORD" + shift,
                        {{"ShiftKey", shift}, {"html", "давно"}, {"status", 0}}});
    }
    if (!TestStore::write(loader.get(), rows, &error))
        qFatal("%s", qPrintable(error.text + error.detail));
    const QString folder = m_admin->path(QStringLiteral("kept") + QString::fromLatin1(key));
    if (seal() != 0 ||
        m_admin->call("archive", {folder, QStringLiteral("--before"), QStringLiteral("01.01.2023"),
                                  QStringLiteral("--write")}) != Command::Success ||
        m_store->value(QStringLiteral("SELECT count(*) FROM LogbookWorkshifts WHERE KeyLink = '%1'")
                           .arg(QString::fromLatin1(key))) != 0)
        qFatal("%s", qPrintable(m_admin->out + m_admin->err));
}

void EvidenceAttacks_test::honestStep(const QString& copy)
{
    switch (m_random.bounded(TestStore::isSqlite() ? 7 : 5)) {
    case 0:
        if (QFile::exists(key() + QStringLiteral(".former"))) {
            // The former key is removed when all have met a seal by both.
            seal();
            look(QStringLiteral("always"));
            look(QStringLiteral("seldom"));
            QFile::remove(key() + QStringLiteral(".former"));
        } else {
            seal({QStringLiteral("--rotate")});
        }
        break;
    case 1:
        seal();
        break;
    case 2:
        archiveShift();
        break;
    case 5:
        if (!QFile::exists(copy) && m_admin->call("backup", {copy}) != Command::Success)
            qFatal("%s", qPrintable(m_admin->err));
        break;
    case 6:
        if (QFile::exists(copy) && m_admin->call("restore", {copy}) != Command::Success)
            qFatal("%s", qPrintable(m_admin->err));
        break;
    default:
        writeText(QString::number(m_random.generate()));
    }
}

void EvidenceAttacks_test::noHonestHistoryIsAccused()
{
    const int histories = isLong() ? 1000 : 5;
    for (int seed = 1; seed <= histories; ++seed) {
        init();
        m_random.seed(quint32(seed));
        if (TestStore::isSqlite() && seed % 4 == 0)
            beginInFormerVersion();
        seal({QStringLiteral("--init")});
        const QString copy = m_admin->path(QStringLiteral("copy"));
        for (int step = 0; step < 12; ++step) {
            honestStep(copy);
            for (const bool isSeldomOn : {false, true}) {
                if (isSeldomOn && m_random.bounded(3) > 0)
                    continue;
                const auto report = look(isSeldomOn ? QStringLiteral("seldom") : QStringLiteral("always"));
                QVERIFY2(!report.isAlarm(), qPrintable(QString::number(seed) + report.text));
            }
        }
        QCOMPARE(seal(), 0);
        const auto code = m_admin->call("check", {QStringLiteral("--heads"), book()});
        QVERIFY2(code == Command::Success, qPrintable(QString::number(seed) + m_admin->out + m_admin->err));
        const QString folder = m_admin->path(QStringLiteral("out"));
        QCOMPARE(int(m_admin->call("export-evidence", {folder})), 0);
        QVector<QStringList> runs;
        for (const QByteArray& note : HeadBook(book()).notes()) {
            const QString name = QStringLiteral("head%1").arg(runs.size());
            save(name, note);
            runs.append({folder, QStringLiteral("--head"), m_admin->path(name)});
        }
        const QVector<int> codes = verifyMany(runs);
        QVERIFY2(codes == QVector<int>(runs.size(), 0), qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

/// What the tables of a SQLite store contain, as hashes by name; none if the engine cannot read all of it.
static QMap<QByteArray, QByteArray> contentOf(const QString& path)
{
    QMap<QByteArray, QByteArray> content;
    StoreError error;
    const auto link = SqliteConnection::open(path, SqliteConnection::ReadOnly, 5000, &error);
    if (!link)
        return content;
    // The index of the search is made from the records; the engine keeps it in tables of its own.
    SqliteStatement names = link->prepare("SELECT name FROM sqlite_schema WHERE type = 'table'"
                                          " AND name NOT LIKE 'RecordWords%'");
    while (names.step())
        content.insert(names.bytes(0), QByteArray());
    if (names.code() != SQLITE_DONE)
        return {};
    for (auto table = content.begin(); table != content.end(); ++table) {
        QCryptographicHash hash(QCryptographicHash::Md5);
        SqliteStatement rows = link->prepare("SELECT * FROM \"" + table.key() + "\" NOT INDEXED");
        while (rows.step())
            for (int i = 0; i < sqlite3_column_count(rows.handle()); ++i) {
                hash.addData(rows.bytes(i));
                hash.addData(rows.isNull(i) ? "n" : "v", 1);
            }
        if (rows.code() != SQLITE_DONE)
            return {};
        *table = hash.result();
    }
    return content;
}

void EvidenceAttacks_test::everyFlippedBitIsFound()
{
    if (!TestStore::isSqlite())
        QSKIP("The bytes of a SQLite file.");
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    for (int i = 0; i < 300; ++i) // a second level of the tree
        writeText(QStringLiteral("вариант %1").arg(i));
    QCOMPARE(seal(), 0);
    const StoreCopy copy(*m_store);
    const QMap<QByteArray, QByteArray> content = contentOf(m_store->path());
    QVERIFY(!content.isEmpty());

    const int bits = isLong() ? 1000 : 20;
    int changed = 0;
    int foundByTheEngine = 0;
    QByteArray missed;
    m_random.seed(1);
    while (changed < bits) {
        copy.putBack();
        QFile file(m_store->path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qint64 place = below(file.size());
        file.seek(place);
        char byte = 0;
        QVERIFY(file.getChar(&byte));
        file.seek(place);
        file.putChar(char(byte ^ (1 << m_random.bounded(8))));
        file.close();
        const QMap<QByteArray, QByteArray> present = contentOf(m_store->path());
        if (present == content)
            continue; // free room, or an index
        ++changed;
        const auto code = m_admin->call("check");
        QByteArrayList tables;
        for (auto table = content.cbegin(); table != content.cend(); ++table)
            if (present.value(table.key()) != *table)
                tables.append(table.key());
        if (code == Command::Success)
            missed += tables.join(' ') + '\n';
        StoreError error;
        QVector<StoreAdmin::Finding> findings;
        const auto link = SqliteConnection::open(m_store->path(), SqliteConnection::ReadOnly, 5000, &error);
        foundByTheEngine += !link || !SqliteCheck::engine(*link, &findings, &error) || !findings.isEmpty();
    }
    QCOMPARE(missed, QByteArray());
    qInfo("%d bits of content, %d of them found by the engine", changed, foundByTheEngine);
}

QTEST_GUILESS_MAIN(EvidenceAttacks_test)
#include "EvidenceAttacks_test.moc"
