#include "EvidenceLog.h"
#include "MDRValues.h"
#include "PrivateCluster.h"
#include "SourceFile.h"
#include "StoreAdmin.h"
#include "TestFolder.h"
#include "TestStore.h"

#include <QCryptographicHash>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QUrl>

/// Stores of earlier program versions, in tests/store/former, upgraded to this version.
class StoreUpgrade_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_url;
    int m_count = 0;
    StoreError m_error;

    void run(const QString& program, const QStringList& arguments, const QString& input = QString())
    {
        QProcess process;
        if (!input.isEmpty())
            process.setStandardInputFile(input);
        process.start(program, arguments);
        QVERIFY(process.waitForFinished(60000));
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    }
    /// Restores the store of a former version.
    void take(const QString& version)
    {
        m_folder = std::make_unique<QTemporaryDir>(testFolderTemplate());
        const QString base = sourceFile("tests/store/former") + QStringLiteral("/version-") + version;
        if (TestStore::isSqlite()) {
            const QString file = m_folder->filePath(QStringLiteral("former.vrk"));
            m_url = QStringLiteral("sqlite://") + file;
            run(QStringLiteral("sqlite3"), {file}, base + QStringLiteral(".sqlite.sql"));
            return;
        }
        const TestStore roles; // the roles of the dump
        const QString database = QStringLiteral("former%1").arg(++m_count);
        QCOMPARE(
            PrivateCluster::shared().exec(QStringLiteral("CREATE DATABASE ") + database +
                                          QStringLiteral(" TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' "
                                                         "LC_CTYPE 'C.UTF-8'")),
            QString());
        m_url = PrivateCluster::shared().url(database);
        run(QStringLiteral("psql"),
            {QStringLiteral("-q"), QStringLiteral("-v"), QStringLiteral("ON_ERROR_STOP=1"), m_url},
            base + QStringLiteral(".postgresql.sql"));
    }
    /// The SHA-256 of all definitions in a schema, as hexadecimal digits.
    QString schemaDigest(const QString& url)
    {
        const QString file = QUrl(url).path();
        QProcess process;
        if (TestStore::isSqlite())
            process.start(QStringLiteral("sqlite3"), {file, QStringLiteral(".schema")});
        else
            process.start(QStringLiteral("pg_dump"),
                          {QStringLiteral("--schema-only"), QStringLiteral("--no-owner"), url});
        if (!process.waitForFinished(60000) || process.exitCode() != 0)
            qFatal("%s", process.readAllStandardError().constData());
        QCryptographicHash hash(QCryptographicHash::Sha256);
        for (const QByteArray& line : process.readAllStandardOutput().split('\n'))
            // Of the dump only what defines something: comments and commands name the programs that made it.
            if (!line.startsWith("--") && !line.startsWith('\\') && !line.startsWith("SET "))
                hash.addData(line.trimmed());
        return QString::fromLatin1(hash.result().toHex());
    }
    StoreError refusal()
    {
        StoreError error;
        Store::open(m_url, Store::Options(), &error);
        return error;
    }
    QStringList faults()
    {
        QVector<StoreAdmin::Finding> findings;
        if (!StoreAdmin::check(m_url, &findings, &m_error))
            return {m_error.text + m_error.detail};
        QStringList texts;
        for (const StoreAdmin::Finding& finding : findings)
            if (finding.grade == StoreAdmin::Finding::Fault)
                texts.append(finding.text);
        return texts;
    }
    std::unique_ptr<Store> open(const char* login)
    {
        auto store = Store::open(m_url, Store::Options(), &m_error);
        StoreLogin user;
        if (!store || !store->signIn(QLatin1String(login), &user, &m_error))
            qFatal("%s", qPrintable(m_error.text + m_error.detail));
        return store;
    }

private slots:
    void init() { m_error.clear(); }

    void aFormerStoreIsNotOpenedAsItIs()
    {
        take(QStringLiteral("1"));
        const StoreError error = refusal();
        QCOMPARE(error.code, StoreError::TooOld);
        QVERIFY(error.text.contains(QStringLiteral("vrk-admin upgrade")));
    }

    void formerVersionsAreUpgraded_data()
    {
        QTest::addColumn<QString>("version");
        for (int version = 1; version < StoreAdmin::schemaVersion(); ++version)
            QTest::newRow(qPrintable(QString::number(version))) << QString::number(version);
    }
    void formerVersionsAreUpgraded()
    {
        QFETCH(QString, version);
        take(version);
        // A file of options, stored before the log included files.
        const bool isUnlogged = version.toInt() < 4;
        if (isUnlogged && TestStore::isSqlite())
            run(QStringLiteral("sqlite3"),
                {m_folder->filePath(QStringLiteral("former.vrk")),
                 QStringLiteral("INSERT INTO StoreFiles VALUES ('a', 'b', x'31')")});
        else if (isUnlogged)
            run(QStringLiteral("psql"),
                {QStringLiteral("-q"), QStringLiteral("-c"),
                 QStringLiteral("INSERT INTO StoreFiles VALUES ('a', 'b', '1')"), m_url});
        QVERIFY2(StoreAdmin::upgrade(m_url, &m_error), qPrintable(m_error.text + m_error.detail));
        QCOMPARE(faults(), QStringList());

        const auto store = open("ivanov");
        CMDArray all;
        all = store->select("SELECT * FROM LogbookRecords", &m_error);
        QCOMPARE(all.RecCount(), 11);
        CMDArray found;
        RecordQuery query;
        query.departmentKey = "DEP_ZAR";
        found = store->search(query, &m_error);
        QCOMPARE(TestStore::field(found.array, "KeyLink").toString(), QStringLiteral("REC_ZAR"));
        // The journal continues to work: its rules, its log, its search.
        QVERIFY2(TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                  {{"html", "обновлённое"}}, &m_error),
                 qPrintable(m_error.text + m_error.detail));
        QVERIFY(!TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"html", "чужое"}},
                                  &m_error));
        QCOMPARE(m_error.code, StoreError::Refused);
        // A rule of the third version.
        QVERIFY(!TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_ORDER",
                                  {{"secondMarkTime", TestStore::now()}}, &m_error));
        QCOMPARE(m_error.code, StoreError::Refused);
        // And one of the fourth.
        QVERIFY(!TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                  {{"OriginRecordKey", "REC_ORDER"}}, &m_error));
        QCOMPARE(m_error.code, StoreError::Refused);
        // Signatures begin with the sixth.
        QVERIFY(TestStore::write(open("sidorova").get(), "LogbookRecords", ROW_UPDATE, "REC_ORDER",
                                 {{"VisaWorkerKey", "WORKER_SIDOROVA"}}, &m_error));
        const auto log = store->evidence(Store::Access::Read, &m_error);
        QVector<qint64> begun;
        QVERIFY(log && log->numbersOf("signatures", "StoreProperties", &begun));
        QCOMPARE(begun.size(), 1);
        qint64 end = 0;
        QByteArray epoch;
        QVERIFY(log->end(&end, &epoch) && begun.constFirst() < end);
        int signs = 0;
        log->read(begun.constFirst(), end, [&signs](const LoggedTransaction& transaction) {
            for (const LoggedRow& row : transaction.rows)
                signs += row.table == "LogSignatures" ? 1 : 0;
            return true;
        });
        QCOMPARE(signs, 1);
        query = RecordQuery();
        query.words = QStringLiteral("обновлённое");
        found = store->search(query, &m_error);
        QCOMPARE(found.RecCount(), 1);
        QCOMPARE(faults(), QStringList());
    }

    void thisVersionStaysAsItIs()
    {
        const TestStore present;
        const int changes = present.value(QStringLiteral("SELECT count(*) FROM ChangeLog")).toInt();
        QVERIFY(StoreAdmin::upgrade(present.url(), &m_error));
        QVERIFY(StoreAdmin::upgrade(present.url(), &m_error));
        QCOMPARE(present.value(QStringLiteral("SELECT count(*) FROM ChangeLog")).toInt(), changes);
        m_url = present.url();
        QCOMPARE(faults(), QStringList());
    }

    void aChangedSchemaIsANewVersion()
    {
        const TestStore fresh;
        const int version = StoreAdmin::version(fresh.url(), &m_error);
        const QString found = QStringLiteral("%1 %2 %3")
                                  .arg(version)
                                  .arg(QLatin1String(TestStore::isSqlite() ? "sqlite" : "postgresql"),
                                       schemaDigest(fresh.url()));
        QFile list(sourceFile("tests/store/schema-of-versions.txt"));
        QVERIFY(list.open(QIODevice::ReadOnly));
        const QStringList pinned = QString::fromUtf8(list.readAll()).split(QLatin1Char('\n'));
        QVERIFY2(
            pinned.contains(found),
            qPrintable(
                QStringLiteral("Stores of this version exist already, and no upgrade would reach them: add a "
                               "step and raise the version. The line of the new version is: ") +
                found));
    }

    void rowsLoggedBeforeAFieldExistedAreInOrder()
    {
        const TestStore store;
        const QString isShorter = QStringLiteral("newRow LIKE '%,null]'");
        QVERIFY(store.value(QStringLiteral("SELECT count(*) FROM ChangeLog WHERE ") + isShorter).toInt() > 0);
        const QString past = TestStore::isSqlite()
                                 ? QStringLiteral("DROP TRIGGER Log_noUpdate; ")
                                 : QStringLiteral("SET session_replication_role = replica; ");
        const QString shorten =
            QStringLiteral("UPDATE ChangeLog SET newRow = replace(newRow, ',null]', ']') WHERE %1; ")
                .arg(isShorter);
        QCOMPARE(store.exec(past + shorten + shorten), QString()); // two fields
        m_url = store.url();
        // The check finds that the log was changed, but no row that differs from it.
        const QStringList found = faults();
        QVERIFY(found.filter(QStringLiteral("изменена после записи")).size() > 0);
        QCOMPARE(found.filter(QStringLiteral("в обход журнала")), QStringList());
    }

    void anUpgradeThatFailsChangesNothing()
    {
        take(QStringLiteral("1"));
        // An object that the new step will create exists already.
        if (TestStore::isSqlite())
            run(QStringLiteral("sqlite3"), {m_folder->filePath(QStringLiteral("former.vrk")),
                                            QStringLiteral("CREATE TABLE RecordWords (x)")});
        else
            run(QStringLiteral("psql"), {QStringLiteral("-q"), QStringLiteral("-c"),
                                         QStringLiteral("CREATE TABLE RecordSearch (x text)"), m_url});
        QVERIFY(!StoreAdmin::upgrade(m_url, &m_error));
        QCOMPARE(refusal().code, StoreError::TooOld);
    }

    void newerStoresAreRefused()
    {
        const TestStore newer;
        QCOMPARE(newer.exec(TestStore::isSqlite()
                                ? QStringLiteral("PRAGMA user_version = 57")
                                : QStringLiteral(
                                      "SET session_replication_role = replica; UPDATE StoreProperties SET "
                                      "value = '57' WHERE name = 'schema'")),
                 QString());
        QVERIFY(!StoreAdmin::upgrade(newer.url(), &m_error));
        QCOMPARE(m_error.code, StoreError::TooNew);
    }
};

QTEST_GUILESS_MAIN(StoreUpgrade_test)
#include "StoreUpgrade_test.moc"
