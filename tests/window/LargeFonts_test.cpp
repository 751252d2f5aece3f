#include "JournalWindow.h"
#include "LogWatch.h"

#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

/// The journal in a window of 1280 by 720 with a usual desktop font, and with fonts larger by a quarter and
/// a half: everything is visible and reachable.
class LargeFonts_test : public QObject
{
    Q_OBJECT

private:
    QFont m_before;

    static void setScale(double scale)
    {
        QFont font = QApplication::font();
        font.setPointSizeF(9.6 * scale); // 13 pixels at the 100 dots per inch of the offscreen screen
        QApplication::setFont(font);
    }
    static void show(JournalWindow& journal, const QSize& size = QSize(1280, 720))
    {
        journal.window().resize(size);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // queued work: measuring, placing
    }
    static bool isInside(const QWidget* widget, const QWidget* window)
    {
        return widget->isVisible() &&
               window->rect().contains(QRect(widget->mapTo(window, QPoint()), widget->size()));
    }
    static QTableView* table(JournalWindow& journal)
    {
        return JournalWindow::childOf<QTableView>(&journal.home(), "recordsTable");
    }
    static QWidget* panes(JournalWindow& journal)
    {
        return JournalWindow::childOf<QWidget>(&journal.home(), "additionalTab");
    }

private slots:
    void initTestCase() { m_before = QApplication::font(); }
    void cleanup() { QApplication::setFont(m_before); }

    void everythingIsSeen_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<QSize>("size");
        const QSize whole(1280, 720);
        QTest::newRow("usual") << 1.0 << whole;
        QTest::newRow("a quarter larger") << 1.25 << whole;
        QTest::newRow("half as large again") << 1.5 << whole;
        QTest::newRow("half as large again, inside a frame") << 1.5 << QSize(1217, 640);
    }
    void everythingIsSeen()
    {
        QFETCH(double, scale);
        QFETCH(QSize, size);
        setScale(scale);
        const TestStore store;
        JournalWindow journal(store, QStringLiteral("ivanov"));
        show(journal, size);
        QWidget* window = &journal.window();
        QCOMPARE(window->size(), size);

        auto* bar = journal.child<QToolBar>("toolBar");
        for (const char* name :
             {"timeButton", "workshiftButton", "createButton", "deleteButton", "approveButton", "signButton",
              "executionButton", "commentsButton", "reportButton", "searchButton"}) {
            const auto* button = journal.child<QToolButton>(name);
            QVERIFY2(isInside(button, bar), name);
        }
        QVERIFY(!bar->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))->isVisible());
        for (const char* name : {"statusLabel", "intervalLabel"}) {
            const auto* label = journal.child<QLabel>(name);
            QVERIFY2(isInside(label, window), name);
            QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) + 2 * label->margin() <=
                         label->width(),
                     name);
            QVERIFY2(label->contentsRect().height() >= label->fontMetrics().height(), name);
        }
        QVERIFY(isInside(journal.child<QToolButton>("addButton"), window));

        // The text of the records is beside the other columns, not behind the right edge.
        QCOMPARE(table(journal)->horizontalScrollBar()->maximum(), 0);
        QTRY_COMPARE(table(journal)->horizontalScrollBar()->maximum(), 0);

        // A key shows the panes and hides them again.
        const bool isRoomy = panes(journal)->isVisible();
        QCOMPARE(isRoomy, scale < 1.1);
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_F4);
        QTRY_COMPARE(panes(journal)->isVisible(), !isRoomy); // the button is shown pressed
        if (isRoomy)
            journal.child<QToolButton>("paneButton")->click();
        QVERIFY(panes(journal)->isVisible());
        QCoreApplication::processEvents();
        for (const char* name : {"createCommentButton", "deleteCommentButton", "readedCommentButton"})
            QVERIFY2(isInside(JournalWindow::childOf<QToolButton>(&journal.home(), name), window), name);
        if (!isRoomy) {
            journal.child<QToolButton>("paneButton")->click();
            QTRY_COMPARE(table(journal)->horizontalScrollBar()->maximum(), 0);
        }
    }

    void timesOfTheTimetableAreReadWhole_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("usual") << 1.0;
        QTest::newRow("a quarter larger") << 1.25;
        QTest::newRow("half as large again") << 1.5;
    }
    void timesOfTheTimetableAreReadWhole()
    {
        QFETCH(double, scale);
        setScale(scale);
        const TestStore store;
        JournalWindow journal(store, QStringLiteral("ivanov"));
        show(journal);
        OpenWorkshiftDialog* dialog = journal.opening();
        dialog->show();
        QCoreApplication::processEvents();
        const auto* shifts = JournalWindow::childOf<QTableView>(dialog, "shiftsTable");
        QVERIFY(shifts->model()->rowCount() > 0);
        bool isWhole = true;
        for (int row = 0; row < shifts->model()->rowCount(); ++row)
            isWhole = isWhole && shifts->columnWidth(1) >
                                     shifts->sizeHintForIndex(shifts->model()->index(row, 1)).width();
        // The screen of the test has 800 pixels; the template keeps the larger part of them.
        const QList<int> sizes = JournalWindow::childOf<QSplitter>(dialog, "splitter_3")->sizes();
        QVERIFY(sizes.at(0) < sizes.at(1));
        if (scale < 1.1)
            QVERIFY(isWhole);
        else
            QVERIFY(isWhole || sizes.at(0) * 100 / (sizes.at(0) + sizes.at(1)) == 44);
    }

    void aFontThatChangesMovesTheStatus()
    {
        setScale(1.0);
        const TestStore store;
        JournalWindow journal(store, QStringLiteral("ivanov"));
        show(journal);
        const auto* bar = journal.child<QToolBar>("toolBar");
        const auto* status = journal.child<QLabel>("statusLabel");
        QVERIFY(bar->isAncestorOf(status));
        QVERIFY(panes(journal)->isVisible());
        const int width = status->width();

        setScale(1.5);
        QTRY_VERIFY(!bar->isAncestorOf(status));
        QVERIFY(status->width() > width);
        QTRY_VERIFY(isInside(status, &journal.window()));
        QTRY_VERIFY(!panes(journal)->isVisible());
        QCOMPARE(status->text(), QStringLiteral("Смена открыта, редактирование разрешено"));

        setScale(1.0);
        QTRY_VERIFY(bar->isAncestorOf(status));
        QCOMPARE(status->width(), width);
        QTRY_VERIFY(panes(journal)->isVisible());
    }

    void aWiderWindowTakesTheStatusBack()
    {
        setScale(1.5);
        const TestStore store;
        JournalWindow journal(store, QStringLiteral("ivanov"));
        show(journal);
        const auto* bar = journal.child<QToolBar>("toolBar");
        const auto* status = journal.child<QLabel>("statusLabel");
        QVERIFY(!bar->isAncestorOf(status));
        journal.window().resize(2200, 720);
        QTRY_VERIFY(bar->isAncestorOf(status) && isInside(status, bar));
        QTRY_VERIFY(panes(journal)->isVisible());
    }

    void keepsTheUsersChoice()
    {
        setScale(1.0);
        const TestStore store;
        JournalWindow journal(store, QStringLiteral("ivanov"));
        show(journal);
        QVERIFY(panes(journal)->isVisible());
        journal.child<QToolButton>("paneButton")->click();
        QVERIFY(!panes(journal)->isVisible());
        journal.window().resize(2000, 720);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QVERIFY(!panes(journal)->isVisible());
    }
};

QTEST_MAIN(LargeFonts_test)
#include "LargeFonts_test.moc"
