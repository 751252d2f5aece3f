#include "ChangeFeed.h"
#include "CMDArray.h"
#include "GenGuid32.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "PrivateCluster.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <algorithm>
#include <atomic>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <sqlite3.h>

namespace
{
bool isLong()
{
    return qEnvironmentVariableIsSet("VRK_LONG");
}

std::unique_ptr<Store> opened(const QString& url)
{
    Store::Options options;
    options.loader = true;
    StoreError error;
    auto store = Store::open(url, options, &error);
    if (!store)
        qFatal("%s %s", qPrintable(error.text), qPrintable(error.detail));
    return store;
}

/// Listening sessions, ten in a thread.
class Audience
{
public:
    using Heard = std::function<void(int listener, const StoreChange&)>;

    Audience(const QString& url, int count, Heard heard) : m_heard(std::move(heard))
    {
        for (int first = 0; first < count; first += 10) {
            const int last = std::min(count, first + 10);
            m_threads.emplace_back(QThread::create([this, url, first, last] { listen(url, first, last); }));
            m_threads.back()->start();
        }
        if (!QTest::qWaitFor([&] { return m_ready == count; }, 120000))
            qFatal("the listeners do not come");
    }
    ~Audience()
    {
        m_isEnding = true;
        for (const auto& thread : m_threads)
            thread->wait();
    }

private:
    void listen(const QString& url, int first, int last)
    {
        std::vector<std::unique_ptr<Store>> stores;
        std::vector<std::unique_ptr<ChangeFeed>> feeds;
        for (int i = first; i < last; ++i) {
            stores.push_back(opened(url));
            feeds.push_back(std::make_unique<ChangeFeed>(stores.back().get()));
            ChangeFeed* feed = feeds.back().get();
            QObject::connect(feed, &ChangeFeed::arrived, feed,
                             [this, i](const QVector<StoreChange>& changes) {
                                 for (const StoreChange& change : changes)
                                     m_heard(i, change);
                             });
            StoreError error;
            if (!feed->start(&error))
                qFatal("%s", qPrintable(error.text));
            ++m_ready;
        }
        QEventLoop loop;
        QTimer end;
        QObject::connect(&end, &QTimer::timeout, &loop, [&] {
            if (m_isEnding)
                loop.quit();
        });
        end.start(50);
        loop.exec();
        feeds.clear();
    }

    Heard m_heard;
    std::vector<std::unique_ptr<QThread>> m_threads;
    std::atomic<bool> m_isEnding{false};
    std::atomic<int> m_ready{0};
};

qint64 median(QVector<qint64> times)
{
    std::sort(times.begin(), times.end());
    return times.value(times.size() / 2);
}
} // namespace

/// The cost of the server's store. The figures are printed; requirements are compared with a peer in the
/// same run.
class PostgresStore_figures_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<PrivateCluster> m_cluster;
    QString m_database;
    QString m_url;

    /// Fills a shift without the log, like an archive that exists before its readers.
    void fill(const QString& database, const char* shift, qint64 records, qint64 from, qint64 to) const
    {
        QCOMPARE(
            m_cluster->exec(
                QStringLiteral(
                    "ALTER TABLE LogbookRecords DISABLE TRIGGER USER; ALTER TABLE LogbookWorkshifts DISABLE "
                    "TRIGGER USER; "
                    "INSERT INTO LogbookWorkshifts (KeyLink, DepartmentKey, startTime, endTime) SELECT "
                    "'%1' || n, 'DEP', %3 + n * 43200, %3 + (n + 1) * 43200 FROM generate_series(0, (%4 - "
                    "%3) / "
                    "43200) AS n; "
                    "INSERT INTO LogbookRecords (KeyLink, ShiftKey, WorkerKey, recordTime, eventTime, html, "
                    "status, direction) SELECT md5('%1' || n), '%1' || ((t - %3) / 43200), 'WORKER', t, t, "
                    "repeat('Отключён выключатель В-110 ', 8) || n, 0, 0 FROM (SELECT n, %3 + n * (%4 - %3) "
                    "/ %2 "
                    "AS t FROM generate_series(0::bigint, %2 - 1) AS n) AS R; "
                    "ALTER TABLE LogbookRecords ENABLE TRIGGER USER; ALTER TABLE LogbookWorkshifts ENABLE "
                    "TRIGGER USER; ANALYZE LogbookRecords; ANALYZE LogbookWorkshifts")
                    .arg(QLatin1String(shift))
                    .arg(records)
                    .arg(from)
                    .arg(to),
                database),
            QString());
    }
    /// The time in which plain sqlite3 steps through the same rows in a file, in microseconds.
    qint64 timeInAFile(PGconn* raw, const QByteArray& sql) const
    {
        QTemporaryDir folder;
        sqlite3* file = nullptr;
        sqlite3_open(folder.filePath(QStringLiteral("rows")).toUtf8().constData(), &file);
        const std::unique_ptr<PGresult, decltype(&PQclear)> rows(PQexec(raw, sql.constData()), PQclear);
        const CatalogTable* table = TableCatalog::table("LogbookRecords");
        QByteArray columns;
        QByteArray places;
        for (const CatalogField& field : table->fields) {
            columns += (columns.isEmpty() ? "" : ", ") + field.name +
                       (field.type == mdr_TDouble  ? " REAL"
                        : field.type == mdr_TInt32 ? " INTEGER"
                                                   : " TEXT");
            places += places.isEmpty() ? "?" : ", ?";
        }
        sqlite3_exec(file,
                     ("CREATE TABLE LogbookRecords (" + columns +
                      "); CREATE INDEX Shift ON LogbookRecords (ShiftKey); BEGIN")
                         .constData(),
                     nullptr, nullptr, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(file, ("INSERT INTO LogbookRecords VALUES (" + places + ")").constData(), -1,
                           &statement, nullptr);
        for (int row = 0; row < PQntuples(rows.get()); ++row) {
            for (int column = 0; column < PQnfields(rows.get()); ++column) {
                if (PQgetisnull(rows.get(), row, column))
                    sqlite3_bind_null(statement, column + 1);
                else // the column's type makes numbers of the texts
                    sqlite3_bind_text(statement, column + 1, PQgetvalue(rows.get(), row, column), -1,
                                      SQLITE_TRANSIENT);
            }
            sqlite3_step(statement);
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
        sqlite3_exec(file, "COMMIT", nullptr, nullptr, nullptr);
        QVector<qint64> times;
        int count = 0;
        for (int i = 0; i < 7; ++i) {
            QElapsedTimer clock;
            clock.start();
            count = 0;
            qint64 bytes = 0;
            sqlite3_prepare_v2(file, sql.constData(), -1, &statement, nullptr);
            for (; sqlite3_step(statement) == SQLITE_ROW; ++count) {
                for (int column = 0; column < sqlite3_column_count(statement); ++column) {
                    switch (sqlite3_column_type(statement, column)) {
                    case SQLITE_TEXT:
                        bytes += sqlite3_column_text(statement, column)[0];
                        break;
                    case SQLITE_FLOAT:
                        bytes += sqlite3_column_double(statement, column) > 0;
                        break;
                    default:
                        bytes += sqlite3_column_int64(statement, column);
                    }
                }
            }
            sqlite3_finalize(statement);
            times.append(clock.nsecsElapsed() / 1000);
        }
        sqlite3_close(file);
        return count == 10000 ? median(times) : -1;
    }
    /// The times of a select through the store, in microseconds, and its rows.
    static QVector<qint64> timesOf(Store* store, const QByteArray& sql, int* rows)
    {
        QVector<qint64> times;
        for (int i = 0; i < 7; ++i) {
            QElapsedTimer clock;
            clock.start();
            StoreError error;
            CMDArray answer;
            answer = store->select(sql, &error);
            times.append(clock.nsecsElapsed() / 1000);
            *rows = answer.array ? answer.RecCount() : -1;
        }
        return times;
    }

    /// The shortest of many times: what a select takes when nothing else has the machine.
    static qint64 shortest(const QVector<qint64>& times)
    {
        return *std::min_element(times.cbegin(), times.cend());
    }
    /// The number of pages that the server reads for a select; the same on every machine.
    static int pagesOf(const QString& url, const QByteArray& sql)
    {
        StoreError error;
        PgConnection link(url, 60000);
        link.connect(link.connectMs(), &error);
        const PgResult plan = link.run("EXPLAIN (ANALYZE, BUFFERS, TIMING OFF, FORMAT JSON) " + sql, &error);
        if (!plan)
            qFatal("%s", qPrintable(error.text + error.detail));
        const QJsonObject all = QJsonDocument::fromJson(plan.bytes(0, 0))
                                    .array()
                                    .at(0)
                                    .toObject()
                                    .value(QStringLiteral("Plan"))
                                    .toObject();
        return all.value(QStringLiteral("Shared Hit Blocks")).toInt() +
               all.value(QStringLiteral("Shared Read Blocks")).toInt();
    }

private slots:
    void initTestCase() { m_cluster = std::make_unique<PrivateCluster>(); }
    void init()
    {
        static int count = 0;
        m_database = QStringLiteral("figures%1").arg(++count);
        m_url = m_cluster->url(m_database);
        StoreError error;
        QVERIFY2(StoreAdmin::init(m_url, "Windows-1251", "Europe/Moscow", &error),
                 qPrintable(error.text + error.detail));
    }

    void fromCommitToDeliveredEvent_data()
    {
        QTest::addColumn<int>("sessions");
        QTest::newRow("1 session") << 1;
        QTest::newRow("50 sessions") << 50;
        if (isLong())
            QTest::newRow("300 sessions") << 300;
    }
    void fromCommitToDeliveredEvent()
    {
        QFETCH(int, sessions);
        const int writes = isLong() ? 500 : 100; // fifty a second
        QElapsedTimer clock;
        clock.start();
        std::vector<std::atomic<qint64>> committed(static_cast<std::size_t>(writes));
        std::vector<QVector<qint64>> delays(static_cast<std::size_t>(sessions));
        std::atomic<int> heard{0};
        Audience audience(m_url, sessions, [&](int listener, const StoreChange& change) {
            // An event may arrive before the answer to its writer.
            const qint64 at = committed[change.key.toUInt()];
            delays[static_cast<std::size_t>(listener)].append(at > 0 ? clock.nsecsElapsed() / 1000 - at : 0);
            ++heard;
        });
        const auto writer = opened(m_url);
        for (int i = 0; i < writes; ++i) {
            const qint64 due = clock.elapsed() + 20;
            QVERIFY(TestStore::write(writer.get(), "Roles", ROW_INSERT, QByteArray::number(i)));
            committed[static_cast<std::size_t>(i)] = clock.nsecsElapsed() / 1000;
            QThread::msleep(static_cast<unsigned long>(std::max<qint64>(0, due - clock.elapsed())));
        }
        QTRY_COMPARE_WITH_TIMEOUT(heard.load(), sessions * writes, 20000);
        QVector<qint64> all;
        for (const auto& some : delays)
            all += some;
        std::sort(all.begin(), all.end());
        qInfo("%d sessions: median %.1f ms, 99th percentile %.1f ms", sessions, double(median(all)) / 1000,
              double(all.value(all.size() * 99 / 100)) / 1000);
    }

    void shiftOfTenThousandRecordsAgainstReadingItRaw()
    {
        fill(m_database, "S", 10000, 1700000000, 1700043199);
        const QByteArray sql = "SELECT * FROM LogbookRecords WHERE ShiftKey='S0'";
        const auto store = opened(m_url);
        int rows = 0;
        const qint64 ours = median(timesOf(store.get(), sql, &rows));
        QCOMPARE(rows, 10000);

        PGconn* raw = PQconnectdb(m_url.toUtf8().constData());
        QVector<qint64> times;
        for (int i = 0; i < 7; ++i) {
            QElapsedTimer clock;
            clock.start();
            int count = 0;
            qint64 bytes = 0;
            PQsendQueryParams(raw, sql.constData(), 0, nullptr, nullptr, nullptr, nullptr, 1);
            PQsetSingleRowMode(raw);
            while (PGresult* result = PQgetResult(raw)) {
                count += PQntuples(result);
                for (int column = 0; PQntuples(result) > 0 && column < PQnfields(result); ++column)
                    bytes += PQgetlength(result, 0, column);
                PQclear(result);
            }
            times.append(clock.nsecsElapsed() / 1000);
            QCOMPARE(count, 10000);
            QVERIFY(bytes > 0);
        }
        const double ratio = double(ours) / double(median(times));
        const qint64 inFile = timeInAFile(raw, sql);
        PQfinish(raw);
        qInfo("10,000 records: %.1f ms; raw %.1f ms, ratio %.2f; sqlite3 %.1f ms, ratio %.2f",
              double(ours) / 1000, double(median(times)) / 1000, ratio, double(inFile) / 1000,
              double(ours) / double(inFile));
        QVERIFY(inFile > 0);
        QVERIFY(ratio < 4);
    }

    void archiveDoesNotSlowTheJournalDown()
    {
        const qint64 now = 1763600000;
        const qint64 tenYears = 10 * 365 * 86400LL;
        // Only the last fortnight, and the same after ten years of records.
        const QString young = m_database + QStringLiteral("_young");
        StoreError error;
        QVERIFY(StoreAdmin::init(m_cluster->url(young), "Windows-1251", "Europe/Moscow", &error));
        for (const QString& database : {young, m_database})
            fill(database, "NOW", 10000, now - 14 * 86400, now);
        fill(m_database, "OLD", isLong() ? 2000000 : 100000, now - tenYears, now - 14 * 86400 - 1);
        // or the server would do it during the measurement
        for (const QString& database : {young, m_database})
            QCOMPARE(m_cluster->exec(QStringLiteral("VACUUM ANALYZE"), database), QString());
        QCOMPARE(m_cluster->exec(QStringLiteral("CHECKPOINT")), QString());

        const QByteArray shift = "SELECT * FROM LogbookRecords WHERE ShiftKey='NOW20'";
        const QByteArray week = "SELECT LogbookRecords.* FROM LogbookRecords INNER JOIN LogbookWorkshifts ON "
                                "LogbookWorkshifts.KeyLink = LogbookRecords.ShiftKey WHERE "
                                "LogbookWorkshifts.DepartmentKey = 'DEP' AND recordTime >= " +
                                QByteArray::number(now - 7 * 86400) +
                                " AND recordTime <= " + QByteArray::number(now) + ";";
        const auto alone = opened(m_cluster->url(young));
        const auto store = opened(m_url);
        for (const QByteArray& sql : {shift, week}) {
            QVector<qint64> before;
            QVector<qint64> after;
            int rows = 0;
            int rowsAlone = 0;
            for (int i = 0; i < (isLong() ? 60 : 5); ++i) { // alternating, so that other load affects both
                before += timesOf(alone.get(), sql, &rowsAlone);
                after += timesOf(store.get(), sql, &rows);
            }
            QCOMPARE(rows, rowsAlone);
            QVERIFY(rows > (sql == shift ? 100 : 4000));
            const int pagesBefore = pagesOf(m_cluster->url(young), sql);
            const int pagesAfter = pagesOf(m_url, sql);
            const double ratio = double(shortest(after)) / double(shortest(before));
            qInfo("%s with ten years behind: %d pages instead of %d, %.2f ms instead of %.2f ms, ratio %.2f",
                  sql == shift ? "a shift" : "a week", pagesAfter, pagesBefore,
                  double(shortest(after)) / 1000, double(shortest(before)) / 1000, ratio);
            QVERIFY(pagesBefore > 20);
            QVERIFY2(pagesAfter < 1.5 * pagesBefore, qPrintable(QString::number(pagesAfter)));
            if (isLong())
                QVERIFY2(ratio < 1.5, qPrintable(QString::number(ratio)));
        }
    }

    void allSessionsAreCurrentAgainAfterARestart()
    {
        const int sessions = isLong() ? 300 : 50;
        std::atomic<int> heard{0};
        Audience audience(m_url, sessions,
                          [&](int, const StoreChange& change) { heard += change.key == "AFTER"; });
        m_cluster->stop();
        m_cluster->start();
        QElapsedTimer clock;
        clock.start();
        QVERIFY(TestStore::write(opened(m_url).get(), "Roles", ROW_INSERT, "AFTER"));
        QTRY_COMPARE_WITH_TIMEOUT(heard.load(), sessions, 15000);
        qInfo("%d sessions are current again after %.1f s", sessions, double(clock.elapsed()) / 1000);
    }
};

QTEST_GUILESS_MAIN(PostgresStore_figures_test)
#include "PostgresStore_figures_test.moc"
