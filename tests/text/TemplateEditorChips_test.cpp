#include "TemplateEditorBench.h"

#include <QClipboard>
#include <QMimeData>

namespace
{
using Bench = TemplateEditorBench;

unsigned count(const QString& html)
{
    return HtmlParser(html.toStdString()).countParameters();
}

} // namespace

/// Parameters are chips in the text of the editor: one character each, with all their properties.
class TemplateEditorChips_test : public QObject
{
    Q_OBJECT

private slots:
    void aChipIsOneCharacter();
    void aChipMovesWithAllItsProperties();
    void aChipIsCopiedAndPasted();
    void textTypedNextToAChipIsPlain();
    void aClickSelectsAChip();
    void aChipIsDraggedToAnotherPlace();
};

void TemplateEditorChips_test::aChipIsOneCharacter()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a") + Bench::parameter("text", "Кто там") +
                                 QStringLiteral("b"));
    bench.press(Qt::Key_Right, Qt::NoModifier, 2);
    bench.type(QStringLiteral("x"));
    QCOMPARE(TemplateText::plain(bench.now()), QStringLiteral("aКто тамxb"));
    bench.press(Qt::Key_Backspace, Qt::NoModifier, 2);
    QCOMPARE(bench.now(), QStringLiteral("ab"));
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(count(bench.now()), 1U);
}

void TemplateEditorChips_test::aChipMovesWithAllItsProperties()
{
    const QString chip = Bench::parameter(
        "datetime", "Срок",
        {{"format", "hh:mm"}, {"param_key", "k"}, {"idx", "3"}, {"own", "a;b=<\">"}, {"data", "D"}});
    Bench bench;
    bench.editor.setTemplateText(chip + QStringLiteral(" до"));
    bench.press(Qt::Key_Right, Qt::ShiftModifier);
    bench.press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(count(bench.now()), 0U);
    bench.press(Qt::Key_End);
    bench.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(bench.now(), QStringLiteral("\u00a0до") + chip);
}

void TemplateEditorChips_test::aChipIsCopiedAndPasted()
{
    const QString chip = Bench::list("Да или нет", {"да", "нет"});
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a ") + chip + QStringLiteral(" b"));
    bench.press(Qt::Key_Right);
    bench.press(Qt::Key_Right, Qt::ShiftModifier, 3);
    bench.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral(" Да или нет "));
    bench.press(Qt::Key_End);
    bench.press(Qt::Key_V, Qt::ControlModifier);
    bench.type(QStringLiteral("c"));
    QCOMPARE(bench.now(), QStringLiteral("a ") + chip + QStringLiteral(" b ") + chip + QStringLiteral(" c"));
    bench.press(Qt::Key_Z, Qt::ControlModifier, 2);
    QCOMPARE(bench.now(), QStringLiteral("a ") + chip + QStringLiteral(" b"));
}

void TemplateEditorChips_test::textTypedNextToAChipIsPlain()
{
    const QString chip = Bench::parameter("text", "Кто");
    Bench bench;
    bench.editor.setTemplateText(chip);
    bench.type(QStringLiteral("a"));
    bench.press(Qt::Key_End);
    bench.type(QStringLiteral("b"));
    for (const int position : {1, 3}) { // after the letter
        QTextCursor letter(bench.text()->document());
        letter.setPosition(position);
        QCOMPARE(letter.charFormat().verticalAlignment(), QTextCharFormat::AlignNormal);
        QCOMPARE(TemplateEditorChip::caption(letter.charFormat()), QString());
    }
    bench.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(bench.now(), QStringLiteral("a") + chip + QStringLiteral("b"));
    bench.type(QStringLiteral("c")); // replaces a selection that contains the chip
    QCOMPARE(bench.now(), QStringLiteral("c"));
    QVERIFY(!TemplateEditorChip::isChip(bench.text()->currentCharFormat()));
}

void TemplateEditorChips_test::aClickSelectsAChip()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("Принял ") + Bench::parameter("text", "Кто") +
                                 QStringLiteral(" смену"));
    QTest::mouseClick(bench.text()->viewport(), Qt::LeftButton, {}, bench.middleOf(7));
    QCOMPARE(bench.text()->textCursor().selectionStart(), 7);
    QCOMPARE(bench.text()->textCursor().selectionEnd(), 8);
    bench.press(Qt::Key_Delete);
    QCOMPARE(count(bench.now()), 0U);
    QTest::mouseClick(bench.text()->viewport(), Qt::LeftButton, {}, bench.middleOf(2));
    QVERIFY(!bench.text()->textCursor().hasSelection()); // words are not chips
}

void TemplateEditorChips_test::aChipIsDraggedToAnotherPlace()
{
    const QString chip = Bench::parameter("text", "Кто");
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("ab ") + chip + QStringLiteral(" cd"));
    QTextCursor cursor(bench.text()->document());
    cursor.setPosition(3);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    bench.text()->setTextCursor(cursor);
    // The part of a drag that the text sees; removing the chip from its old place belongs to the drag,
    // which needs a desktop.
    QMimeData data;
    data.setHtml(chip);
    const QPoint target = bench.text()->cursorRect(QTextCursor(bench.text()->document())).center();
    QDragEnterEvent enter(target, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bench.text()->viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(target, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bench.text()->viewport(), &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(bench.now(), chip + QStringLiteral("ab ") + chip + QStringLiteral(" cd"));
}

QTEST_MAIN(TemplateEditorChips_test)
#include "TemplateEditorChips_test.moc"
