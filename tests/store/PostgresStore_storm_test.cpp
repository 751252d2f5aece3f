#include "ChangeFeed.h"
#include "CMDArray.h"
#include "FaultProxy.h"
#include "GenGuid32.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "PrivateCluster.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <atomic>
#include <QEventLoop>
#include <QSet>
#include <QTest>
#include <QThread>
#include <random>

namespace
{
constexpr int writers = 16;
constexpr int listeners = 50;
constexpr int listenersInAThread = 10;
constexpr int keys = 40; ///< few, so that writers collide
constexpr int deadlineMs = 3000;

bool isLong()
{
    return qEnvironmentVariableIsSet("VRK_LONG");
}

Store::Options options()
{
    Store::Options made;
    made.loader = true;
    made.deadlineMs = deadlineMs;
    return made;
}

/// Tries to open until it succeeds.
std::unique_ptr<Store> opened(const QString& url)
{
    for (;;) {
        StoreError error;
        if (auto store = Store::open(url, options(), &error))
            return store;
        QThread::msleep(20);
    }
}

/// Writes batches of one to three rows until it must end; repeats each until its outcome is known.
class Writer
{
public:
    QVector<QByteArray> acknowledged; ///< batch keys
    QVector<QByteArray> refused;

    void run(const QString& url, unsigned seed, const std::atomic<bool>* isEnding)
    {
        std::mt19937 random(seed);
        const QVector<MDRFieldDescr> fields = TableCatalog::table("Roles")->descriptors();
        const auto store = opened(url);
        while (!*isEnding) {
            CRowBatch batch(fields.constData(), fields.size());
            for (unsigned i = 0, count = 1 + random() % 3; i < count; ++i) {
                const MDRFlag flags[] = {ROW_INSERT, ROW_UPDATE, ROW_UPDATE, ROW_DELETE};
                MDRData* row =
                    batch.newRow(flags[random() % 4], "K" + QByteArray::number(uint(random() % keys)));
                const QByteArray name = QByteArray::number(uint(random()));
                batch.SetValF(row, "name_", MDRValue::text(name));
                batch.RecPost(row);
            }
            // A change that certainly leaves a trace: deleting a missing row does not.
            const QByteArray batchKey = GenGuid32();
            MDRData* trace = batch.newRow(ROW_INSERT, batchKey);
            batch.SetValF(trace, "name_", MDRValue::text(batchKey));
            batch.RecPost(trace);
            for (;;) {
                StoreError error;
                if (store->apply({{"Roles", batch.array}}, batchKey, &error)) {
                    acknowledged.append(batchKey);
                    break;
                }
                // The next attempt with the same key settles an unknown outcome.
                if (error.code != StoreError::Lost && error.code != StoreError::Locked &&
                    error.code != StoreError::Unsettled) {
                    refused.append(batchKey);
                    break;
                }
                QThread::msleep(20);
            }
            QThread::msleep(random() % 60);
        }
    }
};

/// Follows the changes and keeps them.
struct Listener {
    std::unique_ptr<Store> store;
    std::unique_ptr<ChangeFeed> feed;
    ChangePosition start;
    QVector<QByteArray> heard;          ///< "number event table key"
    QHash<QByteArray, QByteArray> rows; ///< rows of the table by key, according to the events
    int restarts = 0;
    int breaks = 0; ///< of the chain
    std::atomic<qint64> number{0};

    void open(const QString& url)
    {
        store = opened(url);
        feed = std::make_unique<ChangeFeed>(store.get());
        QObject::connect(feed.get(), &ChangeFeed::arrived, feed.get(),
                         [this](const QVector<StoreChange>& changes) { take(changes); });
        QObject::connect(feed.get(), &ChangeFeed::restarted, feed.get(), [this] { ++restarts; });
        QObject::connect(feed.get(), &ChangeFeed::broken, feed.get(), [this] { ++breaks; });
        StoreError error;
        while (!feed->start(&error))
            QThread::msleep(20);
        start = feed->position();
        number = start.number;
        // Changes that arrive while the rows are being read repeat the same content.
        CMDArray answer;
        while (!answer.array) {
            answer = store->select("SELECT * FROM Roles", &error);
            if (!answer.array)
                QThread::msleep(20);
        }
        for (int i = 0; i < answer.RecCount(); ++i)
            rows.insert(TestStore::field(answer.array, "KeyLink", i).toByteArray(),
                        TestStore::field(answer.array, "name_", i).toByteArray());
    }
    void take(const QVector<StoreChange>& changes)
    {
        for (const StoreChange& change : changes) {
            heard.append(QByteArray::number(change.number) + ' ' + QByteArray::number(change.event) + ' ' +
                         change.table + ' ' + change.key);
            if (change.event == 603) {
                rows.remove(change.key);
            } else {
                MDRData record;
                MDRRecordType type;
                MDRRecInit(&record);
                MDRTypInit(&type);
                MDRRecSet(&record, change.packedRecord.constData(), change.packedRecord.size());
                MDRTypGen(&type, "NCI", &record);
                MDRVar name;
                MDRGetVal(MDRFldByName(&type, "name_"), &record, &name);
                rows.insert(change.key, MDRValue::copy(name));
                MDRTypFree(&type);
            }
            number = change.number;
        }
    }
};
} // namespace

/// Many writers and listeners at the same time, while connections and the server fail and return.
class PostgresStore_storm_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<PrivateCluster> m_cluster;
    QString m_database;

    QString urlThrough(const QString& socketFolder) const
    {
        return QStringLiteral("postgresql://postgres@/%1?host=%2")
            .arg(m_database, QString::fromLatin1(QUrl::toPercentEncoding(socketFolder)));
    }
    QVector<QByteArray> column(const QByteArray& sql) const
    {
        StoreError error;
        PgConnection link(m_cluster->url(m_database), 60000);
        link.connect(link.connectMs(), &error);
        const PgResult rows = link.run(sql, &error);
        if (!rows)
            qFatal("%s", qPrintable(error.text + error.detail));
        QVector<QByteArray> values;
        for (int i = 0; i < rows.rows(); ++i)
            values.append(rows.bytes(i, 0));
        return values;
    }

    /// Lets them all work while \a trouble runs, then compares what everybody has received with the log and
    /// the table.
    void storm(const QString& url, const std::function<void()>& trouble)
    {
        std::atomic<bool> isEnding{false};
        std::atomic<int> ready{0};
        std::vector<Listener> all(listeners);
        std::vector<std::unique_ptr<QThread>> threads;
        for (int first = 0; first < listeners; first += listenersInAThread) {
            threads.emplace_back(QThread::create([&, first] {
                for (int i = first; i < first + listenersInAThread; ++i, ++ready)
                    all[static_cast<std::size_t>(i)].open(url);
                QEventLoop loop;
                QTimer end;
                connect(&end, &QTimer::timeout, &loop, [&] {
                    if (isEnding)
                        loop.quit();
                });
                end.start(20);
                loop.exec();
                for (int i = first; i < first + listenersInAThread; ++i) {
                    all[static_cast<std::size_t>(i)].feed.reset();
                    all[static_cast<std::size_t>(i)].store.reset();
                }
            }));
            threads.back()->start();
        }
        std::vector<Writer> pens(writers);
        std::vector<std::unique_ptr<QThread>> hands;
        std::atomic<bool> isDone{false};
        for (int i = 0; i < writers; ++i) {
            Writer* pen = &pens[static_cast<std::size_t>(i)];
            hands.emplace_back(QThread::create([=, &isDone] { pen->run(url, unsigned(i) + 1, &isDone); }));
            hands.back()->start();
        }
        QVERIFY(QTest::qWaitFor([&] { return ready == listeners; }, 120000));
        trouble();
        isDone = true;
        for (const auto& hand : hands)
            QVERIFY(hand->wait(120000));
        const qint64 end = column("SELECT number::text FROM ChangeHead").value(0).toLongLong();
        const bool allCame = QTest::qWaitFor(
            [&] {
                return std::all_of(all.begin(), all.end(),
                                   [&](const Listener& one) { return one.number == end; });
            },
            30000);
        for (const Listener& one : all) {
            if (one.number != end)
                qWarning(
                    "a listener has received up to %lld of %lld, after %d restarts; its position is %lld",
                    one.number.load(), end, one.restarts, one.feed->position().number);
        }
        isEnding = true;
        for (const auto& thread : threads)
            QVERIFY(thread->wait(60000));
        QVERIFY2(allCame, "some listeners have not heard everything");

        QSet<QByteArray> written; // except the transactions that created the store
        for (const QByteArray& key : column("SELECT batchKey FROM ChangeTransactions WHERE number > 1"))
            written.insert(key);
        int acknowledged = 0;
        for (const Writer& pen : pens) {
            acknowledged += pen.acknowledged.size();
            for (const QByteArray& key : pen.acknowledged)
                QVERIFY2(written.remove(key), "an acknowledged write is lost");
            for (const QByteArray& key : pen.refused)
                QVERIFY2(!written.contains(key), "a refused batch was written");
        }
        QVERIFY2(written.isEmpty(), "something was written that nobody knows of");
        QVERIFY(acknowledged > 50);

        const auto log =
            column("SELECT number || ' ' || event || ' ' || tableName || ' ' || rowKey FROM ChangeLog "
                   "ORDER BY number, entry");
        auto rows = column("SELECT KeyLink || '=' || name_ FROM Roles");
        std::sort(rows.begin(), rows.end());
        for (const Listener& one : all) {
            int first = 0;
            while (first < log.size() && log.at(first).split(' ').first().toLongLong() <= one.start.number)
                ++first;
            const auto due = log.mid(first);
            for (int i = 0; i < std::max(one.heard.size(), due.size()); ++i)
                QCOMPARE(one.heard.value(i), due.value(i));
            QCOMPARE(one.restarts, 0);
            QCOMPARE(one.breaks, 0);
            QVector<QByteArray> state;
            for (auto row = one.rows.cbegin(); row != one.rows.cend(); ++row)
                state.append(row.key() + '=' + row.value());
            std::sort(state.begin(), state.end());
            QCOMPARE(state, rows);
        }
        qInfo("%d writes, %d changes", acknowledged, int(log.size()));
        StoreError error;
        QVector<StoreAdmin::Finding> findings;
        QVERIFY(StoreAdmin::check(m_cluster->url(m_database), &findings, &error));
        for (const auto& finding : findings)
            QFAIL(qPrintable(finding.text));
    }
    static void waitAWhile() { QTest::qWait(isLong() ? 60000 : 3000); }

private slots:
    void initTestCase() { m_cluster = std::make_unique<PrivateCluster>(); }
    void init()
    {
        static int count = 0;
        m_database = QStringLiteral("storm%1").arg(++count);
        StoreError error;
        QVERIFY2(StoreAdmin::init(m_cluster->url(m_database), "Windows-1251", "Europe/Moscow", &error),
                 qPrintable(error.text + error.detail));
    }

    void everyListenerSeesEveryChangeOnceInTheSameOrder()
    {
        storm(m_cluster->url(m_database), [] { waitAWhile(); });
    }

    void spoiltConnectionsLoseAndDoubleNothing()
    {
        FaultProxy proxy(m_cluster->socketFolder(), 7);
        storm(urlThrough(proxy.socketFolder()), [&] {
            waitAWhile();
            proxy.heal();
        });
        QVERIFY(proxy.faults() > 20);
        qInfo("%d connections were spoilt", proxy.faults());
    }

    void restartedServerLosesNothing()
    {
        storm(m_cluster->url(m_database), [&] {
            for (int i = 0; i < (isLong() ? 10 : 2); ++i) {
                QTest::qWait(1000);
                m_cluster->stop();
                m_cluster->start();
            }
            QTest::qWait(1000);
        });
    }

    void killedServerLosesNothingThatWasAcknowledged()
    {
        if (!isLong())
            QSKIP("kills of the server belong to the long run");
        storm(m_cluster->url(m_database), [&] {
            for (int i = 0; i < 50; ++i) {
                QTest::qWait(1000);
                m_cluster->kill();
                m_cluster->start();
            }
            QTest::qWait(1000);
        });
    }
};

QTEST_GUILESS_MAIN(PostgresStore_storm_test)
#include "PostgresStore_storm_test.moc"
