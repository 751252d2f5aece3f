#include "CMDArray.h"
#include "CVrkCliSes.h"
#include "FakeStore.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <QTimer>

/// What a long request shows, and that nothing else happens during it.
class BusyStripTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aShortRequestShowsNothing();
    void aLongRequestShowsCursorAndStrip();
    void theStripMoves();
    void handlesNoEventDuringARequest();
    void withoutAWindowOnlyTheCursorChanges();
    void aDeletedWindowDeletesItsStrip();

private:
    /// Runs a long select: it reports progress until \a enough returns true.
    void request(const std::function<bool(qint64 elapsedMs)>& enough)
    {
        QElapsedTimer since;
        since.start();
        state->during = [&](const std::function<void()>& progress) {
            do
                progress();
            while (!enough(since.elapsed()));
        };
        CMDArray answer;
        answer = session->SqlRequest("SELECT 1");
    }
    static QWidget* strip()
    {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (widget->objectName() == QLatin1String("busyStrip"))
                return widget;
        }
        return nullptr;
    }

    std::shared_ptr<FakeStore::State> state;
    std::unique_ptr<CVrkCliSes> session;
};

void BusyStripTest::init()
{
    state = std::make_shared<FakeStore::State>();
    session = std::make_unique<CVrkCliSes>(std::make_unique<FakeStore>(state));
}

void BusyStripTest::aShortRequestShowsNothing()
{
    QMainWindow window;
    window.show();
    bool seen = false;
    request([&seen](qint64) {
        seen = strip() || QGuiApplication::overrideCursor();
        return true;
    });
    QVERIFY(!seen);
}

void BusyStripTest::aLongRequestShowsCursorAndStrip()
{
    QMainWindow window;
    window.show();
    qint64 shownAfter = 0;
    bool seen = false;
    request([&](qint64 elapsed) {
        seen = strip() && strip()->isVisible() && strip()->window() == &window &&
               QGuiApplication::overrideCursor() &&
               QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
        shownAfter = elapsed;
        return seen || elapsed > 5000;
    });
    QVERIFY(seen);
    QVERIFY(shownAfter >= 300);
    QVERIFY(!strip());
    QVERIFY(!QGuiApplication::overrideCursor());
}

void BusyStripTest::theStripMoves()
{
    QMainWindow window;
    window.resize(400, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    struct Paints : QObject {
        int count = 0;
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Paint && watched->objectName() == QLatin1String("busyStrip"))
                ++count;
            return false;
        }
    } paints;
    qApp->installEventFilter(&paints);
    request([&](qint64 elapsed) { return paints.count >= 3 || elapsed > 5000; });
    QVERIFY(paints.count >= 3);
}

void BusyStripTest::handlesNoEventDuringARequest()
{
    QMainWindow window;
    window.show();
    QCoreApplication::processEvents();
    int handled = 0;
    QTimer::singleShot(0, this, [&handled] { ++handled; });
    QMetaObject::invokeMethod(
        this, [&handled] { ++handled; }, Qt::QueuedConnection);
    int handledInside = -1;
    request([&](qint64 elapsed) {
        handledInside = handled;
        return elapsed > 400;
    });
    QCOMPARE(handledInside, 0);
    QTRY_COMPARE(handled, 2);
}

void BusyStripTest::withoutAWindowOnlyTheCursorChanges()
{
    bool waiting = false;
    request([&](qint64 elapsed) {
        waiting = QGuiApplication::overrideCursor();
        return waiting || elapsed > 5000;
    });
    QVERIFY(waiting);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void BusyStripTest::aDeletedWindowDeletesItsStrip()
{
    auto window = std::make_unique<QMainWindow>();
    window->show();
    request([&](qint64 elapsed) {
        if (strip())
            window.reset();
        return !window || elapsed > 5000;
    });
    QVERIFY(!window);
    QVERIFY(!strip());
    QVERIFY(!QGuiApplication::overrideCursor());
}

QTEST_MAIN(BusyStripTest)
#include "BusyStrip_test.moc"
