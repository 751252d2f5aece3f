// Working with a long shift: switching from one shift of 2,000 records to another, moving down the rows of
// records with many comments and files, and a report of 2,000 records as preview and as PDF. Read the
// counter ratio of each, relative to the work named at it.

#include "BenchJournal.h"

#include "MessageListDelegate.h"
#include "ReportDialog.h"
#include "VrkPreviewWindow.h"

#include <QFile>
#include <QListWidget>
#include <QTableWidget>
#include <QTextLayout>
#include <QToolButton>
#include <sqlite3.h>

using namespace BenchJournal;

namespace
{
using Clock = std::chrono::steady_clock;

/// Steps through the records of a shift with plain sqlite3 and copies their texts.
void readPlain(const Journal& journal, const QByteArray& shift)
{
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(journal.path().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        fail("sqlite3 cannot open the journal");
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, ("SELECT * FROM LogbookRecords WHERE ShiftKey='" + shift + "'").constData(), -1,
                       &statement, nullptr);
    std::vector<std::string> texts;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            if (sqlite3_column_type(statement, i) == SQLITE_TEXT)
                texts.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
    }
    if (texts.empty())
        fail("the shift has no records");
    sqlite3_finalize(statement);
    sqlite3_close(db);
}

/// From the choice of a shift to its first painted frame, compared with reading its records with plain
/// sqlite3.
void switchShifts(benchmark::State& state)
{
    const Journal& journal = journalOf({4000, 1000, 200, 2});
    Client client(journal);
    LogBookWidget* tab = client.open();
    auto* viewport = tab->findChild<QTableView*>(QStringLiteral("recordsTable"))->viewport();
    double ours = 0;
    double plain = 0;
    int turn = 0;
    for (auto _ : state) {
        const QByteArray shift = shiftKey(++turn % 2);
        const auto begin = Clock::now();
        readPlain(journal, shift);
        const auto middle = Clock::now();
        tab->uploadRecordsIn(QString::fromLatin1(shift));
        QCoreApplication::processEvents();
        viewport->repaint();
        const auto end = Clock::now();
        plain += seconds(middle - begin);
        ours += seconds(end - middle);
        state.SetIterationTime(seconds(end - middle));
    }
    state.counters["ratio"] = ours / plain;
}

/// Moving down one row, with 20 comments and 10 files on each record, until painted; compared with filling
/// a list and a table of Qt with the same number of items.
void selectRecords(benchmark::State& state)
{
    const Journal& journal = journalOf({200, 4000, 2000, 1, 1, 1});
    Client client(journal);
    LogBookWidget* tab = client.open();
    auto* view = tab->findChild<QTableView*>(QStringLiteral("recordsTable"));
    const auto* comments = tab->findChild<QListWidget*>(QStringLiteral("commentsList"));
    const auto* files = tab->findChild<QTableWidget*>(QStringLiteral("filesTable"));

    QListWidget plainList;
    QTableWidget plainTable;
    plainList.show();
    plainTable.show();
    double ours = 0;
    double plain = 0;
    int row = 0;
    for (auto _ : state) {
        row = (row + 1) % view->model()->rowCount();
        const auto begin = Clock::now();
        view->setCurrentIndex(view->model()->index(row, 4));
        QCoreApplication::processEvents();
        const auto middle = Clock::now();
        plainList.clear();
        for (int i = 0; i < 20; ++i)
            plainList.addItem(QStringLiteral("seen, agreed, reported to the chief"));
        plainTable.clear();
        plainTable.setColumnCount(1);
        plainTable.setRowCount(10);
        for (int i = 0; i < 10; ++i)
            plainTable.setItem(i, 0, new QTableWidgetItem(QStringLiteral("oscillogram.txt")));
        QCoreApplication::processEvents();
        const auto end = Clock::now();
        if (comments->count() != 20 || files->rowCount() != 10)
            fail("a record has not what it should have");
        ours += seconds(middle - begin);
        plain += seconds(end - middle);
        state.SetIterationTime(seconds(middle - begin));
    }
    state.counters["ratio"] = ours / plain;
}

/// The report of a shift, and its preview when requested.
class Report
{
public:
    explicit Report(int records) : m_client(journalOf({records, 0, 0}))
    {
        m_client.open()->showReportDialog();
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<ReportDialog*>(widget))
                m_dialog = dialog;
        if (!m_dialog)
            fail("there is no report");
    }
    VrkPreviewWindow* print()
    {
        m_dialog->findChild<QToolButton*>(QStringLiteral("printButton"))->click();
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* window = qobject_cast<VrkPreviewWindow*>(widget))
                return window;
        fail("there is no preview");
    }

private:
    Client m_client;
    ReportDialog* m_dialog = nullptr;
};

/// Lays out every cell of the table once on one line, as Qt does it.
void layOutPlain(const VrkPreviewTable& table)
{
    QFont font = table.font;
    font.setPixelSize(150);
    for (const VrkPreviewTable::Row& row : table.rows) {
        for (const VrkPreviewTable::Cell& cell : row.cells) {
            QTextLayout layout(cell.text, font);
            layout.beginLayout();
            layout.createLine();
            layout.endLayout();
        }
    }
}

/// From the button to the preview with all its pages, compared with the plain layout of all cells.
void preview(benchmark::State& state)
{
    Report report(static_cast<int>(state.range(0)));
    double ours = 0;
    double plain = 0;
    for (auto _ : state) {
        const auto begin = Clock::now();
        const VrkPreviewWindow* window = report.print();
        const auto middle = Clock::now();
        layOutPlain(window->table());
        ours += seconds(middle - begin);
        plain += seconds(Clock::now() - middle);
        state.SetIterationTime(seconds(middle - begin));
        state.counters["pages"] = window->pageCount();
    }
    state.counters["ratio"] = ours / plain;
}

/// The preview saved as PDF, with the same comparison.
void pdf(benchmark::State& state)
{
    Report report(static_cast<int>(state.range(0)));
    VrkPreviewWindow* window = report.print();
    const QTemporaryDir folder;
    double ours = 0;
    double plain = 0;
    for (auto _ : state) {
        const auto begin = Clock::now();
        if (!window->savePdf(folder.filePath(QStringLiteral("report.pdf"))))
            fail("the PDF cannot be written");
        const auto middle = Clock::now();
        layOutPlain(window->table());
        ours += seconds(middle - begin);
        plain += seconds(Clock::now() - middle);
        state.SetIterationTime(seconds(middle - begin));
    }
    state.counters["ratio"] = ours / plain;
}

BENCHMARK(switchShifts)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(selectRecords)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(preview)->Arg(500)->Arg(2000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(pdf)->Arg(500)->Arg(2000)->Unit(benchmark::kMillisecond)->UseManualTime();
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
