#include "AboutDialog.h"
#include "CVrkCliMod.h"
#include "Greeting.h"
#include "Help.h"
#include "HelpBrowser.h"
#include "HelpWindow.h"
#include "HostBench.h"
#include "KeyTips.h"
#include "NoticeBar.h"
#include "UserSettings.h"
#include "WindowMemory.h"
#include "Workstation.h"

#include <QAction>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>

/// F1 and the entry "Справка": the guide, its search, the keys in tool tips, first steps and news.
class Help_test : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCoreApplication::setApplicationVersion(QString()); }

    void keyOpensTheSectionOfTheWindowInFront();
    void dialogThatBlocksOthersHasItsOwnGuide();
    void menuOpensGuideKeysNewsAndFacts();
    void searchMarksAllHitsAndGoesRound();
    void contentsAndLinksLeadToTheirSections();
    void picturesAndTablesFitTheWindow();
    void tipsNameTheKeyAndStayAsTheyAre();
    void newUserSeesTheFirstStepsOnce();
    void newsComeOnceAfterAnUpgrade();
    void nothingGreetsUnlessAskedFor();
    void damagedSeenVersionDoesNoHarm();

private:
    static CVrkCliMod* journalOf(Workstation& host, const HostBench& bench, bool greets = false);
    static HelpWindow* shown();
    static QString currentTitle();
    static void pressF1(QWidget* widget)
    {
        widget->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), widget->window());
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_F1);
    }
    static NoticeBar* greetingOf(CVrkCliMod* journal)
    {
        return journal->findChild<NoticeBar*>(QStringLiteral("greetingBar"));
    }
};

CVrkCliMod* Help_test::journalOf(Workstation& host, const HostBench& bench, bool greets)
{
    Options options;
    options.store = bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    options.greets = greets;
    if (!host.enter(options))
        qFatal("%s", qPrintable(host.errorText()));
    return host.startModule(QStringLiteral("logbook"));
}

HelpWindow* Help_test::shown()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<HelpWindow*>(widget);
        if (window && window->isVisible())
            return window;
    }
    return nullptr;
}

QString Help_test::currentTitle()
{
    const HelpWindow* window = shown();
    const auto* tree = window ? window->findChild<QTreeWidget*>() : nullptr;
    return tree && tree->currentItem() ? tree->currentItem()->text(0) : QString();
}

void Help_test::keyOpensTheSectionOfTheWindowInFront()
{
    HostBench bench;
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench);
    QVERIFY(QTest::qWaitForWindowActive(journal));
    pressF1(journal->findChild<QTableView*>(QStringLiteral("recordsTable")));
    QCOMPARE(currentTitle(), QStringLiteral("Оперативный журнал"));
    const HelpWindow* first = shown();
    pressF1(journal->findChild<QWidget*>(QStringLiteral("commentsList")));
    QCOMPARE(currentTitle(), QStringLiteral("Комментарии"));
    QCOMPARE(shown(), first); // one window

    journal->findChild<QAction*>(QStringLiteral("chooseIntervalAction"))->trigger();
    QWidget* dialog = nullptr;
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->isVisible() && widget->inherits("DateTimeRangeDialog"))
            dialog = widget;
    QVERIFY(dialog);
    pressF1(dialog->focusWidget() ? dialog->focusWidget() : dialog);
    QCOMPARE(currentTitle(), QStringLiteral("Состав и выбор смены"));
    QTest::keyClick(shown(), Qt::Key_Escape);
    QVERIFY(!shown());
}

void Help_test::dialogThatBlocksOthersHasItsOwnGuide()
{
    HostBench bench;
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench);
    QVERIFY(QTest::qWaitForWindowActive(journal));
    bool isChild = false;
    QString title;
    HostBench::whenShown<AboutDialog>([&](AboutDialog* dialog) {
        pressF1(dialog->findChild<QPlainTextEdit*>());
        isChild = shown() && shown()->parentWidget() == dialog;
        title = currentTitle();
        pressF1(dialog->findChild<QPlainTextEdit*>());
        isChild = isChild && dialog->findChildren<HelpWindow*>().size() == 1;
        dialog->close();
    });
    journal->findChild<QAction*>(QStringLiteral("aboutAction"))->trigger();
    QVERIFY(isChild);
    QCOMPARE(title, QStringLiteral("Справка"));
}

void Help_test::menuOpensGuideKeysNewsAndFacts()
{
    HostBench bench;
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench);
    QVERIFY(QTest::qWaitForWindowActive(journal));
    journal->findChild<QAction*>(QStringLiteral("keysAction"))->trigger();
    QCOMPARE(currentTitle(), QStringLiteral("Клавиши"));
    journal->findChild<QAction*>(QStringLiteral("newsAction"))->trigger();
    QCOMPARE(currentTitle(), QStringLiteral("Что нового"));
    QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
    QString facts;
    HostBench::whenShown<AboutDialog>([&facts](AboutDialog* dialog) {
        dialog->findChild<QPushButton*>(QStringLiteral("copyButton"))->click();
        facts = QApplication::clipboard()->text();
        dialog->close();
    });
    journal->findChild<QAction*>(QStringLiteral("aboutAction"))->trigger();
    for (const QString& fact : {QStringLiteral("7.8.9"), host.storeAddress(), QStringLiteral("SQLite, файл"),
                                QStringLiteral("LGPL"), QStringLiteral("OpenSSL")})
        QVERIFY2(facts.contains(fact), qPrintable(facts));
}

void Help_test::searchMarksAllHitsAndGoesRound()
{
    HelpWindow window;
    window.showSection(0);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto* edit = window.findChild<QLineEdit*>(QStringLiteral("searchEdit"));
    auto* browser = window.findChild<HelpBrowser*>();
    auto* count = window.findChild<QLabel*>(QStringLiteral("countLabel"));
    QTest::keySequence(browser, QKeySequence::Find);
    QCOMPARE(QApplication::focusWidget(), edit);
    edit->setText(QStringLiteral("ВИЗУ"));
    const int hits = browser->toPlainText().count(QStringLiteral("визу"), Qt::CaseInsensitive);
    QVERIFY(hits >= 3);
    QCOMPARE(browser->extraSelections().size(), hits);
    QCOMPARE(count->text(), QStringLiteral("1 из %1").arg(hits));
    const int first = browser->textCursor().position();
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(count->text(), QStringLiteral("2 из %1").arg(hits));
    QVERIFY(browser->textCursor().position() > first);
    QTest::keyClick(edit, Qt::Key_F3, Qt::ShiftModifier);
    QTest::keyClick(edit, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(count->text(), QStringLiteral("%1 из %1").arg(hits));
    QTest::keyClick(edit, Qt::Key_F3);
    QCOMPARE(count->text(), QStringLiteral("1 из %1").arg(hits));
    QCOMPARE(browser->textCursor().position(), first);
    edit->setText(QStringLiteral("нетакогослова"));
    QCOMPARE(count->text(), QStringLiteral("Не найдено"));
    QVERIFY(!window.findChild<QToolButton*>(QStringLiteral("nextButton"))->isEnabled());
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(edit->text(), QString());
    QVERIFY(browser->extraSelections().isEmpty());
    QVERIFY(window.isVisible());
}

void Help_test::contentsAndLinksLeadToTheirSections()
{
    HelpWindow window;
    window.showSection(0);
    auto* tree = window.findChild<QTreeWidget*>();
    auto* browser = window.findChild<HelpBrowser*>();
    int items = 0;
    for (QTreeWidgetItemIterator item(tree); *item; ++item, ++items) {
        tree->setCurrentItem(*item);
        QCOMPARE(browser->textCursor().block().text(), (*item)->text(0));
    }
    QCOMPARE(items, window.guide().sections().size());
    emit browser->anchorClicked(QUrl(QStringLiteral("#что-делать-если")));
    QCOMPARE(browser->textCursor().block().text(), QStringLiteral("Что делать, если…"));
}

void Help_test::picturesAndTablesFitTheWindow()
{
    HelpWindow window;
    window.showSection(0);
    auto* browser = window.findChild<HelpBrowser*>();
    for (int width : {1200, 700, 1200}) {
        window.resize(width, 600);
        QCoreApplication::processEvents();
        QCOMPARE(browser->horizontalScrollBar()->maximum(), 0);
    }
    const auto* table =
        browser->document()->rootFrame()->childFrames().isEmpty()
            ? nullptr
            : qobject_cast<QTextTable*>(browser->document()->rootFrame()->childFrames().first());
    QVERIFY(table);
    QVERIFY(table->format().border() > 0);
    QVERIFY(!browser->toPlainText().contains(QStringLiteral("<!--")));
    QVERIFY(!browser->toPlainText().contains(QStringLiteral("**")));
}

void Help_test::tipsNameTheKeyAndStayAsTheyAre()
{
    HostBench bench;
    Workstation host;
    const CVrkCliMod* journal = journalOf(host, bench);
    const auto button = [journal](const char* name) {
        return journal->findChild<QToolButton*>(QLatin1String(name));
    };
    QCOMPARE(KeyTips::tipOf(button("commentsButton")), QStringLiteral("Комментарии (Ctrl + M)"));
    QCOMPARE(KeyTips::tipOf(button("approveButton")), QStringLiteral("Утвердить (Ctrl + Shift + A)"));
    QCOMPARE(KeyTips::tipOf(button("createButton")), QStringLiteral("Добавить новую запись (Ctrl + N)"));
    QCOMPARE(KeyTips::tipOf(button("createCommentButton")), QStringLiteral("Добавить комментарий (F8)"));
    QToolButton* comments = button("commentsButton");
    QHelpEvent hover(QEvent::ToolTip, QPoint(3, 3), comments->mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(comments, &hover);
    QCOMPARE(QToolTip::text(), QStringLiteral("Комментарии (Ctrl + M)"));
    QCOMPARE(comments->toolTip(), QStringLiteral("Комментарии"));
    QCOMPARE(comments->accessibleName(), QStringLiteral("Комментарии"));
}

void Help_test::newUserSeesTheFirstStepsOnce()
{
    HostBench bench;
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0"));
    {
        Workstation host;
        CVrkCliMod* journal = journalOf(host, bench, true);
        QVERIFY(QTest::qWaitForWindowActive(journal));
        NoticeBar* bar = greetingOf(journal);
        QVERIFY(bar && bar->isVisible());
        QVERIFY2(bar->text().count(QLatin1Char('\n')) == 2, qPrintable(bar->text()));
        // The keyboard stays with the records.
        QCOMPARE(QApplication::focusWidget(), journal->findChild<QWidget*>(QStringLiteral("recordsTable")));
        bar->findChild<QPushButton*>(QStringLiteral("readButton"))->click();
        QCOMPARE(currentTitle(), QStringLiteral("Смена за десять минут"));
        QVERIFY(!journal->menuWidget());
    }
    Workstation next;
    QVERIFY(!greetingOf(journalOf(next, bench, true)));
}

void Help_test::newsComeOnceAfterAnUpgrade()
{
    QCOMPARE(Greeting::kindFor(QString(), QStringLiteral("2"), false), Greeting::FirstSteps);
    QCOMPARE(Greeting::kindFor(QString(), QStringLiteral("2"), true), Greeting::News);
    QCOMPARE(Greeting::kindFor(QStringLiteral("1"), QStringLiteral("2"), false), Greeting::News);
    QCOMPARE(Greeting::kindFor(QStringLiteral("2"), QStringLiteral("2"), true), Greeting::Nothing);
    HostBench bench;
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0"));
    {
        Workstation host;
        journalOf(host, bench, true)->close();
        QVERIFY(WindowMemory::knows(QStringLiteral("ozerov")));
        QVERIFY(!WindowMemory::knows(QStringLiteral("gorin")));
    }
    QCoreApplication::setApplicationVersion(QStringLiteral("2.1.0"));
    {
        Workstation host;
        CVrkCliMod* journal = journalOf(host, bench, true);
        QVERIFY(greetingOf(journal));
        QVERIFY(greetingOf(journal)->text().contains(QStringLiteral("2.1.0")));
        greetingOf(journal)->findChild<QPushButton*>(QStringLiteral("readButton"))->click();
        QCOMPARE(currentTitle(), QStringLiteral("Что нового"));
    }
    Workstation next;
    QVERIFY(!greetingOf(journalOf(next, bench, true)));
}

void Help_test::nothingGreetsUnlessAskedFor()
{
    HostBench bench;
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0"));
    Workstation host;
    QVERIFY(!greetingOf(journalOf(host, bench)));
    Options options;
    QString message;
    int code = 0;
    QVERIFY(options.parse({QStringLiteral("vrk"), QStringLiteral("--no-greeting")}, &message, &code));
    QVERIFY(!options.greets);
    QVERIFY(options.parse({QStringLiteral("vrk"), QStringLiteral("--tour"), QStringLiteral("x")}, &message,
                          &code));
    QVERIFY(!options.greets);
    QVERIFY(Options().parse({QStringLiteral("vrk")}, &message, &code));
}

void Help_test::damagedSeenVersionDoesNoHarm()
{
    HostBench bench;
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.0"));
    QSettings().setValue(QStringLiteral("users/ozerov/seenVersion"), QByteArray("\xff\0<b>", 5));
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench, true);
    QVERIFY(greetingOf(journal));
    QVERIFY(!greetingOf(journal)->text().contains(QStringLiteral("<b>")));
    greetingOf(journal)->findChild<QPushButton*>(QStringLiteral("doneButton"))->click();
    QVERIFY(!shown());
}

QTEST_MAIN(Help_test)
#include "Help_test.moc"
