#include "FaultVfs.h"
#include "GenGuid32.h"
#include "MDRValues.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <csignal>
#include <cstdio>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <sqlite3.h>

/// Failing disks, killed processes, concurrent processes.
class SqliteStore_faults_test : public QObject
{
    Q_OBJECT

    static bool isClean(const TestStore& files)
    {
        QVector<StoreAdmin::Finding> findings;
        StoreError error;
        if (!StoreAdmin::check(files.url(), &findings, &error)) {
            qWarning("%s", qPrintable(error.text));
            return false;
        }
        for (const StoreAdmin::Finding& finding : qAsConst(findings))
            qWarning("%s", qPrintable(finding.text));
        return findings.isEmpty();
    }
    static std::unique_ptr<QProcess> startWriter(const TestStore& files, const QString& name, int rows)
    {
        auto writer = std::make_unique<QProcess>();
        writer->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        writer->start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--writer"), files.url(), name, QString::number(rows)});
        return writer;
    }

private slots:
    void initTestCase() { FaultVfs::install(); }

    void writeThatFailsAnywhereIsWholeOrAbsent_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<int>("engineCode");
        QTest::addColumn<bool>("lasting");
        QTest::addColumn<int>("storeCode");
        QTest::newRow("disk full for a moment")
            << int(FaultVfs::Write) << SQLITE_FULL << false << int(StoreError::Full);
        QTest::newRow("disk full") << int(FaultVfs::Write) << SQLITE_FULL << true << int(StoreError::Full);
        QTest::newRow("write error") << int(FaultVfs::Write) << SQLITE_IOERR_WRITE << false
                                     << int(StoreError::Lost);
        QTest::newRow("sync error") << int(FaultVfs::Sync) << SQLITE_IOERR_FSYNC << false
                                    << int(StoreError::Lost);
        QTest::newRow("read error") << int(FaultVfs::Read) << SQLITE_IOERR_READ << false
                                    << int(StoreError::Lost);
    }
    void writeThatFailsAnywhereIsWholeOrAbsent()
    {
        QFETCH(int, operation);
        QFETCH(int, engineCode);
        QFETCH(bool, lasting);
        QFETCH(int, storeCode);
        const QVector<MDRFieldDescr> fields = TableCatalog::table("LogbookComments")->descriptors();
        CRowBatch batch(fields.constData(), fields.size());
        const QByteArray longText(6000, 'x');
        for (const char* key : {"C1", "C2"}) {
            MDRData* row = batch.newRow(ROW_INSERT, key);
            batch.SetValF(row, "RecordKey", MDRValue::text("REC_ZAR"));
            batch.SetValF(row, "text_", MDRValue::text(longText));
            batch.RecPost(row);
        }
        int failures = 0;
        for (int n = 1; n < 500; ++n) {
            const TestStore files;
            const QByteArray batchKey = GenGuid32();
            StoreError error;
            bool done = false;
            {
                const auto store = files.openLoader();
                FaultVfs::arm(static_cast<FaultVfs::Operation>(operation), n, engineCode, lasting);
                done = store->apply({{"LogbookComments", batch.array}}, batchKey, &error);
                const bool hit = FaultVfs::disarm();
                if (!hit) {
                    QVERIFY(done);
                    QVERIFY(failures > 0);
                    return; // there is no place left where it could fail
                }
                ++failures;
                if (!done)
                    QCOMPARE(int(error.code), storeCode);
                // Sent again under the same key it is written once, even if the first call succeeded.
                QVERIFY2(store->apply({{"LogbookComments", batch.array}}, batchKey, &error),
                         qPrintable(error.text + error.detail));
            }
            QCOMPARE(files
                         .value(QStringLiteral(
                             "SELECT count(*) FROM LogbookComments WHERE KeyLink IN ('C1', 'C2')"))
                         .toInt(),
                     2);
            QVERIFY(isClean(files));
        }
        QFAIL("the fault never ceased to strike");
    }

    void everyWriteIsOnTheDiskBeforeItIsAcknowledged()
    {
        const TestStore files;
        const auto store = files.openLoader();
        for (int i = 0; i < 3; ++i)
            QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, QByteArray::number(i)));
        // Not only the first write, which starts the engine's log, but each.
        for (int i = 3; i < 6; ++i) {
            FaultVfs::arm(FaultVfs::Sync, 1, SQLITE_IOERR_FSYNC);
            const bool done = TestStore::write(store.get(), "Roles", ROW_INSERT, QByteArray::number(i));
            QVERIFY(FaultVfs::disarm());
            QVERIFY(!done);
            QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, "AFTER" + QByteArray::number(i)));
        }
    }

    void fullDiskSaysSo()
    {
        const TestStore files;
        const auto store = files.openLoader();
        FaultVfs::arm(FaultVfs::Write, 1, SQLITE_FULL, true);
        StoreError error;
        QVERIFY(!TestStore::write(store.get(), "Roles", ROW_INSERT, "A", {}, &error));
        QVERIFY(FaultVfs::disarm());
        QCOMPARE(error.code, StoreError::Full);
        QCOMPARE(error.text,
                 QString::fromUtf8("На диске с файлом хранилища «%1» закончилось место.").arg(files.path()));
    }

    void aFailedSelectReturnsNoPartialAnswer()
    {
        for (int n = 1; n < 200; ++n) {
            const TestStore files;
            const auto store = files.open(QStringLiteral("ivanov"));
            StoreError error;
            FaultVfs::arm(FaultVfs::Read, n, SQLITE_IOERR_READ);
            CMDArray answer;
            answer = store->select("SELECT * FROM LogbookRecords ORDER BY html", &error);
            const bool hit = FaultVfs::disarm();
            if (answer.array)
                QCOMPARE(answer.RecCount(), 11);
            else
                QCOMPARE(error.code, StoreError::Lost);
            if (!hit)
                return;
            answer = store->select("SELECT * FROM LogbookRecords", &error);
            QCOMPARE(answer.RecCount(), 11);
        }
        QFAIL("the fault never ceased to strike");
    }

    void backupThatFailsAnywhereLeavesNothing()
    {
        const TestStore files;
        const QString copy = files.path() + QStringLiteral(".copy");
        int failures = 0;
        for (int n = 1; n < 3000; n += 1 + n / 4) {
            FaultVfs::arm(FaultVfs::Write, n, SQLITE_FULL, true);
            StoreError error;
            const bool done = StoreAdmin::backup(files.url(), copy, &error);
            const bool hit = FaultVfs::disarm();
            QCOMPARE(QFile::exists(copy), done);
            QVERIFY(!QFile::exists(copy + QStringLiteral(".part")));
            if (!hit) {
                QVERIFY(done && failures > 0);
                return;
            }
            QVERIFY(!done);
            QCOMPARE(error.code, StoreError::Full);
            ++failures;
        }
        QFAIL("the fault never ceased to strike");
    }

    void initThatFailsLeavesNothing()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("new.vrk"));
        int failures = 0;
        for (int n = 1; n < 3000; n += 1 + n / 4) {
            FaultVfs::arm(FaultVfs::Write, n, SQLITE_FULL, true);
            StoreError error;
            const bool done =
                StoreAdmin::init(QStringLiteral("sqlite://") + file, "Windows-1251", "Europe/Moscow", &error);
            const bool hit = FaultVfs::disarm();
            QCOMPARE(QFile::exists(file), done);
            if (done) {
                // The cleanup when closing may also fail; the store is still intact.
                QVector<StoreAdmin::Finding> findings;
                QVERIFY(StoreAdmin::check(QStringLiteral("sqlite://") + file, &findings, &error));
                QVERIFY(findings.isEmpty());
                QVERIFY(QFile::remove(file));
            }
            if (!hit) {
                QVERIFY(done && failures > 0);
                return;
            }
            ++failures;
        }
        QFAIL("the fault never ceased to strike");
    }

    void killedWriterLosesNothingThatWasAcknowledged()
    {
        const int rounds = qEnvironmentVariableIsSet("VRK_LONG") ? 100 : 10;
        const TestStore files;
        QRandomGenerator random(static_cast<quint32>(QDateTime::currentMSecsSinceEpoch()));
        int acknowledged = 0;
        for (int round = 0; round < rounds; ++round) {
            const auto writer = startWriter(files, QString::number(round), 100000);
            QVERIFY(writer->waitForReadyRead(20000)); // it has started
            QTest::qWait(random.bounded(60));         // a random moment of death
            ::kill(static_cast<pid_t>(writer->processId()), SIGKILL);
            QVERIFY(writer->waitForFinished(20000));
            const QList<QByteArray> said = writer->readAllStandardOutput().split('\n');
            const int last = said.size() > 1 ? said[said.size() - 2].toInt() : -1; // the last complete line
            QVERIFY(last >= 0);
            acknowledged += last + 1;
            const int there =
                files
                    .value(
                        QStringLiteral("SELECT count(*) FROM Roles WHERE KeyLink LIKE 'W%1\\_%' ESCAPE '\\'")
                            .arg(round))
                    .toInt();
            QVERIFY2(there >= last + 1, qPrintable(QStringLiteral("%1 of %2").arg(there).arg(last + 1)));
            QVERIFY(there <= last + 2); // one more may have been committed and not reported
            QVERIFY(isClean(files));
        }
        QVERIFY(acknowledged >= rounds);
    }

    void writersSideBySideLoseNothingAndTheLogIsContiguous()
    {
        const TestStore files;
        const auto store = files.openLoader();
        ChangePosition position;
        StoreError error;
        QVERIFY(store->position(&position, &error));
        const qint64 before = position.number;
        const auto one = startWriter(files, QStringLiteral("a"), 150);
        const auto two = startWriter(files, QStringLiteral("b"), 150);
        for (int i = 0; i < 50; ++i)
            QVERIFY2(
                TestStore::write(store.get(), "Roles", ROW_INSERT, "O" + QByteArray::number(i), {}, &error),
                qPrintable(error.text));
        QVERIFY(one->waitForFinished(60000) && two->waitForFinished(60000));
        QCOMPARE(one->exitCode() + two->exitCode(), 0);
        QVector<StoreChange> changes;
        QVERIFY(store->changesAfter(&position, 1000000, &changes, &error));
        QCOMPARE(changes.size(), 350);
        for (int i = 0; i < changes.size(); ++i)
            QCOMPARE(changes[i].number, before + 1 + i);
        QVERIFY(isClean(files));
    }

    void backupOfAStoreInUseIsWhole()
    {
        const TestStore files;
        const auto writer = startWriter(files, QStringLiteral("a"), 100000);
        QVERIFY(writer->waitForReadyRead(20000));
        StoreError error;
        const QString copy = files.path() + QStringLiteral(".copy");
        const bool done = StoreAdmin::backup(files.url(), copy, &error);
        writer->kill();
        QVERIFY(writer->waitForFinished(20000));
        QVERIFY2(done, qPrintable(error.text + error.detail));
        QVector<StoreAdmin::Finding> findings;
        QVERIFY(StoreAdmin::check(QStringLiteral("sqlite://") + copy, &findings, &error));
        QVERIFY(findings.isEmpty());
    }
};

/// The program, started again: writes rows one after another and prints the number of each once it is
/// acknowledged.
static int runWriter(const char* url, const QByteArray& name, int rows)
{
    StoreError error;
    Store::Options options;
    options.loader = true;
    const auto store = Store::open(QString::fromUtf8(url), options, &error);
    for (int i = 0; store && i < rows; ++i) {
        if (!TestStore::write(store.get(), "Roles", ROW_INSERT, "W" + name + "_" + QByteArray::number(i),
                              {{"name_", QString(200, QLatin1Char('x'))}}, &error))
            break;
        std::printf("%d\n", i);
        std::fflush(stdout);
    }
    if (error)
        std::fprintf(stderr, "%s\n", qPrintable(error.text));
    return error ? 1 : 0;
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 5 && qstrcmp(argv[1], "--writer") == 0)
        return runWriter(argv[2], argv[3], QByteArray(argv[4]).toInt());
    SqliteStore_faults_test test;
    return QTest::qExec(&test, argc, argv);
}

#include "SqliteStore_faults_test.moc"
