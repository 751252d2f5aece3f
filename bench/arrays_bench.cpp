// Compares record arrays with a map and a sorted vector of the standard library, and with reading the same
// rows from SQLite. Read the figures as ratios within one run.

#include "GenGuid32.h"
#include "LogbookFields.h"
#include "MDRValues.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <map>
#include <random>
#include <sqlite3.h>
#include <string>

namespace
{
struct Row {
    std::string key;
    double time = 0.0;
};

std::vector<std::string> makeKeys(std::size_t count)
{
    std::vector<std::string> keys;
    for (std::size_t i = 0; i < count; ++i)
        keys.push_back(GenGuid32().toStdString());
    return keys;
}

const MDRFieldDescr rowFields[] = {{"KeyLink", 32, mdr_TChar}, {"time", 0, mdr_TDouble}};

MDRVar textOf(const std::string& text)
{
    return MDRValue::text(text.data(), static_cast<int>(text.size()));
}

/// An array with one key over KeyLink.
class KeyedArray : public CMDArray
{
public:
    KeyedArray()
    {
        MDACreate(&array, 0);
        MDAFldAdd(array, 2, rowFields);
        KeyAdd("KeyLink", 0);
    }
    void add(const std::string& key)
    {
        MDRData* record = MDARecNew(array);
        const MDRVar text = textOf(key);
        const MDRVar time = MDRValue::real(1.0);
        MDRSetVal(MDRFldByNum(array, 0), record, &text);
        MDRSetVal(MDRFldByNum(array, 1), record, &time);
        MDARecPost(record, nullptr);
    }
};

using Sorted = std::vector<std::unique_ptr<Row>>;

bool before(const std::unique_ptr<Row>& row, const std::string& key)
{
    return row->key < key;
}

void addSorted(Sorted& rows, const std::string& key)
{
    rows.insert(std::lower_bound(rows.begin(), rows.end(), key, before),
                std::make_unique<Row>(Row{key, 1.0}));
}

/// Order of the keys to look up, the same for all.
std::vector<std::size_t> makeOrder(std::size_t count)
{
    std::vector<std::size_t> order(count);
    for (std::size_t i = 0; i < count; ++i)
        order[i] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    return order;
}

std::size_t size(const benchmark::State& state)
{
    return static_cast<std::size_t>(state.range(0));
}

void count(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// --- insertion of keys in random order ---

void insertArray(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    for (auto _ : state) {
        KeyedArray array;
        for (const std::string& key : keys)
            array.add(key);
        benchmark::DoNotOptimize(array.RecCount());
    }
    count(state);
}

void insertMap(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    for (auto _ : state) {
        std::map<std::string, Row> rows;
        for (const std::string& key : keys)
            rows.emplace(key, Row{key, 1.0});
        benchmark::DoNotOptimize(rows.size());
    }
    count(state);
}

void insertVector(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    for (auto _ : state) {
        Sorted rows;
        for (const std::string& key : keys)
            addSorted(rows, key);
        benchmark::DoNotOptimize(rows.size());
    }
    count(state);
}

// --- one insertion and deletion in a large array ---

void insertOneArray(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    const auto more = makeKeys(1000);
    KeyedArray array;
    for (const std::string& key : keys)
        array.add(key);
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string& key = more[i++ % more.size()];
        array.add(key);
        const MDRVar text = textOf(key);
        MDARecDel(MDARecSeekV(array.array, 0, &text, 0));
    }
}

void insertOneVector(benchmark::State& state)
{
    const auto more = makeKeys(1000);
    Sorted rows;
    for (const std::string& key : makeKeys(size(state)))
        rows.push_back(std::make_unique<Row>(Row{key, 1.0}));
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a->key < b->key; });
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string& key = more[i++ % more.size()];
        addSorted(rows, key);
        rows.erase(std::lower_bound(rows.begin(), rows.end(), key, before));
    }
}

// --- seeking every key in random order ---

void seekArray(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    const auto order = makeOrder(keys.size());
    KeyedArray array;
    for (const std::string& key : keys)
        array.add(key);
    for (auto _ : state) {
        for (std::size_t i : order) {
            const MDRVar text = textOf(keys[i]);
            benchmark::DoNotOptimize(MDARecSeekV(array.array, 0, &text, 0));
        }
    }
    count(state);
}

void seekIndex(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    const auto order = makeOrder(keys.size());
    KeyedArray array;
    for (const std::string& key : keys)
        array.add(key);
    for (auto _ : state) {
        for (std::size_t i : order)
            benchmark::DoNotOptimize(MDARecsWith(array.array, "KeyLink", keys[i].c_str()));
    }
    count(state);
}

void seekMap(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    const auto order = makeOrder(keys.size());
    std::map<std::string, Row> rows;
    for (const std::string& key : keys)
        rows.emplace(key, Row{key, 1.0});
    for (auto _ : state) {
        for (std::size_t i : order)
            benchmark::DoNotOptimize(rows.find(keys[i]));
    }
    count(state);
}

void seekVector(benchmark::State& state)
{
    const auto keys = makeKeys(size(state));
    const auto order = makeOrder(keys.size());
    Sorted rows;
    for (const std::string& key : keys)
        rows.push_back(std::make_unique<Row>(Row{key, 1.0}));
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a->key < b->key; });
    for (auto _ : state) {
        for (std::size_t i : order)
            benchmark::DoNotOptimize(std::lower_bound(rows.begin(), rows.end(), keys[i], before));
    }
    count(state);
}

// --- positions ---

void positionArray(benchmark::State& state)
{
    const auto order = makeOrder(size(state));
    KeyedArray array;
    for (const std::string& key : makeKeys(size(state)))
        array.add(key);
    for (auto _ : state) {
        for (std::size_t i : order)
            benchmark::DoNotOptimize(MDARec(array.array, 0, static_cast<int>(i)));
    }
    count(state);
}

void walkArray(benchmark::State& state)
{
    KeyedArray array;
    for (const std::string& key : makeKeys(size(state)))
        array.add(key);
    for (auto _ : state) {
        const MDRField* field = MDRFldByName(array.array, "time");
        double sum = 0.0;
        for (int i = 0; i < array.RecCount(); ++i) {
            MDRVar value;
            MDRGetVal(field, MDARec(array.array, 0, i), &value);
            sum += value.value.real;
        }
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}

void walkMap(benchmark::State& state)
{
    std::map<std::string, Row> rows;
    for (const std::string& key : makeKeys(size(state)))
        rows.emplace(key, Row{key, 1.0});
    for (auto _ : state) {
        double sum = 0.0;
        for (const auto& row : rows)
            sum += row.second.time;
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}

void walkVector(benchmark::State& state)
{
    Sorted rows;
    for (const std::string& key : makeKeys(size(state)))
        rows.push_back(std::make_unique<Row>(Row{key, 1.0}));
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a->key < b->key; });
    for (auto _ : state) {
        double sum = 0.0;
        for (const auto& row : rows)
            sum += row->time;
        benchmark::DoNotOptimize(sum);
    }
    count(state);
}

// --- an answer of the journal: rows of 15 columns ---

/// The texts of one journal record, as returned by a select.
struct JournalRow {
    std::string keys[7];
    double times[5] = {1795168800, 1795168801, 1795168802, 0, 0};
    std::string html;
};

std::vector<JournalRow> makeJournal(std::size_t count)
{
    std::vector<JournalRow> rows(count);
    for (JournalRow& row : rows) {
        for (std::string& key : row.keys)
            key = GenGuid32().toStdString();
        row.html = std::string(300, 'h');
    }
    return rows;
}

void fillArray(benchmark::State& state)
{
    const auto rows = makeJournal(size(state));
    for (auto _ : state) {
        CRowBatch answer(LogbookRecordFields, fieldCount(LogbookRecordFields));
        const MDRField* fields[15];
        for (int i = 0; i < 15; ++i)
            fields[i] = MDRFldByNum(answer.array, i);
        for (const JournalRow& row : rows) {
            MDRData* record = MDARecNew(answer.array);
            int field = 0;
            for (const std::string& key : row.keys) {
                const MDRVar value = textOf(key);
                MDRSetVal(fields[field++], record, &value);
            }
            for (double time : row.times) {
                const MDRVar value = MDRValue::real(time);
                MDRSetVal(fields[field++], record, &value);
            }
            const MDRVar html = textOf(row.html);
            MDRSetVal(fields[field++], record, &html);
            const MDRVar number = MDRValue::number(1);
            MDRSetVal(fields[field++], record, &number);
            MDRSetVal(fields[field++], record, &number);
            MDARecPost(record, nullptr);
        }
        benchmark::DoNotOptimize(answer.RecCount());
    }
    count(state);
}

void fillFromSqlite(benchmark::State& state)
{
    sqlite3* database = nullptr;
    sqlite3_open(":memory:", &database);
    sqlite3_exec(
        database,
        "CREATE TABLE r (a TEXT, b TEXT, c TEXT, d TEXT, e TEXT, f TEXT, g TEXT, h REAL, i REAL, j REAL,"
        " k REAL, l REAL, m TEXT, n INTEGER, o INTEGER); BEGIN",
        nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database, "INSERT INTO r VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)", -1, &insert,
                       nullptr);
    for (const JournalRow& row : makeJournal(size(state))) {
        int column = 1;
        for (const std::string& key : row.keys)
            sqlite3_bind_text(insert, column++, key.c_str(), -1, nullptr);
        for (double time : row.times)
            sqlite3_bind_double(insert, column++, time);
        sqlite3_bind_text(insert, column++, row.html.c_str(), -1, nullptr);
        sqlite3_bind_int(insert, column++, 1);
        sqlite3_bind_int(insert, column++, 1);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);

    for (auto _ : state) {
        sqlite3_stmt* select = nullptr;
        sqlite3_prepare_v2(database, "SELECT * FROM r", -1, &select, nullptr);
        double sum = 0.0;
        while (sqlite3_step(select) == SQLITE_ROW) {
            for (int column = 0; column < 15; ++column) {
                if (sqlite3_column_type(select, column) == SQLITE_TEXT) {
                    benchmark::DoNotOptimize(sqlite3_column_text(select, column));
                    sum += sqlite3_column_bytes(select, column);
                } else {
                    sum += sqlite3_column_double(select, column);
                }
            }
        }
        sqlite3_finalize(select);
        benchmark::DoNotOptimize(sum);
    }
    count(state);
    sqlite3_close(database);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
}
} // namespace

BENCHMARK(insertArray)->Apply(sizes);
BENCHMARK(insertMap)->Apply(sizes);
BENCHMARK(insertVector)->Apply(sizes);
BENCHMARK(insertOneArray)->Apply(sizes);
BENCHMARK(insertOneVector)->Apply(sizes);
BENCHMARK(seekArray)->Apply(sizes);
BENCHMARK(seekIndex)->Apply(sizes);
BENCHMARK(seekMap)->Apply(sizes);
BENCHMARK(seekVector)->Apply(sizes);
BENCHMARK(positionArray)->Apply(sizes);
BENCHMARK(walkArray)->Apply(sizes);
BENCHMARK(walkMap)->Apply(sizes);
BENCHMARK(walkVector)->Apply(sizes);
BENCHMARK(fillArray)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(fillFromSqlite)->Arg(10000)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
