#include "ChangeFeed.h"
#include "PgConnection.h"
#include "PrivateCluster.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <poll.h>
#include <QFile>
#include <QTest>

/// The parts of a server's change feed: the counter, the hint, the slow poll in addition, the name of the
/// history.
class PostgresStore_feed_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;
    std::unique_ptr<Store> m_other;

    static bool write(Store* store, const QByteArray& key)
    {
        return TestStore::write(store, "Roles", ROW_INSERT, key);
    }
    static bool isReadable(Store* store, int waitMs)
    {
        pollfd entry = {store->newsDescriptor(), POLLIN, 0};
        return ::poll(&entry, 1, waitMs) > 0;
    }
    /// From now on the transactions of the store notify nobody.
    void silence()
    {
        QCOMPARE(m_files->exec(
                     QStringLiteral("DO $$ BEGIN EXECUTE replace(pg_get_functiondef('vrk_close'::regproc), "
                                    "'PERFORM pg_notify(''vrk_changes'', '''')', 'NULL'); END $$")),
                 QString());
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->openLoader();
        m_other = m_files->openLoader();
    }
    void cleanup()
    {
        m_store.reset();
        m_other.reset();
        m_files.reset();
    }

    void secondOfTwoCommitsTakesTheNextNumber()
    {
        PgConnection first(m_files->url(), 15000);
        StoreError error;
        QVERIFY(first.connect(first.connectMs(), &error));
        // Everything up to the commit, except the very end.
        QVERIFY2(
            first.exec("BEGIN; SELECT set_config('vrk.batch_key', 'first', true), set_config('vrk.loader', "
                       "'on', true); INSERT INTO Roles (KeyLink) VALUES ('A'); SET CONSTRAINTS ALL "
                       "IMMEDIATE",
                       &error),
            qPrintable(error.text + error.detail));
        bool isCommitted = false;
        m_store->setProgress([&] {
            if (!isCommitted)
                isCommitted = first.exec("COMMIT", &error);
        });
        QVERIFY2(TestStore::write(m_store.get(), "Roles", ROW_INSERT, "B", {}, &error),
                 qPrintable(error.text));
        QVERIFY(isCommitted);
        QCOMPARE(m_files
                     ->value(QStringLiteral("SELECT string_agg(rowKey || event, ' ' ORDER BY number) FROM "
                                            "(SELECT * FROM ChangeLog ORDER BY number DESC LIMIT 2) AS L"))
                     .toString(),
                 QStringLiteral("A601 B601"));
    }

    void listenersAreWokenByTheServer()
    {
        m_store->hasNews();
        QVERIFY(!isReadable(m_store.get(), 0));
        QVERIFY(write(m_other.get(), "A"));
        QVERIFY(isReadable(m_store.get(), 1500)); // the slow poll would not be that fast
        QVERIFY(m_store->hasNews());
    }

    void changesWithoutAHintAreDelivered()
    {
        ChangeFeed feed(m_store.get());
        int arrived = 0;
        connect(&feed, &ChangeFeed::arrived, this,
                [&](const QVector<StoreChange>& changes) { arrived += changes.size(); });
        StoreError error;
        QVERIFY(feed.start(&error));
        m_store->hasNews(); // a fresh connection is one
        silence();
        QVERIFY(write(m_other.get(), "A"));
        QTRY_COMPARE_WITH_TIMEOUT(arrived, 1, 10000);
    }

    void lastOfManyChangesIsNotLeftToTheSlowPoll()
    {
        ChangeFeed feed(m_store.get());
        int arrived = 0;
        connect(&feed, &ChangeFeed::arrived, this,
                [&](const QVector<StoreChange>& changes) { arrived += changes.size(); });
        StoreError error;
        QVERIFY(feed.start(&error));
        QVERIFY(write(m_other.get(), "A"));
        QTRY_COMPARE(arrived, 1);
        // Shortly after the first one, without its own hint.
        silence();
        QVERIFY(write(m_other.get(), "B"));
        QVERIFY(QTest::qWaitFor([&] { return arrived == 2; }, 1500));
    }

    void hintsAreNoCloserThanTwentyFiveMilliseconds()
    {
        QVector<double> times;
        for (int i = 0; i < 60; ++i) {
            QVERIFY(write(m_other.get(), QByteArray::number(i)));
            times.append(m_files
                             ->value(QStringLiteral(
                                 "SELECT extract(epoch FROM notified)::double precision FROM ChangeHead"))
                             .toDouble());
        }
        QVERIFY(times.last() > times.first());
        for (int i = 1; i < times.size(); ++i)
            QVERIFY2(times[i] == times[i - 1] || times[i] - times[i - 1] > 0.0249,
                     qPrintable(QString::number(times[i] - times[i - 1])));
    }

    void clockThatIsSetBackSilencesNobody()
    {
        QCOMPARE(m_files->exec(QStringLiteral("UPDATE ChangeHead SET notified = now() + interval '1 hour'")),
                 QString());
        m_store->hasNews();
        QVERIFY(write(m_other.get(), "A"));
        QVERIFY(isReadable(m_store.get(), 1500));
    }

    void promotedSpareIsAnotherHistory()
    {
        PrivateCluster server;
        const QString url = server.url(QStringLiteral("site"));
        StoreError error;
        QVERIFY2(StoreAdmin::init(url, "Windows-1251", "Europe/Moscow", &error),
                 qPrintable(error.text + error.detail));
        Store::Options options;
        options.loader = true;
        auto store = Store::open(url, options, &error);
        QVERIFY(store && write(store.get(), "A"));
        ChangePosition before;
        QVERIFY(store->position(&before, &error));
        store.reset();
        // The same files, used by a server that has followed another one.
        server.stop();
        QFile signal(server.socketFolder() + QStringLiteral("/data/standby.signal"));
        QVERIFY(signal.open(QIODevice::WriteOnly));
        signal.close();
        QVERIFY(QFile::setPermissions(signal.fileName(), QFile::Permissions(0x6666)));
        server.start();
        QCOMPARE(server.exec(QStringLiteral("SELECT pg_promote()")), QString());
        store = Store::open(url, options, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        ChangePosition after;
        QVERIFY(store->position(&after, &error));
        QCOMPARE(after.number, before.number);
        QVector<StoreChange> changes;
        QVERIFY(!store->changesAfter(&before, 10, &changes, &error));
        QCOMPARE(error.code, StoreError::NotAStore);
        QVERIFY(write(store.get(), "B"));
        QVERIFY(store->changesAfter(&after, 10, &changes, &error));
        QCOMPARE(changes.size(), 1);
    }
};

int main(int argc, char** argv)
{
    qputenv("VRK_TEST_ENGINE", "postgresql");
    QCoreApplication application(argc, argv);
    PostgresStore_feed_test test;
    return QTest::qExec(&test, argc, argv);
}
#include "PostgresStore_feed_test.moc"
