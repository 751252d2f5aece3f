// The page of a department's journal: opening a long shift beside reading the same rows with plain sqlite3, and one
// change event into shifts of growing length. Read openShift by its counter ratio; the events ought to cost the same
// whatever the number of records.

#include "CToolLiteModel.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "GenGuid32.h"
#include "HtmlParser.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogBookWidget.h"
#include "MDRValues.h"
#include "StoreAdmin.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <QApplication>
#include <QTableView>
#include <QTemporaryDir>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace
{
constexpr double startTime = 1800000000;

struct Sizes {
    int records;
    int comments;
    int files;
};

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "tab_bench: %s\n", what);
    std::exit(1);
}

QByteArray numbered(const char* prefix, int number)
{
    return prefix + QByteArray::number(number).rightJustified(8, '0');
}

/// The text of a record as a template makes it: fixed words and two parameters.
QByteArray recordText(int number)
{
    const auto parameter = [](const char* name, const QByteArray& text) {
        return QByteArray::fromStdString(HtmlParser::createParameter(
            {{"name", name}, {"idx", "0"}, {"locname", "x"}}, text.toStdString()));
    };
    return "<p>\xCE\xF2\xE4\xE0\xED\xE0 <b>\xEA\xEE\xEC\xE0\xED\xE4\xE0</b>: " +
           parameter(number % 3 == 0 ? "substation" : "equipmentName", numbered("PS ", number % 40)) +
           " \xEE\xF2\xEA\xEB\xFE\xF7\xE8\xF2\xFC " + parameter("text", numbered("V ", number)) + "</p>";
}

/// Collects rows of one table and writes them in batches.
class RowWriter
{
public:
    template <int N>
    RowWriter(Store* store, const char* table, const MDRFieldDescr (&fields)[N])
        : m_store(store), m_table(table), m_rows(fields, N)
    {
    }
    ~RowWriter() { flush(); }

    void add(const QByteArray& key, std::initializer_list<std::pair<const char*, MDRVar>> values)
    {
        MDRData* row = m_rows.newRow(ROW_INSERT, key);
        for (const auto& [field, value] : values)
            m_rows.SetValF(row, field, value);
        m_rows.RecPost(row);
        if (m_rows.RecCount() == 5000)
            flush();
    }
    void flush()
    {
        StoreError error;
        if (!m_store->apply({{m_table, m_rows.array}}, GenGuid32(), &error))
            fail("the journal cannot be written");
        MDAClearRec(m_rows.array);
    }

private:
    Store* m_store;
    QByteArray m_table;
    CRowBatch m_rows;
};

const MDRFieldDescr nameFields[] = {{"KeyLink", 32, mdr_TChar}, {"name_", 100, mdr_TChar}};
const MDRFieldDescr workerFields[] = {{"KeyLink", 32, mdr_TChar},
                                      {"UserKey", 32, mdr_TChar},
                                      {"DepartmentKey", 32, mdr_TChar},
                                      {"lastName", 100, mdr_TChar}};

/// A store with one department, two workers and one open shift.
class Journal
{
public:
    explicit Journal(const Sizes& sizes)
    {
        StoreError error;
        if (!StoreAdmin::init(url(), "Windows-1251", "Europe/Moscow", &error) ||
            !StoreAdmin::addUser(url(), QStringLiteral("bench"), QStringLiteral("Bench"), &error))
            fail("the store cannot be made");
        Store::Options options;
        options.loader = true;
        const auto store = Store::open(url(), options, &error);
        if (!store)
            fail("the store cannot be opened");
        using MDRValue::number;
        using MDRValue::real;
        using MDRValue::text;
        RowWriter(store.get(), "Organizations", nameFields).add("ORG", {{"name_", text("O")}});
        RowWriter(store.get(), "Departments", nameFields).add("DEP", {{"name_", text("D")}});
        {
            RowWriter workers(store.get(), "Workers", workerFields);
            for (const char* key : {"W0", "W1"})
                workers.add(key, {{"DepartmentKey", text("DEP")}, {"lastName", text(key)}});
        }
        RowWriter(store.get(), "LogbookWorkshifts", LogbookWorkshiftFields)
            .add("SHIFT", {{"DepartmentKey", text("DEP")},
                           {"OpenWorkerKey", text("W0")},
                           {"createdAt", real(startTime)},
                           {"startTime", real(startTime)},
                           {"endTime", real(startTime + 43200)}});
        {
            RowWriter records(store.get(), "LogbookRecords", LogbookRecordFields);
            for (int i = 0; i < sizes.records; ++i) {
                const QByteArray html = recordText(i);
                records.add(numbered("R", i), {{"ShiftKey", text("SHIFT")},
                                               {"WorkerKey", text("W0")},
                                               {"recordTime", real(startTime + i)},
                                               {"eventTime", real(startTime + i)},
                                               {"html", text(html)},
                                               {"status", number(0)},
                                               {"direction", number(0)}});
            }
        }
        {
            RowWriter comments(store.get(), "LogbookComments", LogbookCommentFields);
            for (int i = 0; i < sizes.comments; ++i)
                comments.add(
                    numbered("C", i),
                    {{"WorkerKey", text("W1")},
                     {"RecordKey", text(QByteArray(numbered("R", i * 2 % sizes.records)).constData())},
                     {"commentTime", real(startTime)},
                     {"text_", text("seen, agreed, reported to the chief")}});
        }
        RowWriter files(store.get(), "LogbookFiles", LogbookFilesFields);
        const QByteArray bytes(2000, 'x');
        for (int i = 0; i < sizes.files; ++i)
            files.add(numbered("F", i),
                      {{"WorkerKey", text("W1")},
                       {"RecordKey", text(QByteArray(numbered("R", i * 7 % sizes.records)).constData())},
                       {"fileName", text("oscillogram.txt")},
                       {"fileData", text(bytes, mdr_TBlob)}});
    }

    QString path() const { return m_folder.filePath(QStringLiteral("journal.db")); }
    QString url() const { return QStringLiteral("sqlite://") + path(); }

private:
    QTemporaryDir m_folder;
};

/// A module with a session on a journal and what a page needs of it.
class Client
{
public:
    explicit Client(const Journal& journal)
    {
        StoreError error;
        StoreLogin user;
        auto store = Store::open(journal.url(), Store::Options(), &error);
        if (!store || !store->signIn(QStringLiteral("bench"), &user, &error))
            fail("nobody can sign in");
        m_app.setSession(std::make_unique<CVrkCliSes>(std::move(store)));
        m_module = std::make_unique<CVrkCliMod>(&m_app);
        CToolLiteModel tool(m_module.get());
        tool.m_names = QStringList{QStringLiteral("Workers"), QStringLiteral("Departments"),
                                   QStringLiteral("Organizations"), QStringLiteral("OrgTypes")};
        tool.Perform(false);
        m_tables.reset(std::exchange(tool.m_model, nullptr));
        m_location.setWorkersTable(m_tables->GetTableByName("Workers"));
        m_location.setDepartmentsTable(m_tables->GetTableByName("Departments"));
        m_location.setOrganizationsTable(m_tables->GetTableByName("Organizations"));
        m_location.setWorkerKey(QStringLiteral("W0"));
        m_location.setDepartmentKey(QStringLiteral("DEP"));
        m_location.setOrganizationKey(QStringLiteral("ORG"));
        m_module->resize(1219, 602);
    }

    /// Opens a page and returns when its table is painted.
    LogBookWidget* open()
    {
        class PaintWatch : public QObject
        {
        public:
            bool eventFilter(QObject*, QEvent* event) override
            {
                isPainted = isPainted || event->type() == QEvent::Paint;
                return false;
            }
            bool isPainted = false;
        } watch;

        auto* tab = new LogBookWidget(m_module.get());
        m_module->setCentralWidget(tab);
        tab->init(m_module.get(), &m_location);
        tab->findChild<QTableView*>(QStringLiteral("recordsTable"))->viewport()->installEventFilter(&watch);
        m_module->show();
        while (!watch.isPainted)
            QCoreApplication::processEvents();
        return tab;
    }
    void close()
    {
        m_module->hide();
        delete m_module->takeCentralWidget();
    }

private:
    CVrkCliApp m_app;
    std::unique_ptr<CVrkCliMod> m_module;
    std::unique_ptr<CLiteModel> m_tables;
    LocationInfo m_location;
};

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

const Journal& journalOf(const Sizes& sizes)
{
    static std::map<int, std::unique_ptr<Journal>> journals;
    auto& journal = journals[sizes.records];
    if (!journal)
        journal = std::make_unique<Journal>(sizes);
    return *journal;
}

double seconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

/// From the page's birth to its first painted frame.
void openShift(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    const Journal& journal = journalOf({10000, 5000, 1000});
    Client client(journal);
    double ours = 0;
    double plain = 0;
    for (auto _ : state) {
        const auto begin = Clock::now();
        readPlain(journal);
        const auto middle = Clock::now();
        client.open();
        const auto end = Clock::now();
        client.close();
        plain += seconds(middle - begin);
        ours += seconds(end - middle);
        state.SetIterationTime(seconds(end - middle));
    }
    state.counters["ratio"] = ours / plain;
}

/// A change event made by hand: the row's fields as the store sends them.
class MadeEvent
{
public:
    template <int N>
    MadeEvent(EventNumber number, const char* table, const MDRFieldDescr (&fields)[N], const QByteArray& key,
              std::initializer_list<std::pair<const char*, MDRVar>> values)
    {
        CRowBatch rows(fields, N);
        MDRData* row = rows.newRow(ROW_INSERT, key);
        rows.SetValF(row, "KeyLink", MDRValue::text(key));
        for (const auto& [field, value] : values)
            rows.SetValF(row, field, value);
        m_block.reset(HFNCliParam::event(number, key, QByteArray("NCI:") + table + ",1",
                                         number == EventDeleted ? QByteArray() : MDRRecPack(row)));
    }
    void sendTo(LogBookWidget* tab) const
    {
        TEventNciParse event(m_block.get());
        tab->MessageData(&event);
    }

private:
    std::unique_ptr<HFNCliParam> m_block;
};

/// A page of many records, with what the tool bar asks at each of its signals.
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
