// Record tables: the cost of opening a journal of 10,000 records, and whether one more record costs the
// same for any number of existing rows.

#include "HfnTime.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "VrkTableTool.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <QApplication>
#include <QTableView>
#include <QTextCodec>

namespace
{
class Journal
{
public:
    explicit Journal(int records)
    {
        MDACreate(&m_table.array, 0);
        MDAFldAdd(m_table.array, fieldCount(LogbookRecordExtFields), LogbookRecordExtFields);
        m_table.KeyAdd("", 0);
        for (int i = 0; i < records; ++i)
            add();
        m_tool.setTableView(&m_view);
        m_tool.setDefaultSettingsView();
        m_tool.model()->setTextCodec(codec());
        m_view.resize(1280, 720);
    }

    void load()
    {
        m_tool.setCMDArray(&m_table);
        for (int i = 0; i < fieldCount(LogbookRecordExtFields); ++i) {
            const MDRField* field = MDRFldByNum(m_table.array, i);
            const bool isKey = field->type == mdr_TChar && qstrcmp(field->name, "WorkerKey") != 0;
            m_tool.setColumnVisible(QString::fromLatin1(field->name), !isKey);
        }
        m_tool.setColumnPosition(QStringLiteral("html"), fieldCount(LogbookRecordExtFields) - 1);
        m_tool.sortByColumn(QStringLiteral("recordTime"), Qt::AscendingOrder);
        m_tool.adjustColumnsWidth();
    }
    void show()
    {
        m_view.show();
        QCoreApplication::sendPostedEvents();
        benchmark::DoNotOptimize(m_view.grab());
    }
    void append()
    {
        m_tool.model()->beginAppendRows(1);
        m_last = add();
        m_tool.model()->endAppendRows();
    }
    void remove()
    {
        m_tool.model()->beginRemoveRecord(m_last);
        MDARecDel(m_last);
        m_tool.model()->endRemoveRecord();
    }
    void change() { m_tool.updateView(m_last); }
    void makeLastCurrent() { m_tool.setCurrentRecord(m_last); }
    int find(const QString& text)
    {
        const VrkTableProxyModel* proxy = m_tool.proxy();
        const QModelIndex from = proxy->index(1, m_tool.model()->idxField(QStringLiteral("html")));
        return proxy
            ->match(from, Qt::DisplayRole, text, -1, Qt::MatchWrap | Qt::MatchFixedString | Qt::MatchContains)
            .size();
    }

private:
    static QTextCodec* codec() { return QTextCodec::codecForName("Windows-1251"); }

    MDRData* add()
    {
        static const QByteArray html = codec()->fromUnicode(
            QStringLiteral("Отдано распоряжение: отключить <b>В-110 Кирпичная</b>, проверить отсутствие "
                           "напряжения, <span style=\" text-decoration: line-through;\">установить "
                           "заземление</span> вывесить плакаты."));
        MDRData* record = MDARecNew(m_table.array);
        m_table.SetValF(record, "recordTime", MDRValue::real(1.78e9 + 60.0 * m_count++));
        m_table.SetValF(record, "status", MDRValue::number(0));
        m_table.SetValF(record, "WorkerKey", MDRValue::text("WORKER"));
        m_table.SetValF(record, "html", MDRValue::text(html, mdr_TMemo));
        return m_table.RecPost(record);
    }

    CMDArray m_table;
    QTableView m_view;
    VrkTableTool m_tool;
    MDRData* m_last = nullptr;
    int m_count = 0;
};

// From the loaded records to the painted first page.
void firstPaint(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto journal = std::make_unique<Journal>(static_cast<int>(state.range(0)));
        state.ResumeTiming();
        journal->load();
        journal->show();
        state.PauseTiming();
        journal.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(firstPaint)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// A record is added and removed while the table is shown.
void appendAndRemove(benchmark::State& state)
{
    Journal journal(static_cast<int>(state.range(0)));
    journal.load();
    journal.show();
    for (auto _ : state) {
        journal.append();
        QCoreApplication::sendPostedEvents();
        journal.remove();
        QCoreApplication::sendPostedEvents();
    }
}
BENCHMARK(appendAndRemove)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The same with the record made current, like in the journal.
void appendAndFollow(benchmark::State& state)
{
    Journal journal(static_cast<int>(state.range(0)));
    journal.load();
    journal.show();
    for (auto _ : state) {
        journal.append();
        journal.makeLastCurrent();
        QCoreApplication::sendPostedEvents();
        journal.remove();
    }
}
BENCHMARK(appendAndFollow)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void changeOneRecord(benchmark::State& state)
{
    Journal journal(static_cast<int>(state.range(0)));
    journal.load();
    journal.append();
    journal.show();
    for (auto _ : state) {
        journal.change();
        QCoreApplication::sendPostedEvents();
    }
}
BENCHMARK(changeOneRecord)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The search line: the first letter needs texts that were not rendered yet, the next ones do not.
void search(benchmark::State& state)
{
    Journal journal(static_cast<int>(state.range(0)));
    journal.load();
    for (auto _ : state)
        benchmark::DoNotOptimize(journal.find(QStringLiteral("кирпич")));
}
BENCHMARK(search)->Arg(10000)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
