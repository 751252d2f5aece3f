#pragma once

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

/// A journal for measurements, and a client that opens its page.
namespace BenchJournal
{
constexpr double startTime = 1800000000;

struct Sizes {
    int records;
    int comments;
    int files;
    int shifts = 1;       ///< the records are distributed among them; the first one is open
    int commentsStep = 2; ///< distance between two records with comments
    int filesStep = 7;
};

[[noreturn]] inline void fail(const char* what)
{
    std::fprintf(stderr, "bench: %s\n", what);
    std::exit(1);
}

inline QByteArray numbered(const char* prefix, int number)
{
    return prefix + QByteArray::number(number).rightJustified(8, '0');
}

inline QByteArray parameter(const char* name, const QByteArray& text)
{
    return QByteArray::fromStdString(
        HtmlParser::createParameter({{"name", name}, {"idx", "0"}, {"locname", "x"}}, text.toStdString()));
}

/// The text of a record made from a template: fixed words and two parameters.
inline QByteArray recordText(int number)
{
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

/// "SHIFT" is the open one.
inline QByteArray shiftKey(int number)
{
    return number == 0 ? QByteArray("SHIFT") : numbered("SHIFT", number);
}

/// A store with one department, two workers and its shifts.
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
        {
            RowWriter shifts(store.get(), "LogbookWorkshifts", LogbookWorkshiftFields);
            for (int i = 0; i < sizes.shifts; ++i)
                shifts.add(shiftKey(i), {{"DepartmentKey", text("DEP")},
                                         {"OpenWorkerKey", text("W0")},
                                         {"CloseWorkerKey", i == 0 ? MDRValue::null() : text("W0")},
                                         {"createdAt", real(startTime)},
                                         {"startTime", real(startTime)},
                                         {"endTime", real(startTime + 43200)}});
        }
        {
            RowWriter records(store.get(), "LogbookRecords", LogbookRecordFields);
            for (int i = 0; i < sizes.records; ++i) {
                const QByteArray html = recordText(i);
                const QByteArray shift = shiftKey(i % sizes.shifts);
                records.add(numbered("R", i), {{"ShiftKey", text(shift)},
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
                     {"RecordKey",
                      text(QByteArray(numbered("R", i * sizes.commentsStep % sizes.records)).constData())},
                     {"commentTime", real(startTime)},
                     {"text_", text("seen, agreed, reported to the chief")}});
        }
        RowWriter files(store.get(), "LogbookFiles", LogbookFilesFields);
        const QByteArray bytes(2000, 'x');
        for (int i = 0; i < sizes.files; ++i)
            files.add(numbered("F", i),
                      {{"WorkerKey", text("W1")},
                       {"RecordKey",
                        text(QByteArray(numbered("R", i * sizes.filesStep % sizes.records)).constData())},
                       {"fileName", text("oscillogram.txt")},
                       {"fileData", text(bytes, mdr_TBlob)}});
    }

    QString path() const { return m_folder.filePath(QStringLiteral("journal.db")); }
    QString url() const { return QStringLiteral("sqlite://") + path(); }

private:
    QTemporaryDir m_folder;
};

/// A module with a session on a journal and everything that a page needs from it.
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

    /// Opens a page and returns after its table was painted.
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

/// A synthetic change event: the row's fields in the form that the store sends.
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

inline const Journal& journalOf(const Sizes& sizes)
{
    static std::map<std::pair<int, int>, std::unique_ptr<Journal>> journals;
    auto& journal = journals[{sizes.records, sizes.comments}];
    if (!journal)
        journal = std::make_unique<Journal>(sizes);
    return *journal;
}

inline double seconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}
} // namespace BenchJournal
