#include "EditorGuard.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTextCodec>
#include <QTextEdit>

class EditorGuardTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void typedTextIsFitted_data() { editors(); }
    void typedTextIsFitted();
    void pastedTextIsFitted_data() { editors(); }
    void pastedTextIsFitted();
    void composedTextIsFitted_data() { editors(); }
    void composedTextIsFitted();
    void droppedTextIsFitted_data() { editors(); }
    void droppedTextIsFitted();
    void undoRevertsEditAndFittingTogether_data() { editors(); }
    void undoRevertsEditAndFittingTogether();
    void redoRestoresTheFittedText_data() { editors(); }
    void redoRestoresTheFittedText();
    void textSetByTheProgramIsUnchanged_data() { editors(); }
    void textSetByTheProgramIsUnchanged();
    void fittingTextIsUnchanged_data() { editors(); }
    void fittingTextIsUnchanged();

    void pastingWithoutAKeyIsFitted();
    void undoRestoresAReplacedSelection();
    void theCursorStaysAfterTheFittedText();
    void aLineEditSignalsTheFittedTextLast();
    void theLengthLimitOfALineEditApplies();
    void cellsOfTablesAreWatched();
    void formatsAndObjectsOfATextAreKept();
    void anEditWithoutUndoIsFitted();
    void theProgramsCharacterIsFittedAtTheNextEdit();
    void linesOfVeryLongWordsEndAtAnyLetter();

private:
    template <class Edit>
    void typeVeryLongWord();
    /// The same interface to all kinds of editors.
    struct Editor {
        QWidget* widget;
        std::function<QString()> text;
        std::function<void(const QString&)> set;
        std::function<void()> undo;
        std::function<void()> redo;
        QWidget* dropTarget;
    };
    static void editors()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("line edit") << 0;
        QTest::newRow("combo box") << 1;
        QTest::newRow("text edit") << 2;
        QTest::newRow("plain text edit") << 3;
    }
    Editor make(int kind);
    Editor lineEditor(QLineEdit* line);
    void show(QWidget* widget);
    static void paste(QWidget* widget, const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
    }

    std::unique_ptr<EditorGuard> guard;
    std::unique_ptr<QSignalSpy> adjusted;
    std::unique_ptr<QWidget> window;
};

void EditorGuardTest::init()
{
    guard = std::make_unique<EditorGuard>();
    guard->setCodec(QTextCodec::codecForName("Windows-1251"));
    adjusted = std::make_unique<QSignalSpy>(guard.get(), &EditorGuard::textAdjusted);
    window = std::make_unique<QWidget>();
    window->resize(300, 200);
}

void EditorGuardTest::cleanup()
{
    window.reset();
    guard.reset();
}

void EditorGuardTest::show(QWidget* widget)
{
    widget->resize(280, 120);
    window->show();
    QApplication::setActiveWindow(window.get());
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    widget->setFocus();
}

EditorGuardTest::Editor EditorGuardTest::lineEditor(QLineEdit* line)
{
    return {line,
            [line] { return line->text(); },
            [line](const QString& text) { line->setText(text); },
            [line] { line->undo(); },
            [line] { line->redo(); },
            line};
}

EditorGuardTest::Editor EditorGuardTest::make(int kind)
{
    Editor editor;
    if (kind == 0) {
        editor = lineEditor(new QLineEdit(window.get()));
    } else if (kind == 1) {
        auto* combo = new QComboBox(window.get());
        combo->setEditable(true);
        editor = lineEditor(combo->lineEdit());
        editor.widget = combo;
    } else if (kind == 2) {
        auto* edit = new QTextEdit(window.get());
        editor = {edit,
                  [edit] { return edit->toPlainText(); },
                  [edit](const QString& text) { edit->setPlainText(text); },
                  [edit] { edit->undo(); },
                  [edit] { edit->redo(); },
                  edit->viewport()};
    } else {
        auto* edit = new QPlainTextEdit(window.get());
        editor = {edit,
                  [edit] { return edit->toPlainText(); },
                  [edit](const QString& text) { edit->setPlainText(text); },
                  [edit] { edit->undo(); },
                  [edit] { edit->redo(); },
                  edit->viewport()};
    }
    show(editor.widget);
    return editor;
}

void EditorGuardTest::typedTextIsFitted()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    QTest::sendKeyEvent(QTest::Click, editor.widget, Qt::Key_unknown, QStringLiteral("а"), Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Click, editor.widget, Qt::Key_unknown, QStringLiteral("→"), Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Click, editor.widget, Qt::Key_unknown, QStringLiteral("б"), Qt::NoModifier);
    QCOMPARE(editor.text(), QStringLiteral("а->б"));
    QCOMPARE(adjusted->count(), 1);
    QVERIFY(adjusted->at(0).at(0).toString().contains(QStringLiteral("«→» заменено на «->»")));
}

void EditorGuardTest::pastedTextIsFitted()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("ВЛ\u2011110 → ПС 😀и\u0306"));
    QCOMPARE(editor.text(), QStringLiteral("ВЛ-110 -> ПС й"));
    QCOMPARE(adjusted->count(), 1);
    QVERIFY(adjusted->at(0).at(0).toString().contains(QStringLiteral("«😀» опущено")));
}

void EditorGuardTest::composedTextIsFitted()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("né→"));
    QApplication::sendEvent(editor.widget, &event);
    QCOMPARE(editor.text(), QStringLiteral("ne->"));
}

void EditorGuardTest::droppedTextIsFitted()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    QMimeData data;
    data.setText(QStringLiteral("а→б"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.dropTarget, &enter);
    QDragMoveEvent move(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.dropTarget, &move);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.dropTarget, &drop);
    QCOMPARE(editor.text(), QStringLiteral("а->б"));
}

void EditorGuardTest::undoRevertsEditAndFittingTogether()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("начало "));
    paste(editor.widget, QStringLiteral("а→б"));
    QCOMPARE(editor.text(), QStringLiteral("начало а->б"));
    editor.undo();
    QCOMPARE(editor.text(), QStringLiteral("начало "));
    editor.undo();
    QCOMPARE(editor.text(), QString());
    QCOMPARE(adjusted->count(), 1);
}

void EditorGuardTest::redoRestoresTheFittedText()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("а→б"));
    editor.undo();
    editor.redo();
    QCOMPARE(editor.text(), QStringLiteral("а->б"));
}

void EditorGuardTest::textSetByTheProgramIsUnchanged()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    editor.set(QStringLiteral("а→б"));
    QCOMPARE(editor.text(), QStringLiteral("а→б"));
    paste(editor.widget, QStringLiteral("в"));
    editor.set(QStringLiteral("г→д")); // also after an edit in another text
    QCOMPARE(editor.text(), QStringLiteral("г→д"));
}

void EditorGuardTest::fittingTextIsUnchanged()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("Ёлка – «№ 12»"));
    QTest::sendKeyEvent(QTest::Click, editor.widget, Qt::Key_unknown, QStringLiteral("!"), Qt::NoModifier);
    QCOMPARE(editor.text(), QStringLiteral("Ёлка – «№ 12»!"));
    QCOMPARE(adjusted->count(), 0);
}

void EditorGuardTest::pastingWithoutAKeyIsFitted()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    QApplication::clipboard()->setText(QStringLiteral("а→б"));
    line->paste();
    QCOMPARE(line->text(), QStringLiteral("а->б"));
}

void EditorGuardTest::undoRestoresAReplacedSelection()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    line->setText(QStringLiteral("один два три"));
    line->setSelection(5, 3);
    paste(line, QStringLiteral("→"));
    QCOMPARE(line->text(), QStringLiteral("один -> три"));
    line->undo();
    QCOMPARE(line->text(), QStringLiteral("один два три"));
}

void EditorGuardTest::theCursorStaysAfterTheFittedText()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    line->setText(QStringLiteral("до после"));
    line->setCursorPosition(3);
    paste(line, QStringLiteral("→ "));
    QCOMPARE(line->text(), QStringLiteral("до -> после"));
    QCOMPARE(line->cursorPosition(), 6);
}

void EditorGuardTest::aLineEditSignalsTheFittedTextLast()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    QString signalled;
    connect(line, &QLineEdit::textChanged, line, [&signalled](const QString& text) { signalled = text; });
    paste(line, QStringLiteral("а→б"));
    QTRY_COMPARE(signalled, QStringLiteral("а->б"));
}

void EditorGuardTest::theLengthLimitOfALineEditApplies()
{
    auto* line = new QLineEdit(window.get());
    line->setMaxLength(4);
    show(line);
    paste(line, QStringLiteral("абв→г"));
    QCOMPARE(line->text(), QStringLiteral("абв-"));
}

void EditorGuardTest::cellsOfTablesAreWatched()
{
    auto* table = new QTableWidget(1, 1, window.get());
    table->setItem(0, 0, new QTableWidgetItem);
    show(table);
    table->editItem(table->item(0, 0));
    auto* cell = table->findChild<QLineEdit*>();
    QVERIFY(cell);
    paste(cell, QStringLiteral("а→б"));
    QTest::keyClick(cell, Qt::Key_Return);
    QTRY_COMPARE(table->item(0, 0)->text(), QStringLiteral("а->б"));
}

void EditorGuardTest::formatsAndObjectsOfATextAreKept()
{
    auto* edit = new QTextEdit(window.get());
    show(edit);
    edit->setHtml(QStringLiteral("один<br><img src=\"x\"><b>два</b>"));
    QTextCursor cursor(edit->document());
    cursor.movePosition(QTextCursor::End);
    edit->setTextCursor(cursor);
    QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QStringLiteral("→"), Qt::NoModifier);
    QCOMPARE(edit->document()->toRawText(), QStringLiteral("один\u2028\uFFFCдва->"));
    cursor.movePosition(QTextCursor::End);
    QCOMPARE(cursor.charFormat().fontWeight(), int(QFont::Bold));
    QCOMPARE(adjusted->count(), 1);
}

void EditorGuardTest::anEditWithoutUndoIsFitted()
{
    auto* edit = new QTextEdit(window.get());
    edit->setUndoRedoEnabled(false);
    show(edit);
    paste(edit, QStringLiteral("а→б"));
    QTRY_COMPARE(edit->toPlainText(), QStringLiteral("а->б"));
}

void EditorGuardTest::theProgramsCharacterIsFittedAtTheNextEdit()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    line->setText(QStringLiteral("→ "));
    line->end(false);
    paste(line, QStringLiteral("б"));
    QCOMPARE(line->text(), QStringLiteral("-> б"));
}

/// Only with such lines the layout time does not grow with the square of the word's length.
template <class Edit>
void EditorGuardTest::typeVeryLongWord()
{
    const auto mode = [](const Edit& edit) { return edit.document()->defaultTextOption().wrapMode(); };
    const QString word(20000, QLatin1Char('x'));
    auto* edit = new Edit(window.get());
    edit->setPlainText(word);
    edit->show();
    show(edit);
    QCOMPARE(mode(*edit), QTextOption::WrapAnywhere);
    edit->setPlainText(QStringLiteral("word "));
    QCOMPARE(mode(*edit), QTextOption::WrapAtWordBoundaryOrAnywhere);
    edit->moveCursor(QTextCursor::End);
    paste(edit, word);
    QCOMPARE(mode(*edit), QTextOption::WrapAnywhere);
    QCOMPARE(edit->toPlainText(), QStringLiteral("word ") + word);
    edit->undo();
    QCOMPARE(mode(*edit), QTextOption::WrapAtWordBoundaryOrAnywhere);
    edit->setPlainText(QStringLiteral("a word ").repeated(2000)); // only words are too long, not texts
    QCOMPARE(mode(*edit), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

void EditorGuardTest::linesOfVeryLongWordsEndAtAnyLetter()
{
    typeVeryLongWord<QTextEdit>();
    typeVeryLongWord<QPlainTextEdit>();
}

QTEST_MAIN(EditorGuardTest)
#include "EditorGuard_test.moc"
