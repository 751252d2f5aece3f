// The page of a department's journal: opening a long shift compared with reading the same rows with plain
// sqlite3, and one change event in shifts of increasing length. Read the counter ratio of openShift; events
// should cost the same for any number of records.

#include "BenchJournal.h"

#include <ctime>
#include <sqlite3.h>

using namespace BenchJournal;

namespace
{
/// Reads all rows of a select; texts are copied, blobs are only measured.
std::size_t readPlain(sqlite3* db, const std::string& sql, std::vector<std::string>* keys = nullptr)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        fail(sqlite3_errmsg(db));
    std::vector<std::vector<std::string>> rows;
    std::size_t bytes = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::vector<std::string> row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            switch (sqlite3_column_type(statement, i)) {
            case SQLITE_TEXT:
                row.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
                break;
            case SQLITE_BLOB:
                bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, i));
                break;
            default:
                benchmark::DoNotOptimize(sqlite3_column_double(statement, i));
            }
        }
        if (keys)
            keys->push_back(row.front());
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
    return bytes + rows.size();
}

void readPlain(const Journal& journal)
{
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(journal.path().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        fail("sqlite3 cannot open the journal");
    std::vector<std::string> keys;
    benchmark::DoNotOptimize(readPlain(db, "SELECT * FROM LogbookRecords WHERE ShiftKey='SHIFT'", &keys));
    std::string list;
    for (const std::string& key : keys)
        list += (list.empty() ? "'" : ",'") + key + "'";
    benchmark::DoNotOptimize(
        readPlain(db, "SELECT * FROM LogbookComments WHERE RecordKey IN (" + list + ")"));
    benchmark::DoNotOptimize(readPlain(db, "SELECT * FROM LogbookFiles WHERE RecordKey IN (" + list + ")"));
    sqlite3_close(db);
}

/// From the creation of the page to its first painted frame. The ratio is one of processor times, so it is
/// valid on a busy machine.
void openShift(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    const Journal& journal = journalOf({10000, 5000, 1000});
    Client client(journal);
    double ours = 0;
    double plain = 0;
    for (auto _ : state) {
        const std::clock_t begin = std::clock();
        readPlain(journal);
        const std::clock_t middle = std::clock();
        const auto opened = Clock::now();
        client.open();
        const std::clock_t end = std::clock();
        state.SetIterationTime(seconds(Clock::now() - opened));
        client.close();
        plain += double(middle - begin);
        ours += double(end - middle);
    }
    state.counters["ratio"] = ours / plain;
}

/// A page with many records, including the queries of the tool bar at each of its signals.
LogBookWidget* pageOf(Client& client)
{
    LogBookWidget* tab = client.open();
    const auto ask = [tab] {
        benchmark::DoNotOptimize(tab->isRecordCreatable() || tab->isRecordDeletable() ||
                                 tab->isExistMyDrafts() || tab->isExistDrafts() || tab->isExistNoSign() ||
                                 tab->isTimeExecutionChangable());
    };
    QObject::connect(tab, &LogBookWidget::recordAdded, ask);
    QObject::connect(tab, &LogBookWidget::recordUpdated, ask);
    QObject::connect(tab, &LogBookWidget::changedSelectedRecord, ask);
    return tab;
}

Sizes growing(const benchmark::State& state)
{
    const int records = static_cast<int>(state.range(0));
    return {records, records / 2, records / 10};
}

void changedRecord(benchmark::State& state)
{
    Client client(journalOf(growing(state)));
    LogBookWidget* tab = pageOf(client);
    const QByteArray key = numbered("R", static_cast<int>(state.range(0)) / 2);
    const QByteArray texts[] = {recordText(1), recordText(3)};
    const MadeEvent events[] = {
        {EventChanged, "LogbookRecords", LogbookRecordFields, key, {{"html", MDRValue::text(texts[0])}}},
        {EventChanged, "LogbookRecords", LogbookRecordFields, key, {{"html", MDRValue::text(texts[1])}}}};
    int turn = 0;
    for (auto _ : state)
        events[++turn % 2].sendTo(tab);
}

void newAndDeletedRecord(benchmark::State& state)
{
    Client client(journalOf(growing(state)));
    LogBookWidget* tab = pageOf(client);
    const QByteArray html = recordText(3);
    const MadeEvent inserted(EventInserted, "LogbookRecords", LogbookRecordFields, "NEW",
                             {{"ShiftKey", MDRValue::text("SHIFT")},
                              {"WorkerKey", MDRValue::text("W1")},
                              {"recordTime", MDRValue::real(startTime + 1e6)},
                              {"html", MDRValue::text(html)},
                              {"status", MDRValue::number(1)}});
    const MadeEvent deleted(EventDeleted, "LogbookRecords", LogbookRecordFields, "NEW", {});
    for (auto _ : state) {
        inserted.sendTo(tab);
        deleted.sendTo(tab);
    }
}

void newAndDeletedComment(benchmark::State& state)
{
    Client client(journalOf(growing(state)));
    LogBookWidget* tab = pageOf(client);
    const QByteArray record = numbered("R", 1);
    const MadeEvent inserted(EventInserted, "LogbookComments", LogbookCommentFields, "NEW",
                             {{"WorkerKey", MDRValue::text("W1")},
                              {"RecordKey", MDRValue::text(record)},
                              {"commentTime", MDRValue::real(startTime)},
                              {"text_", MDRValue::text("agreed")}});
    const MadeEvent deleted(EventDeleted, "LogbookComments", LogbookCommentFields, "NEW", {});
    for (auto _ : state) {
        inserted.sendTo(tab);
        deleted.sendTo(tab);
    }
}

void newAndDeletedFile(benchmark::State& state)
{
    Client client(journalOf(growing(state)));
    LogBookWidget* tab = pageOf(client);
    const QByteArray record = numbered("R", 1);
    const MadeEvent inserted(EventInserted, "LogbookFiles", LogbookFilesFields, "NEW",
                             {{"WorkerKey", MDRValue::text("W1")},
                              {"RecordKey", MDRValue::text(record)},
                              {"fileName", MDRValue::text("a.txt")},
                              {"fileData", MDRValue::null()}});
    const MadeEvent deleted(EventDeleted, "LogbookFiles", LogbookFilesFields, "NEW", {});
    for (auto _ : state) {
        inserted.sendTo(tab);
        deleted.sendTo(tab);
    }
}

BENCHMARK(openShift)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(changedRecord)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(newAndDeletedRecord)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(newAndDeletedComment)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(newAndDeletedFile)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
