// Compares the search over all shifts with a plain scan of the texts, on both engines, among 350,000
// records; measures the cost of the index for writes. VRK_SEARCH_RECORDS sets another number.

#include "../tests/support/PrivateCluster.h"
#include "CMDArray.h"
#include "CRowBatch.h"
#include "GenGuid32.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "Store.h"
#include "StoreAdmin.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextCodec>
#include <random>
#include <sqlite3.h>

namespace
{
constexpr double firstTime = 1450000000;
constexpr double between = 900; // seconds
constexpr int departments = 8;
constexpr int workers = 40;

enum Engine { Sqlite, Postgres };
const char* const engineNames[] = {"sqlite", "postgresql"};

int recordCount()
{
    static const int count = qEnvironmentVariableIntValue("VRK_SEARCH_RECORDS");
    return count > 0 ? count : 350000;
}

void require(bool done, const StoreError& error)
{
    if (!done)
        qFatal("%s %s", qPrintable(error.text), qPrintable(error.detail));
}

/// Texts like those of a journal: words of the demo's templates, few of them frequent, most of them rare.
class Texts
{
public:
    Texts() : m_random(7)
    {
        QFile file(QStringLiteral(VRK_TEMPLATES));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("no templates");
        QHash<QString, int> counts;
        const QString text = QString::fromUtf8(file.readAll()).toLower();
        const QRegularExpression word(QStringLiteral("[а-яё]{2,}"));
        for (auto match = word.globalMatch(text); match.hasNext();)
            ++counts[match.next().captured()];
        std::vector<double> weights;
        for (auto one = counts.cbegin(); one != counts.cend(); ++one) {
            m_words.append(one.key());
            weights.push_back(std::pow(one.value(), 1.3));
        }
        m_choice = std::discrete_distribution<int>(weights.begin(), weights.end());
    }
    QByteArray next(int number)
    {
        QString html =
            QStringLiteral("<p>На <a href=\"parameter:name=substation;data=%1\">ПС 110 кВ Узел-%1</a>")
                .arg(m_random() % 300);
        for (int i = 0; i < 25; ++i)
            html += QLatin1Char(' ') + m_words.at(m_choice(m_random));
        if (number % 50000 == 777)
            html += QStringLiteral(" гололёдообразование");
        return m_codec->fromUnicode(html + QStringLiteral(".</p>"));
    }

private:
    std::mt19937 m_random;
    QStringList m_words;
    std::discrete_distribution<int> m_choice;
    QTextCodec* m_codec = QTextCodec::codecForName("Windows-1251");
};

class SearchStore
{
public:
    explicit SearchStore(Engine engine, int records)
    {
        static int count = 0;
        if (engine == Sqlite) {
            m_file = m_folder.filePath(QStringLiteral("journal.vrk"));
            m_url = QStringLiteral("sqlite://") + m_file;
        } else {
            m_database = QStringLiteral("bench%1").arg(++count);
            m_url = PrivateCluster::shared().url(m_database);
        }
        require(StoreAdmin::init(m_url, "Windows-1251", "Europe/Moscow", &m_error), m_error);
        Store::Options options;
        options.loader = true;
        options.deadlineMs = 600000;
        m_store = Store::open(m_url, options, &m_error);
        require(m_store != nullptr, m_error);
        CRowBatch shifts(LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields));
        for (int i = 0; i < departments; ++i) {
            MDRData* shift = shifts.newRow(ROW_INSERT, "SHIFT" + QByteArray::number(i));
            const QByteArray department = "DEPARTMENT" + QByteArray::number(i);
            shifts.SetValF(shift, "DepartmentKey", MDRValue::text(department));
            shifts.RecPost(shift);
        }
        write("LogbookWorkshifts", shifts);
        // A server that logs and indexes each row separately needs hours for an archive.
        if (engine == Postgres)
            exec("ALTER TABLE LogbookRecords DISABLE TRIGGER USER");
        while (m_written < records)
            add(qMin(10000, records - m_written));
        if (engine == Postgres) {
            exec("ALTER TABLE LogbookRecords ENABLE TRIGGER USER");
            require(StoreAdmin::rebuildSearch(m_url, &m_error), m_error);
            exec("VACUUM ANALYZE");
        }
    }

    Store* store() { return m_store.get(); }
    /// Nanoseconds for one transaction with this number of additional records.
    void add(int records)
    {
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        for (int i = 0; i < records; ++i, ++m_written) {
            MDRData* row = batch.newRow(ROW_INSERT, GenGuid32());
            const QByteArray shift = "SHIFT" + QByteArray::number(m_written % departments);
            const QByteArray worker = "WORKER" + QByteArray::number(m_written % workers);
            const QByteArray html = m_texts.next(m_written);
            batch.SetValF(row, "ShiftKey", MDRValue::text(shift));
            batch.SetValF(row, "WorkerKey", MDRValue::text(worker));
            batch.SetValF(row, "recordTime", MDRValue::real(firstTime + between * m_written));
            batch.SetValF(row, "html", MDRValue::text(html));
            batch.SetValF(row, "status", MDRValue::number(m_written % 30 == 0 ? 2 : 0));
            batch.RecPost(row);
        }
        QElapsedTimer clock;
        clock.start();
        write("LogbookRecords", batch);
        m_taken = clock.nsecsElapsed();
    }
    qint64 taken() const { return m_taken; }
    void withoutIndex()
    {
        exec(m_file.isEmpty() ? "ALTER TABLE LogbookRecords DISABLE TRIGGER Y_Search"
                              : "DROP TRIGGER Search_Records_insert");
    }

private:
    void write(const char* table, const CRowBatch& batch)
    {
        require(m_store->apply({{table, batch.array}}, GenGuid32(), &m_error), m_error);
    }
    void exec(const char* sql)
    {
        if (m_file.isEmpty()) {
            PgConnection link(m_url, 600000);
            require(link.connect(link.connectMs(), &m_error) && link.exec(sql, &m_error), m_error);
            return;
        }
        sqlite3* raw = nullptr;
        sqlite3_open(m_file.toUtf8().constData(), &raw);
        sqlite3_exec(raw, sql, nullptr, nullptr, nullptr);
        sqlite3_close(raw);
    }

    QTemporaryDir m_folder;
    QString m_file;
    QString m_database;
    QString m_url;
    StoreError m_error;
    std::unique_ptr<Store> m_store;
    Texts m_texts;
    int m_written = 0;
    qint64 m_taken = 0;
};

Store* filled(Engine engine)
{
    static std::unique_ptr<SearchStore> stores[2];
    if (!stores[engine])
        stores[engine] = std::make_unique<SearchStore>(engine, recordCount());
    return stores[engine]->store();
}

RecordQuery queryOf(int kind)
{
    RecordQuery query;
    const double end = firstTime + between * recordCount();
    switch (kind) {
    case 0:
        query.words = QStringLiteral("гололёдообразование");
        break;
    case 1:
        query.words = QStringLiteral("подстанция");
        break;
    case 2:
        query.words = QStringLiteral("отключена линия защитой");
        break;
    case 3:
        query.words = QStringLiteral("на");
        query.departmentKey = "DEPARTMENT3";
        query.workerKey = "WORKER11";
        break;
    case 4:
        query.words = QStringLiteral("время");
        query.from = firstTime + 1000 * between;
        query.to = firstTime + 1100 * between; // long ago
        break;
    case 5:
        query.equipment = QStringLiteral("Узел 17");
        break;
    case 6:
        query.words = QStringLiteral("бригада");
        query.status = 2;
        query.to = end / 2 + firstTime / 2;
        break;
    case 7:
        query.words = QStringLiteral("отключена линия неслыханно");
        break;
    }
    return query;
}
const char* const kindNames[] = {"rare word",  "common word", "three words",         "department and author",
                                 "old period", "equipment",   "deleted, first half", "nothing found"};

void search(benchmark::State& state)
{
    const auto engine = static_cast<Engine>(state.range(0));
    const int kind = static_cast<int>(state.range(1));
    Store* store = filled(engine);
    int hits = 0;
    for (auto _ : state) {
        StoreError error;
        CMDArray answer;
        answer = store->search(queryOf(kind), &error);
        require(answer.array != nullptr, error);
        hits = answer.RecCount();
    }
    state.SetLabel(std::string(engineNames[engine]) + ": " + kindNames[kind] + ", " + std::to_string(hits) +
                   " hits");
}

void scan(benchmark::State& state)
{
    const auto engine = static_cast<Engine>(state.range(0));
    Store* store = filled(engine);
    const bool rare = state.range(1) == 0;
    const QByteArray sql =
        QStringLiteral("SELECT * FROM LogbookRecords WHERE html LIKE '%%1%' ORDER BY recordTime DESC "
                       "LIMIT 500")
            .arg(rare ? QStringLiteral("гололёдообразование") : QStringLiteral("неслыханно"))
            .toUtf8();
    for (auto _ : state) {
        StoreError error;
        CMDArray answer;
        answer = store->select(sql, &error);
        require(answer.array != nullptr, error);
    }
    state.SetLabel(std::string(engineNames[engine]) + (rare ? ": LIKE, rare word" : ": LIKE, nothing found"));
}

void insert(benchmark::State& state)
{
    const auto engine = static_cast<Engine>(state.range(0));
    const bool indexed = state.range(1) == 1;
    SearchStore store(engine, 20000);
    if (!indexed)
        store.withoutIndex();
    for (auto _ : state) {
        store.add(10000);
        state.SetIterationTime(static_cast<double>(store.taken()) * 1e-9);
    }
    state.SetLabel(std::string(engineNames[engine]) + (indexed ? ": 10,000 records" : ": without the index"));
}
} // namespace

BENCHMARK(search)
    ->ArgsProduct({{Sqlite, Postgres}, {0, 1, 2, 3, 4, 5, 6, 7}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(scan)->ArgsProduct({{Sqlite, Postgres}, {0, 1}})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(insert)
    ->ArgsProduct({{Sqlite, Postgres}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(3);

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
