#include "ChangeFeed.h"
#include "CMDArray.h"
#include "GenGuid32.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "PrivateCluster.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <QSignalSpy>
#include <QTest>

/// A server that stops, freezes, dies or is replaced while it has clients.
class PostgresStore_link_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<PrivateCluster> m_cluster;
    int m_count = 0;
    QString m_url;

    std::unique_ptr<Store> open(int deadlineMs = 15000)
    {
        Store::Options options;
        options.loader = true;
        options.deadlineMs = deadlineMs;
        StoreError error;
        auto store = Store::open(m_url, options, &error);
        if (!store)
            qFatal("%s %s", qPrintable(error.text), qPrintable(error.detail));
        return store;
    }
    bool write(Store* store, const QByteArray& key, StoreError* error = nullptr)
    {
        return TestStore::write(store, "Roles", ROW_INSERT, key, {}, error);
    }
    int count(Store* store, const QByteArray& sql)
    {
        StoreError error;
        CMDArray answer;
        answer = store->select(sql, &error);
        return answer.array ? TestStore::field(answer.array, "n").toInt() : -1;
    }

private slots:
    void initTestCase() { m_cluster = std::make_unique<PrivateCluster>(); }
    void init()
    {
        m_url = m_cluster->url(QStringLiteral("site%1").arg(++m_count));
        StoreError error;
        QVERIFY2(StoreAdmin::init(m_url, "Windows-1251", "Europe/Moscow", &error),
                 qPrintable(error.text + error.detail));
    }

    void restartedServerIsFoundAgainByRequests()
    {
        const auto store = open();
        QVERIFY(write(store.get(), "A"));
        m_cluster->stop();
        StoreError error;
        QVERIFY(!write(store.get(), "B", &error));
        QCOMPARE(error.code, StoreError::Lost);
        m_cluster->start();
        QVERIFY(write(store.get(), "B"));
        QCOMPARE(count(store.get(), "SELECT count(*) AS n FROM Roles"), 2);
    }

    void reportsAFrozenServerWithinTheDeadline()
    {
        const auto store = open(1000);
        m_cluster->freeze();
        QElapsedTimer clock;
        clock.start();
        StoreError error;
        QVERIFY(!write(store.get(), "A", &error));
        QCOMPARE(error.code, StoreError::Lost);
        QVERIFY2(clock.elapsed() < 4000, qPrintable(QString::number(clock.elapsed())));
        // Reading changes does not wait for a connection.
        ChangePosition position;
        clock.start();
        QVERIFY(!store->position(&position, &error));
        QCOMPARE(error.code, StoreError::Lost);
        QVERIFY2(clock.elapsed() < 500, qPrintable(QString::number(clock.elapsed())));
        m_cluster->thaw();
        QTRY_VERIFY(store->position(&position, &error));
        QVERIFY(write(store.get(), "A") || count(store.get(), "SELECT count(*) AS n FROM Roles") == 1);
    }

    void emitsLostAndFoundOnceAndMissesNothing()
    {
        const auto store = open();
        ChangeFeed feed(store.get());
        QStringList arrived;
        connect(&feed, &ChangeFeed::arrived, this, [&](const QVector<StoreChange>& changes) {
            for (const StoreChange& change : changes)
                arrived.append(QString::fromLatin1(change.key));
        });
        int lost = 0;
        connect(&feed, &ChangeFeed::lost, this, [&] { ++lost; });
        QSignalSpy found(&feed, &ChangeFeed::found);
        StoreError error;
        QVERIFY(feed.start(&error));
        QVERIFY(write(open().get(), "A"));
        QTRY_COMPARE(arrived.size(), 1);
        m_cluster->kill();
        QTRY_COMPARE(lost, 1);
        m_cluster->start();
        QVERIFY(write(open().get(), "B"));
        QTRY_COMPARE(found.size(), 1);
        QTRY_COMPARE(arrived.join(QString()), QStringLiteral("AB"));
        QCOMPARE(lost, 1);
    }

    void acknowledgedWritesSurviveAKilledServer()
    {
        for (const char* setting : {"synchronous_commit = off", "wal_writer_delay = '10s'"})
            QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM SET ") + QLatin1String(setting)),
                     QString());
        m_cluster->stop();
        m_cluster->start();
        for (int round = 0; round < 3; ++round) {
            auto store = open();
            for (int i = 0; i < 10; ++i)
                QVERIFY(write(store.get(), QByteArray::number(10 * round + i)));
            m_cluster->kill();
            m_cluster->start();
            QCOMPARE(count(open().get(), "SELECT count(*) AS n FROM Roles"), 10 * (round + 1));
        }
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM RESET ALL")), QString());
        m_cluster->stop();
        m_cluster->start();
        QVector<StoreAdmin::Finding> findings;
        StoreError error;
        QVERIFY(StoreAdmin::check(m_url, &findings, &error));
        for (const auto& finding : findings)
            QFAIL(qPrintable(finding.text));
    }

    void runawaySelectIsCancelledOnTheServer()
    {
        const auto store = open(300);
        StoreError error;
        CMDArray answer;
        answer = store->select("SELECT count(*) FROM generate_series(1, 1000000000000)", &error);
        QVERIFY(!answer.array);
        QCOMPARE(error.code, StoreError::Lost);
        const auto other = open();
        QTRY_COMPARE(count(other.get(),
                           "SELECT count(*) AS n FROM pg_stat_activity WHERE state = 'active' AND "
                           "pid <> pg_backend_pid() AND query LIKE 'FETCH%'"),
                     0);
    }

    void restoredDatabaseIsAnotherHistory()
    {
        auto store = open();
        QVERIFY(write(store.get(), "A"));
        ChangePosition position;
        StoreError error;
        QVERIFY(store->position(&position, &error));
        QCOMPARE(position.number, 2); // creating the store, and this
        store.reset();
        const QString name = QStringLiteral("site%1").arg(m_count);
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER DATABASE %1 RENAME TO %1_old").arg(name)), QString());
        QCOMPARE(m_cluster->exec(QStringLiteral("CREATE DATABASE %1 TEMPLATE %1_old").arg(name)), QString());
        store = open();
        QVector<StoreChange> changes;
        QVERIFY(!store->changesAfter(&position, 10, &changes, &error));
        QCOMPARE(error.code, StoreError::NotAStore);
    }

    void deadlockedBatchIsWrittenAtTheNextTry()
    {
        const auto store = open();
        for (const char* key : {"A", "B"})
            QVERIFY(write(store.get(), key));
        const std::unique_ptr<PGconn, decltype(&PQfinish)> other(PQconnectdb(m_url.toUtf8().constData()),
                                                                 PQfinish);
        const auto exec = [&](const char* sql) {
            const std::unique_ptr<PGresult, decltype(&PQclear)> done(PQexec(other.get(), sql), PQclear);
            return PQresultStatus(done.get()) == PGRES_COMMAND_OK ||
                   PQresultStatus(done.get()) == PGRES_TUPLES_OK;
        };
        // The other one holds B and requests A; ours then holds A and requests B. Ours waited first and is
        // the victim.
        QVERIFY(exec(
            "SET deadlock_timeout = '60s'; BEGIN; SELECT set_config('vrk.batch_key', 'other', true), "
            "set_config('vrk.loader', 'on', true); UPDATE Roles SET name_ = 'other' WHERE KeyLink = 'B'"));
        QCOMPARE(m_cluster->exec(
                     QStringLiteral("ALTER DATABASE site%1 SET deadlock_timeout = '100ms'").arg(m_count)),
                 QString());
        const auto ours = open();
        int looks = 0;
        bool isEnded = false;
        ours->setProgress([&] {
            if (++looks == 1) {
                PQsendQuery(other.get(), "UPDATE Roles SET name_ = 'other' WHERE KeyLink = 'A'");
                return;
            }
            PQconsumeInput(other.get());
            if (isEnded || PQisBusy(other.get()))
                return;
            while (PGresult* result = PQgetResult(other.get()))
                PQclear(result);
            isEnded = exec("COMMIT");
        });
        const QVector<MDRFieldDescr> fields = TableCatalog::table("Roles")->descriptors();
        CRowBatch batch(fields.constData(), fields.size());
        const QByteArray name("ours");
        for (const char* key : {"A", "B"}) {
            MDRData* row = batch.newRow(ROW_UPDATE, key);
            batch.SetValF(row, "name_", MDRValue::text(name));
            batch.RecPost(row);
        }
        StoreError error;
        QVERIFY2(ours->apply({{"Roles", batch.array}}, "ours", &error),
                 qPrintable(error.text + error.detail));
        QVERIFY(isEnded);
        QCOMPARE(count(store.get(), "SELECT count(*) AS n FROM Roles WHERE name_ = 'ours'"), 2);
        QCOMPARE(count(store.get(), "SELECT count(*) AS n FROM ChangeLog WHERE event = 602"), 4);
    }

    void addressesTakeTheServersOwnOptions()
    {
        const QString socket = QString::fromLatin1(QUrl::toPercentEncoding(m_cluster->socketFolder()));
        const QString database = QStringLiteral("site%1").arg(m_count);
        QTemporaryDir folder;
        StoreError error;
        // Several hosts: the first one does not exist.
        QVERIFY2(Store::open(
                     QStringLiteral("postgresql://postgres@/%1?host=%2,%3&target_session_attrs=read-write")
                         .arg(database, QString::fromLatin1(QUrl::toPercentEncoding(folder.path())), socket),
                     {}, &error),
                 qPrintable(error.text + error.detail));
        // A service file.
        QFile services(folder.filePath(QStringLiteral("services")));
        QVERIFY(services.open(QIODevice::WriteOnly));
        services.write(QStringLiteral("[journal]\nhost=%1\ndbname=%2\nuser=postgres\n")
                           .arg(m_cluster->socketFolder(), database)
                           .toUtf8());
        services.close();
        qputenv("PGSERVICEFILE", services.fileName().toUtf8());
        const auto store = Store::open(QStringLiteral("postgresql://?service=journal"), {}, &error);
        qunsetenv("PGSERVICEFILE");
        QVERIFY2(store, qPrintable(error.text + error.detail));
    }

    void hostThatOnlyReadsIsPassedOver()
    {
        PrivateCluster spare("default_transaction_read_only = on\n");
        const auto hosts = [&](const QString& first, const QString& second) {
            return QStringLiteral(
                       "postgresql://postgres@/postgres?host=%1,%2&target_session_attrs=read-write")
                .arg(QString::fromLatin1(QUrl::toPercentEncoding(first)),
                     QString::fromLatin1(QUrl::toPercentEncoding(second)));
        };
        for (const bool isSpareFirst : {true, false}) {
            PgConnection link(isSpareFirst ? hosts(spare.socketFolder(), m_cluster->socketFolder())
                                           : hosts(m_cluster->socketFolder(), spare.socketFolder()),
                              15000);
            StoreError error;
            QVERIFY2(link.connect(link.connectMs(), &error), qPrintable(error.text + error.detail));
            const PgResult folder = link.run("SELECT current_setting('unix_socket_directories')", &error);
            QCOMPARE(folder.bytes(0, 0), m_cluster->socketFolder().toUtf8());
        }
    }

    void preparedTransactionsAreRefusedOrEnded()
    {
        StoreError error;
        const auto isNamed = [this] {
            for (const StoreAdmin::Symptom& symptom : StoreAdmin::examine(m_url))
                if (symptom.fault.contains(QStringLiteral("подготовленные транзакции")))
                    return symptom.cure.contains(QStringLiteral("max_prepared_transactions = 0"));
            return false;
        };
        const auto prepare = [this] {
            StoreError refusal;
            PgConnection link(m_cluster->url(QStringLiteral("site%1").arg(m_count), QStringLiteral("orlov")),
                              15000);
            return link.connect(link.connectMs(), &refusal) &&
                   link.exec("SET idle_in_transaction_session_timeout = 0; BEGIN; LOCK TABLE LogbookRecords; "
                             "PREPARE TRANSACTION 'kept'",
                             &refusal);
        };
        QVERIFY(StoreAdmin::addUser(m_url, QStringLiteral("orlov"), QStringLiteral("Орлов"), &error));
        QVERIFY(!prepare());
        QVERIFY(!isNamed());
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM SET max_prepared_transactions = 2")),
                 QString());
        m_cluster->stop();
        m_cluster->start();
        QVERIFY(prepare());
        QVERIFY(isNamed());
        QCOMPARE(StoreAdmin::endRunaways(m_url, 60, &error), 0);
        QTRY_COMPARE(count(open().get(), "SELECT count(*) AS n FROM pg_prepared_xacts WHERE prepared < "
                                         "clock_timestamp() - interval '1 second'"),
                     1);
        QCOMPARE(StoreAdmin::endRunaways(m_url, 1, &error), 1);
        QCOMPARE(count(open().get(), "SELECT count(*) AS n FROM pg_prepared_xacts"), 0);
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM RESET ALL")), QString());
        m_cluster->stop();
        m_cluster->start();
    }

    void doctorNamesAServerWithoutAReserve()
    {
        const auto isNamed = [this] {
            for (const StoreAdmin::Symptom& symptom : StoreAdmin::examine(m_url))
                if (symptom.cure.contains(QStringLiteral("superuser_reserved_connections")))
                    return true;
            return false;
        };
        QVERIFY(!isNamed());
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM SET superuser_reserved_connections = 2")),
                 QString());
        m_cluster->stop();
        m_cluster->start();
        QVERIFY(isNamed());
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM RESET ALL")), QString());
        m_cluster->stop();
        m_cluster->start();
    }

    void everythingBelongsToARoleThatCannotLogIn()
    {
        const auto store = open();
        QCOMPARE(count(store.get(),
                       "SELECT count(*) AS n FROM pg_class WHERE relnamespace = 'public'::regnamespace "
                       "AND pg_get_userbyid(relowner) <> 'vrk_owner'"),
                 0);
        QCOMPARE(count(store.get(),
                       "SELECT count(*) AS n FROM pg_proc WHERE pronamespace = 'public'::regnamespace "
                       "AND pg_get_userbyid(proowner) <> 'vrk_owner'"),
                 0);
        QCOMPARE(count(store.get(),
                       "SELECT count(*) AS n FROM pg_roles WHERE rolname LIKE 'vrk%' AND rolcanlogin"),
                 0);
    }

    void tablesAreNotTruncated()
    {
        for (const char* table : {"LogbookRecords CASCADE", "Roles", "ChangeLog", "ChangeTransactions"})
            QVERIFY(!m_cluster
                         ->exec(QStringLiteral("TRUNCATE %1").arg(QLatin1String(table)),
                                QStringLiteral("site%1").arg(m_count))
                         .isEmpty());
    }

    void personsGetInUnderTheirOwnNameOnly()
    {
        StoreError error;
        QVERIFY2(StoreAdmin::addUser(m_url, QStringLiteral("orlov"), QStringLiteral("Орлов"), &error),
                 qPrintable(error.text + error.detail));
        QVERIFY(StoreAdmin::addUser(m_url, QStringLiteral("belov"), QStringLiteral("Белов"), &error));
        const QString own = m_cluster->url(QStringLiteral("site%1").arg(m_count), QStringLiteral("orlov"));
        const auto store = Store::open(own, {}, &error);
        QVERIFY2(store != nullptr, qPrintable(error.text + error.detail));
        QVERIFY(store->logins().isEmpty());
        StoreLogin user;
        QVERIFY(!store->signIn(QStringLiteral("belov"), &user, &error));
        QCOMPARE(error.code, StoreError::Refused);
        QCOMPARE(error.text, QString::fromUtf8("С сервером соединился «orlov», а не «belov»."));
        QVERIFY(store->signIn(QString(), &user, &error));
        QCOMPARE(user.login, QStringLiteral("orlov"));
        QVERIFY(!TestStore::write(store.get(), "Roles", ROW_INSERT, "X", {}, &error));
        QCOMPARE(error.code, StoreError::Refused);
        // Requesting the loader's role does not grant it.
        Store::Options loader;
        loader.loader = true;
        const auto pretender = Store::open(own, loader, &error);
        QVERIFY(!TestStore::write(pretender.get(), "Roles", ROW_INSERT, "X", {}, &error));
        QCOMPARE(error.code, StoreError::Refused);
    }

    void clientsMayNotChangeWhatIsTheStoresOwn_data()
    {
        QTest::addColumn<QString>("sql");
        for (const char* sql :
             {"INSERT INTO ChangeLog (number, tableName, rowKey, event) VALUES (1, 'x', 'y', 601)",
              "UPDATE ChangeHead SET number = 0", "DELETE FROM ChangeTransactions",
              "INSERT INTO ChangePending DEFAULT VALUES", "UPDATE StoreProperties SET value = ''",
              "DELETE FROM StoreFiles", "TRUNCATE Roles", "CREATE TABLE x (y text)",
              "ALTER TABLE Roles DISABLE TRIGGER ALL", "SET ROLE vrk_owner",
              "SET SESSION AUTHORIZATION postgres", "SET session_replication_role = replica",
              "CREATE TEMP TABLE users (login text)", "DROP FUNCTION vrk_refuse(text)",
              "GRANT vrk_loader TO orlov"})
            QTest::newRow(sql) << QString::fromLatin1(sql);
    }
    void clientsMayNotChangeWhatIsTheStoresOwn()
    {
        QFETCH(QString, sql);
        StoreError error;
        QVERIFY(StoreAdmin::addUser(m_url, QStringLiteral("orlov"), QStringLiteral("Орлов"), &error));
        PgConnection link(m_cluster->url(QStringLiteral("site%1").arg(m_count), QStringLiteral("orlov")),
                          15000);
        QVERIFY(link.connect(link.connectMs(), &error));
        QVERIFY(link.exec("SELECT set_config('vrk.batch_key', 'x', false)", &error));
        QVERIFY(!link.exec(sql.toUtf8(), &error));
        QCOMPARE(link.failureState(), QByteArray("42501"));
    }
};

QTEST_GUILESS_MAIN(PostgresStore_link_test)
#include "PostgresStore_link_test.moc"
