// Typing a record while others write: the time from a key to its letter on the screen, in a journal of 1,000
// and of 100,000 records into which 50 records a second come. Read the counters p50 and p99 (milliseconds
// by the clock, so on a machine that does little else); the aim for p99 is one frame, 16.7.

#include "BenchJournal.h"

#include "TemplatesWidget.h"

#include <algorithm>
#include <mutex>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTimer>
#include <thread>

using namespace BenchJournal;

namespace
{
using Clock = std::chrono::steady_clock;
constexpr int eventsPerSecond = 50;
constexpr auto betweenKeys = std::chrono::milliseconds(37); ///< no multiple of the time between two events

void addTemplate(const Journal& journal)
{
    StoreError error;
    Store::Options options;
    options.loader = true;
    const auto store = Store::open(journal.url(), options, &error);
    if (!store)
        fail("the store cannot be opened");
    const QByteArray html = "<p>" + parameter("text", "x") + "</p>";
    RowWriter(store.get(), "LogbookCatsTemplate", LogbookCatsTemplateFields)
        .add("CATEGORY", {{"nameLoc", MDRValue::text("C")}});
    RowWriter templates(store.get(), "LogbookTemplates", LogbookTemplatesFields);
    templates.add("TEMPLATE", {{"CategoryKey", MDRValue::text("CATEGORY")},
                               {"nameLoc", MDRValue::text("T")},
                               {"html", MDRValue::text(html)}});
}

/// Measures from a key until the event loop goes on after the editor was painted with its letter.
class KeyWatch : public QObject
{
public:
    explicit KeyWatch(QPlainTextEdit* editor) : m_editor(editor)
    {
        editor->installEventFilter(this);
        editor->viewport()->installEventFilter(this);
    }
    /// Called by the typing thread.
    void type()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_typed = Clock::now();
        }
        QCoreApplication::postEvent(m_editor,
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_A, {}, QStringLiteral("a")));
    }
    const std::vector<double>& times() const { return m_times; } ///< milliseconds

    bool eventFilter(QObject*, QEvent* event) override
    {
        m_isTaken = m_isTaken || event->type() == QEvent::KeyPress;
        if (event->type() == QEvent::Paint && m_isTaken) {
            m_isTaken = false;
            // The window is flushed to the screen before the next event is handled.
            QMetaObject::invokeMethod(
                this, [this] { painted(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    void painted()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_times.push_back(seconds(Clock::now() - m_typed) * 1000);
    }

    QPlainTextEdit* m_editor;
    std::mutex m_mutex;
    Clock::time_point m_typed;
    bool m_isTaken = false;
    std::vector<double> m_times;
};

QPlainTextEdit* editorOfNewRecord(LogBookWidget* tab)
{
    tab->createRecordRequest();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* templates = window->findChild<TemplatesWidget*>(QStringLiteral("templatesWidget"));
        if (!templates || !window->isVisible() || !templates->selectTemplate(QStringLiteral("TEMPLATE")))
            continue;
        QCoreApplication::processEvents();
        for (auto* editor : window->findChildren<QPlainTextEdit*>())
            if (editor->isVisible() && !editor->isReadOnly())
                return editor;
    }
    fail("the record dialog has no editor");
}

void typeWhileOthersWrite(benchmark::State& state)
{
    const Journal& journal = journalOf({static_cast<int>(state.range(0)), 0, 0});
    addTemplate(journal);
    Client client(journal);
    LogBookWidget* tab = client.open();
    QPlainTextEdit* editor = editorOfNewRecord(tab);
    editor->setFocus();
    KeyWatch watch(editor);

    const QByteArray html = recordText(3);
    int others = 0;
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, tab, [&] {
        const QByteArray key = numbered("N", ++others);
        MadeEvent(EventInserted, "LogbookRecords", LogbookRecordFields, key,
                  {{"ShiftKey", MDRValue::text("SHIFT")},
                   {"WorkerKey", MDRValue::text("W1")},
                   {"recordTime", MDRValue::real(startTime + 1e6 + others)},
                   {"html", MDRValue::text(html)},
                   {"status", MDRValue::number(0)}})
            .sendTo(tab);
    });
    events.setTimerType(Qt::PreciseTimer);
    events.start(1000 / eventsPerSecond);

    for (auto _ : state) {
        const std::size_t before = watch.times().size();
        std::thread keyboard([&] {
            std::this_thread::sleep_for(betweenKeys);
            watch.type();
        });
        while (watch.times().size() == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        keyboard.join();
        state.SetIterationTime(watch.times().back() / 1000);
    }
    events.stop();
    std::vector<double> times = watch.times();
    std::sort(times.begin(), times.end());
    state.counters["p50"] = times[times.size() / 2];
    state.counters["p99"] = times[times.size() * 99 / 100];
    state.counters["max"] = times.back();
    state.counters["others"] = others;
}

BENCHMARK(typeWhileOthersWrite)
    ->Arg(1000)
    ->Arg(100000)
    ->Iterations(1000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
