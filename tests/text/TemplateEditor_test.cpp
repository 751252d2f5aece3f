#include "CVrkCliApp.h"
#include "DemoTemplates.h"
#include "LogWatch.h"
#include "TemplateEditorBench.h"
#include "TestClient.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QToolButton>

namespace
{
using Bench = TemplateEditorBench;

QString demoText(const DemoTemplate& demo)
{
    return QString::fromStdString(demo.html);
}

unsigned count(const QString& html)
{
    return HtmlParser(html.toStdString()).countParameters();
}

QString struck(const QString& words)
{
    return QStringLiteral("<span style=\" text-decoration: line-through;\">") + words +
           QStringLiteral("</span>");
}
} // namespace

class TemplateEditor_test : public QObject
{
    Q_OBJECT

private slots:
    void textsThatAreNotTouchedComeBackToTheLetter_data();
    void textsThatAreNotTouchedComeBackToTheLetter();
    void undoBringsTheLettersOfTheTextBack();
    void settingAndClearingAreNoChangesOfTheUser();
    void signalsEachChangeOnceWithTheText();
    void blockedSignalsTellNothing();
    void templatePropertiesStayInFront();
    void newTemplatePropertiesLeaveCursorAndUndo();
    void theSameTextAfterClearingKeepsThePlace();
    void emptyingTheTextLeavesThePropertiesOnly();
    void lineEndsAndBlanksAreKept();
    void specialCharactersAreWords();

    void boldAndStrikeOutByKeyAndButton();
    void aStruckOutParameterIsStruckOutInside();
    void typesBoldNextToABoldPassage();
    void theButtonsShowTheLookOfTheSelection();

    void theMenuLeadsToTheParameterAndBack();
    void readOnlyTextCanBeCopiedButNotChanged();
    void thePreviewFollowsTheText();
    void tabWalksInTheOrderOfTheEye();
    void largeFontsAndDarkThemesHold();
    void narrowEditorShowsAllItsTools();
};

void TemplateEditor_test::textsThatAreNotTouchedComeBackToTheLetter_data()
{
    QTest::addColumn<QString>("html");
    for (const DemoTemplate& demo : DemoTemplates::builtIn())
        QTest::newRow(demo.name.toUtf8().constData()) << demoText(demo);
    TestStore store;
    for (const QVariantList& row : store.rows(QStringLiteral("SELECT KeyLink, html FROM LogbookTemplates")))
        QTest::newRow(row.first().toString().toUtf8().constData()) << row.last().toString();
    QTest::newRow("untidy markup") << QStringLiteral(
        "<P>a  b</p>\r\n<a HREF='parameter:name=text;x'>l<b>m</b><meta name=template "
        "content=\"time_exec\"></A> <table><tr><td>1</td></tr></table> < & <a href=parameter:name=line>open");
    QTest::newRow("nothing") << QString();
    QTest::newRow("properties alone") << QStringLiteral("<meta name=\"template\" content=\"open_wshift\">");
}

void TemplateEditor_test::textsThatAreNotTouchedComeBackToTheLetter()
{
    QFETCH(QString, html);
    Bench bench;
    bench.editor.setTemplateText(html);
    QCOMPARE(bench.now(), html);
    bench.press(Qt::Key_Right, Qt::NoModifier, 3);
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(bench.now(), html);
    QCOMPARE(bench.changes.count(), 0);
}

void TemplateEditor_test::undoBringsTheLettersOfTheTextBack()
{
    const QString html = QStringLiteral("<p>Принял <i>смену</i></p><a href='parameter:name=text'>Кто</a>");
    Bench bench;
    bench.editor.setTemplateText(html);
    bench.type(QStringLiteral("Ещё "));
    bench.press(Qt::Key_End, Qt::ControlModifier);
    bench.press(Qt::Key_Backspace);
    QCOMPARE(bench.now(), QStringLiteral("Ещё Принял <i>смену</i>"));
    for (int i = 0; i < 6 && bench.now() != html; ++i)
        bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.now(), html);
    QCOMPARE(bench.changes.last().first().toString(), html);
    for (int i = 0; i < 6; ++i)
        bench.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(bench.now(), QStringLiteral("Ещё Принял <i>смену</i>"));
}

void TemplateEditor_test::settingAndClearingAreNoChangesOfTheUser()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Смена"));
    bench.editor.setTemplateText(QStringLiteral("Работа"));
    bench.editor.clearTemplateText();
    QCOMPARE(bench.now(), QString());
    QCOMPARE(bench.text()->toPlainText(), QString());
    QCOMPARE(bench.changes.count(), 0);
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.now(), QString()); // nothing to undo
}

void TemplateEditor_test::signalsEachChangeOnceWithTheText()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Смена"));
    bench.type(QStringLiteral("а"));
    QCOMPARE(bench.changes.count(), 1);
    QCOMPARE(bench.changes.takeFirst().first().toString(), QStringLiteral("аСмена"));
    bench.press(Qt::Key_Left);
    bench.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(bench.changes.count(), 0);
    bench.press(Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(bench.changes.count(), 1);
    QCOMPARE(bench.changes.takeFirst().first().toString(), QStringLiteral("<b>а</b>Смена"));
}

void TemplateEditor_test::blockedSignalsTellNothing()
{
    Bench bench;
    bench.editor.blockSignals(true);
    bench.type(QStringLiteral("а"));
    bench.editor.blockSignals(false);
    QCOMPARE(bench.changes.count(), 0);
    QCOMPARE(bench.now(), QStringLiteral("а"));
}

void TemplateEditor_test::templatePropertiesStayInFront()
{
    const QString first = QStringLiteral("<meta name=\"template\" content=\"open_wshift;unknown=1%3B2\">");
    const QString second = QStringLiteral("<META content='command=%D0%AB' name='template'/>");
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Смена") + first + QStringLiteral(" открыта") + second);
    bench.press(Qt::Key_Delete);
    QCOMPARE(bench.now(), first + second + QStringLiteral("мена открыта"));
    const HtmlParser parser(bench.now().toStdString());
    QVERIFY(parser.isExistTemplateProperty("open_wshift"));
    std::string value;
    parser.templatePropertyValue("unknown", value);
    QCOMPARE(value, std::string("1;2"));
}

void TemplateEditor_test::newTemplatePropertiesLeaveCursorAndUndo()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Смена"));
    bench.press(Qt::Key_Right, Qt::NoModifier, 2);
    bench.type(QStringLiteral("я"));
    HtmlParser parser(bench.now().toStdString());
    parser.setTemplateProperty("time_exec", true);
    bench.editor.setTemplateText(QString::fromStdString(parser.readyHtml(true)));
    QCOMPARE(bench.now(), QStringLiteral("<meta name=\"template\" content=\"time_exec\">Смяена"));
    QCOMPARE(bench.text()->textCursor().position(), 3);
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.now(), QStringLiteral("<meta name=\"template\" content=\"time_exec\">Смена"));
    parser.setHtml(bench.now().toStdString());
    parser.removeTemplateProperty("time_exec");
    bench.editor.setTemplateText(QString::fromStdString(parser.readyHtml(true)));
    QCOMPARE(bench.now(), QStringLiteral("Смена"));
    QCOMPARE(bench.changes.count(), 2); // the typing and its undo
}

void TemplateEditor_test::theSameTextAfterClearingKeepsThePlace()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Смена"));
    bench.press(Qt::Key_Right, Qt::NoModifier, 2);
    bench.type(QStringLiteral("я"));
    const QString saved = bench.now();
    bench.editor.clearTemplateText();
    bench.editor.setTemplateText(saved);
    QCOMPARE(bench.text()->textCursor().position(), 3);
    bench.editor.clearTemplateText();
    bench.editor.setTemplateText(QStringLiteral("Другой текст"));
    QCOMPARE(bench.text()->textCursor().position(), 0);
}

void TemplateEditor_test::emptyingTheTextLeavesThePropertiesOnly()
{
    Bench bench;
    bench.editor.setTemplateText(
        QStringLiteral("<meta name=\"template\" content=\"time_exec\"><b>a</b><br/>b"));
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_Delete);
    QCOMPARE(bench.now(), QStringLiteral("<meta name=\"template\" content=\"time_exec\">"));
    bench.editor.setTemplateText(QStringLiteral("x"));
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_Return);
    bench.press(Qt::Key_Return);
    QCOMPARE(bench.now(), QString());
}

void TemplateEditor_test::lineEndsAndBlanksAreKept()
{
    Bench bench;
    bench.type(QStringLiteral(" a  b"));
    bench.press(Qt::Key_Return);
    bench.press(Qt::Key_Return, Qt::ShiftModifier);
    bench.type(QStringLiteral("c "));
    QCOMPARE(bench.now(), QStringLiteral("\u00a0a \u00a0b<br/><br/>c\u00a0"));
    QCOMPARE(TemplateText::plain(bench.now()), QStringLiteral(" a  b\n\nc "));
}

void TemplateEditor_test::specialCharactersAreWords()
{
    Bench bench;
    bench.type(QStringLiteral("U<6 & \"П\" > [0] &amp; </a>"));
    QCOMPARE(TemplateText::plain(bench.now()), QStringLiteral("U<6 & \"П\" > [0] &amp; </a>"));
    const QString html = bench.now();
    bench.editor.clearTemplateText();
    bench.editor.setTemplateText(html);
    bench.press(Qt::Key_End);
    bench.type(QStringLiteral("!"));
    QCOMPARE(bench.now(), html + QLatin1Char('!'));
}

void TemplateEditor_test::boldAndStrikeOutByKeyAndButton()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("один два три"));
    bench.press(Qt::Key_Right, Qt::ShiftModifier, 4);
    bench.press(Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(bench.now(), QStringLiteral("<b>один</b> два три"));
    bench.press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(bench.now(),
             QStringLiteral("<b>") + struck(QStringLiteral("один")) + QStringLiteral("</b> два три"));
    QTest::mouseClick(bench.child("boldButton"), Qt::LeftButton);
    QCOMPARE(bench.now(), struck(QStringLiteral("один")) + QStringLiteral(" два три"));
    QTest::mouseClick(bench.child("struckOutButton"), Qt::LeftButton);
    QCOMPARE(bench.now(), QStringLiteral("один два три"));
    QVERIFY(bench.text()->hasFocus()); // a click leaves the focus in the text
    bench.press(Qt::Key_End);
    bench.press(Qt::Key_B, Qt::ControlModifier);
    bench.type(QStringLiteral("x"));
    bench.press(Qt::Key_B, Qt::ControlModifier);
    bench.type(QStringLiteral("y"));
    QCOMPARE(bench.now(), QStringLiteral("один два три<b>x</b>y"));
}

void TemplateEditor_test::aStruckOutParameterIsStruckOutInside()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a ") + Bench::parameter("text", "Кто") +
                                 QStringLiteral(" b"));
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(bench.now(),
             struck(QStringLiteral("a ")) + QStringLiteral("<a href=\"parameter:name=text;locname=Кто\">") +
                 struck(QStringLiteral("Кто")) + QStringLiteral("</a>") + struck(QStringLiteral(" b")));
    bench.press(Qt::Key_B, Qt::ControlModifier);
    bench.press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(bench.now(),
             QStringLiteral("<b>a ") + Bench::parameter("text", "Кто") + QStringLiteral(" b</b>"));
}

void TemplateEditor_test::typesBoldNextToABoldPassage()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("<b>a</b>b"));
    bench.press(Qt::Key_Right);
    bench.type(QStringLiteral("x"));
    QCOMPARE(bench.now(), QStringLiteral("<b>ax</b>b"));
}

void TemplateEditor_test::theButtonsShowTheLookOfTheSelection()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("<b>a</b>b"));
    auto* bold = bench.child<QToolButton>("boldButton");
    bench.press(Qt::Key_Right, Qt::ShiftModifier);
    QVERIFY(bold->isChecked());
    bench.press(Qt::Key_Right, Qt::ShiftModifier);
    QVERIFY(!bold->isChecked()); // not all of it
    QVERIFY(!bench.child<QToolButton>("struckOutButton")->isChecked());
}

void TemplateEditor_test::theMenuLeadsToTheParameterAndBack()
{
    LogWatch log;
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("ab ") + Bench::parameter("text", "Кто"));
    const auto menu = [&bench](const QPoint& place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                bench.text()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(bench.text()->viewport(), &event);
        return bench.text()->findChild<QMenu*>(QStringLiteral("templateMenu"));
    };
    QMenu* opened = menu(bench.middleOf(3));
    QVERIFY(opened);
    opened->findChild<QAction*>(QStringLiteral("parameterMenuAction"))->trigger();
    QVERIFY(bench.dialog());
    bench.dialog()->reject();
    opened->close();
    QTRY_VERIFY(!bench.dialog() && !bench.text()->findChild<QMenu*>(QStringLiteral("templateMenu")));

    bench.press(Qt::Key_End, Qt::ShiftModifier);
    bench.press(Qt::Key_X, Qt::ControlModifier);
    opened = menu(QPoint(10, 10));
    QVERIFY(!opened->findChild<QAction*>(QStringLiteral("parameterMenuAction")));
    opened->findChild<QAction*>(QStringLiteral("edit-undo"))->trigger();
    QCOMPARE(count(bench.now()), 1U);
    opened->close();
    QTRY_VERIFY(!bench.text()->findChild<QMenu*>(QStringLiteral("templateMenu")));
    opened = menu(QPoint(10, 10));
    opened->findChild<QAction*>(QStringLiteral("edit-redo"))->trigger();
    QCOMPARE(bench.now(), QString());
    QCOMPARE(bench.changes.count(), 3); // each step was signalled once
    QCOMPARE(log.take(), QStringList());
}

void TemplateEditor_test::readOnlyTextCanBeCopiedButNotChanged()
{
    const QString html = QStringLiteral("a ") + Bench::parameter("text", "Кто");
    Bench bench;
    bench.editor.setTemplateText(html);
    bench.editor.setEnabled(false);
    QVERIFY(!bench.editor.isEnabled());
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("a Кто"));
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_F2})
        bench.press(key);
    for (const Qt::Key key : {Qt::Key_B, Qt::Key_V, Qt::Key_X})
        bench.press(key, Qt::ControlModifier);
    bench.type(QStringLiteral("x"));
    QTest::mouseDClick(bench.text()->viewport(), Qt::LeftButton, {}, bench.middleOf(2));
    QVERIFY(!bench.dialog());
    QCOMPARE(bench.now(), html);
    QCOMPARE(bench.changes.count(), 0);
    bench.editor.setEnabled(true);
    QVERIFY(bench.editor.isEnabled());
    bench.type(QStringLiteral("x"));
    QCOMPARE(bench.changes.count(), 1);
}

void TemplateEditor_test::thePreviewFollowsTheText()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Принял ") + Bench::parameter("text", "Кто") +
                                 QStringLiteral(" ") +
                                 Bench::parameter("text", "Зачем", {{"optional", "1"}}));
    QCOMPARE(bench.preview(), QStringLiteral("Принял Кто * Зачем")); // a parameter to be filled has a star
    bench.press(Qt::Key_End);
    bench.type(QStringLiteral(" смену"));
    QCOMPARE(bench.preview(), QStringLiteral("Принял Кто * Зачем смену"));
}

void TemplateEditor_test::tabWalksInTheOrderOfTheEye()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a"));
    bench.press(Qt::Key_Tab);
    QCOMPARE(bench.now(), QStringLiteral("a"));
    QCOMPARE(QApplication::focusWidget(), bench.child("parameterSearch"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), bench.tree());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), bench.text());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), bench.child("findParameterButton"));
}

void TemplateEditor_test::largeFontsAndDarkThemesHold()
{
    Bench bench;
    bench.editor.setTemplateText(
        Bench::parameter("text", "Очень длинное название параметра, которое шире самого поля "
                                 "и ещё немного длиннее, чем поле бывает"));
    bench.editor.resize(420, 400);
    QFont large = bench.editor.font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    bench.editor.setFont(large);
    QCoreApplication::processEvents();
    // A chip is never wider than the text; its caption is truncated.
    QVERIFY(bench.text()->document()->idealWidth() <= bench.text()->viewport()->width());
    auto* undo = bench.child<QToolButton>("undoButton");
    QVERIFY(undo->width() >= undo->fontMetrics().horizontalAdvance(undo->text()));

    bench.editor.setTemplateText(Bench::parameter("text", "Ж"));
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    dark.setColor(QPalette::Text, QColor(0xdf, 0xe1, 0xe5));
    bench.editor.setPalette(dark);
    const QImage image = bench.text()->viewport()->grab().toImage();
    const QPoint middle = bench.middleOf(0);
    int light = 0;
    int darkest = 255;
    for (int x = middle.x() - 12; x < middle.x() + 12; ++x) {
        for (int y = middle.y() - 8; y < middle.y() + 8; ++y) {
            light = qMax(light, qGray(image.pixel(x, y)));
            darkest = qMin(darkest, qGray(image.pixel(x, y)));
        }
    }
    QVERIFY(light > 160);  // the caption
    QVERIFY(darkest < 90); // its background
}

void TemplateEditor_test::narrowEditorShowsAllItsTools()
{
    QWidget room; // without a layout, as in a cell of a table
    Bench bench;
    bench.editor.setParent(&room);
    room.resize(900, 420);
    bench.editor.setGeometry(0, 0, 900, 420);
    bench.editor.show();
    room.show();
    const QWidget* first = bench.child("boldButton");
    const QWidget* last = bench.child("findParameterButton");
    QCOMPARE(last->y(), first->y());
    bench.editor.resize(260, 420);
    QTRY_VERIFY(last->y() > first->y());
    for (const QToolButton* tool : first->parentWidget()->findChildren<QToolButton*>()) {
        QVERIFY(tool->parentWidget()->rect().contains(tool->geometry()));
        QVERIFY(tool->width() > tool->fontMetrics().horizontalAdvance(tool->text()));
    }
}

QTEST_MAIN(TemplateEditor_test)
#include "TemplateEditor_test.moc"
