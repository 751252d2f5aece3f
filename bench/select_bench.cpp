// Compares selects with plain stepping through the same rows with every column read.

#include "BenchStore.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <sqlite3.h>
#include <string>

namespace
{
constexpr char sql[] = "SELECT * FROM LogbookRecords WHERE ShiftKey='SHIFT'";

BenchStore& store()
{
    static BenchStore made(10000);
    return made;
}

void plainSqlite(benchmark::State& state)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(store().file().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
        std::size_t bytes = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < 15; ++i) {
                if (sqlite3_column_type(statement, i) == SQLITE_TEXT) {
                    benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
                    bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, i));
                } else {
                    benchmark::DoNotOptimize(sqlite3_column_double(statement, i));
                }
            }
        }
        benchmark::DoNotOptimize(bytes);
        sqlite3_finalize(statement);
    }
    sqlite3_close(db);
}
BENCHMARK(plainSqlite)->Unit(benchmark::kMillisecond);

void storeSelect(benchmark::State& state)
{
    StoreError error;
    for (auto _ : state) {
        MDArray* answer = store().loader()->select(sql, &error);
        state.PauseTiming();
        if (MDAKeyRecCount(answer, 0) != 10000)
            state.SkipWithError("wrong count");
        MDADestroy(answer);
        state.ResumeTiming();
    }
}
BENCHMARK(storeSelect)->Unit(benchmark::kMillisecond);

long residentKilobytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stol(line.substr(6));
    return 0;
}

/// An interval with 2 GB of attached files: they must stay in the store.
void selectOverTwoGigabytesOfFiles(benchmark::State& state)
{
    BenchStore big(10);
    CRowBatch records(LogbookRecordFields, fieldCount(LogbookRecordFields));
    records.RecPost(BenchStore::newRecord(records, 0));
    QByteArray recordKey;
    MDRVar key;
    MDRGetVal(MDRFldByNum(records.array, 0), MDARec(records.array, 0, 0), &key);
    recordKey = MDRValue::copy(key);
    big.write("LogbookRecords", records);
    const QByteArray bytes(20 << 20, 'x');
    for (int i = 0; i < 100; ++i) {
        CRowBatch file(LogbookFilesFields, fieldCount(LogbookFilesFields));
        MDRData* row = file.newRow(ROW_INSERT, GenGuid32());
        file.SetValF(row, "RecordKey", MDRValue::text(recordKey));
        file.SetValF(row, "fileData", MDRValue::text(bytes, mdr_TBlob));
        file.RecPost(row);
        big.write("LogbookFiles", file);
    }
    StoreError error;
    const QByteArray select = "SELECT * FROM LogbookFiles WHERE RecordKey IN ('" + recordKey + "')";
    for (auto _ : state) {
        MDArray* answer = big.loader()->select(select, &error);
        if (MDAKeyRecCount(answer, 0) != 100)
            state.SkipWithError("wrong count");
        MDADestroy(answer);
    }
    state.counters["peak_MB"] = static_cast<double>(residentKilobytes()) / 1024;
}
BENCHMARK(selectOverTwoGigabytesOfFiles)->Unit(benchmark::kMillisecond)->Iterations(20);
} // namespace

BENCHMARK_MAIN();
