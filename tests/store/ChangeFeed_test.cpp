#include "ChangeFeed.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <atomic>
#include <QFile>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

class ChangeFeed_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;
    std::unique_ptr<ChangeFeed> m_feed;
    QStringList m_arrived; ///< keys

    void write(Store* store, const char* key)
    {
        if (!TestStore::write(store, "Roles", ROW_INSERT, key))
            qFatal("%s cannot be written", key);
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->openLoader();
        m_feed = std::make_unique<ChangeFeed>(m_store.get());
        m_arrived.clear();
        connect(m_feed.get(), &ChangeFeed::arrived, this, [this](const QVector<StoreChange>& changes) {
            for (const StoreChange& change : changes)
                m_arrived.append(QString::fromLatin1(change.key));
        });
        StoreError error;
        QVERIFY(m_feed->start(&error));
    }
    void cleanup()
    {
        m_feed.reset();
        m_store.reset();
        m_files.reset();
    }

    void earlierChangesAreNotDelivered()
    {
        QCOMPARE(m_feed->poll(), 0);
        QVERIFY(m_arrived.isEmpty());
    }

    void ownWriteComesThroughTheEventLoopAtOnce()
    {
        write(m_store.get(), "A");
        m_feed->wake();
        m_feed->wake();
        QVERIFY(m_arrived.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(m_arrived, QStringList{QStringLiteral("A")});
    }

    void writesOfOthersComeByThemselvesOnceAndInOrder()
    {
        const auto other = m_files->openLoader();
        for (const char* key : {"A", "B", "C"})
            write(other.get(), key);
        QTRY_COMPARE(m_arrived.size(), 3);
        write(m_store.get(), "D");
        m_feed->wake();
        QTRY_COMPARE(m_arrived.size(), 4);
        write(other.get(), "E");
        QTRY_COMPARE(m_arrived.join(QString()), QStringLiteral("ABCDE"));
        QCOMPARE(m_feed->poll(), 0);
    }

    void pollDeliversAllOfALongLog()
    {
        const auto other = m_files->openLoader();
        QStringList keys;
        for (int i = 0; i < 300; ++i) {
            keys.append(QString::number(i));
            write(other.get(), qPrintable(keys.last()));
        }
        QCOMPARE(m_feed->poll(), 300);
        QCOMPARE(m_arrived, keys);
    }

    void receiverThatPollsGetsNothingTwice()
    {
        int inside = 0;
        connect(m_feed.get(), &ChangeFeed::arrived, this, [&] { inside += m_feed->poll(); });
        write(m_store.get(), "A");
        QCOMPARE(m_feed->poll(), 1);
        QCOMPARE(inside, 0);
        QCOMPARE(m_arrived.size(), 1);
    }

    void receiverThatWritesGetsItsEventInTheSameOrder()
    {
        connect(m_feed.get(), &ChangeFeed::arrived, this, [&] {
            if (m_arrived.size() == 1)
                write(m_store.get(), "B");
        });
        write(m_store.get(), "A");
        m_feed->poll();
        QCOMPARE(m_arrived.join(QString()), QStringLiteral("AB"));
    }

    void stoppedFeedIsSilent()
    {
        write(m_store.get(), "A");
        m_feed->wake();
        m_feed->stop();
        QCoreApplication::processEvents();
        QVERIFY(m_arrived.isEmpty());
        QVERIFY(m_feed->position().number > 0);
    }

    void emitsLostAndFoundOnceAndMissesNothing()
    {
        QVector<StoreError::Code> lost;
        connect(m_feed.get(), &ChangeFeed::lost, this,
                [&lost](const StoreError& error) { lost.append(error.code); });
        QSignalSpy found(m_feed.get(), &ChangeFeed::found);
        if (!TestStore::isSqlite())
            QSKIP("A lost server is another matter: PostgresStore_link_test");
        const QString aside = m_files->path() + QStringLiteral(".aside");
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::rename(m_files->path() + QLatin1String(suffix), aside + QLatin1String(suffix));
        QTRY_COMPARE(lost.size(), 1);
        QCOMPARE(lost[0], StoreError::Lost);
        StoreError again;
        again.code = StoreError::Lost;
        m_feed->reportLost(again);
        m_feed->poll();
        QCOMPARE(lost.size(), 1);
        QVERIFY(found.isEmpty());
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::rename(aside + QLatin1String(suffix), m_files->path() + QLatin1String(suffix));
        write(m_files->openLoader().get(), "A");
        QTRY_COMPARE(found.size(), 1);
        QCOMPARE(m_arrived, QStringList{QStringLiteral("A")});
    }

    void anotherHistoryRestartsTheFeed()
    {
        if (!TestStore::isSqlite())
            QSKIP("A restored database is another matter: PostgresStore_link_test");
        QSignalSpy restarted(m_feed.get(), &ChangeFeed::restarted);
        StoreError error;
        const QString copy = m_files->path() + QStringLiteral(".copy");
        QVERIFY(StoreAdmin::backup(m_files->url(), copy, &error));
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::remove(m_files->path() + QLatin1String(suffix));
        QVERIFY(QFile::rename(copy, m_files->path()));
        QTRY_COMPARE(restarted.size(), 1);
        write(m_store.get(), "A");
        m_feed->poll();
        QCOMPARE(m_arrived, QStringList{QStringLiteral("A")});
    }

    void sessionsThatWriteAtOnceDoNotBreakTheChain()
    {
        int broken = 0;
        connect(m_feed.get(), &ChangeFeed::broken, this, [&] { ++broken; });
        std::vector<std::unique_ptr<QThread>> writers;
        std::atomic<int> written{0};
        for (int writer = 0; writer < 4; ++writer) {
            writers.emplace_back(QThread::create([this, writer, &written] {
                const auto store = m_files->openLoader();
                for (int i = 0; i < 40; ++i) {
                    const QByteArray key = QByteArray::number(writer) + '-' + QByteArray::number(i);
                    StoreError error;
                    while (!TestStore::write(store.get(), "Roles", ROW_INSERT, key, {}, &error))
                        if (error.code != StoreError::Locked)
                            qFatal("%s", qPrintable(error.text));
                    ++written;
                }
            }));
            writers.back()->start();
        }
        QTRY_COMPARE_WITH_TIMEOUT(m_arrived.size(), 160, 60000);
        for (const auto& writer : writers)
            writer->wait();
        QCOMPARE(written.load(), 160);
        QCOMPARE(broken, 0);
        ChangePosition end;
        StoreError error;
        QVERIFY(m_store->position(&end, &error));
        QCOMPARE(m_feed->position().chain, end.chain);
    }

    void aBrokenChainIsReportedBeforeTheChange()
    {
        QStringList reported;
        connect(m_feed.get(), &ChangeFeed::broken, this,
                [&](const QByteArray&, const ChangePosition::Break& place) {
                    reported.append(QString::number(place.number));
                });
        connect(m_feed.get(), &ChangeFeed::arrived, this, [&] { reported.append(QStringLiteral("change")); });
        // The hash of the last transaction is another one, as after writing it again.
        const qint64 number = m_feed->position().number;
        const QString change =
            TestStore::isSqlite()
                ? QStringLiteral("DROP TRIGGER Transactions_noUpdate; UPDATE ChangeTransactions SET chain = "
                                 "zeroblob(32) WHERE number = %1")
                : QStringLiteral(
                      "SET session_replication_role = replica; UPDATE ChangeTransactions SET chain = "
                      "sha256('x') WHERE number = %1; UPDATE ChangeHead SET chain = sha256('x')");
        QCOMPARE(m_files->exec(change.arg(number)), QString());
        write(m_store.get(), "A");
        m_feed->poll();
        QCOMPARE(reported, (QStringList{QString::number(number + 1), QStringLiteral("change")}));
        write(m_store.get(), "B");
        m_feed->poll();
        QCOMPARE(reported.size(), 3);
    }
};

QTEST_GUILESS_MAIN(ChangeFeed_test)
#include "ChangeFeed_test.moc"
