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

    void typed_text_is_fitted_data() { editors(); }
    void typed_text_is_fitted();
    void pasted_text_is_fitted_data() { editors(); }
    void pasted_text_is_fitted();
    void composed_text_is_fitted_data() { editors(); }
    void composed_text_is_fitted();
    void dropped_text_is_fitted_data() { editors(); }
    void dropped_text_is_fitted();
    void undo_takes_edit_and_fitting_back_together_data() { editors(); }
    void undo_takes_edit_and_fitting_back_together();
    void redo_brings_the_fitted_text_data() { editors(); }
    void redo_brings_the_fitted_text();
    void what_the_program_sets_is_left_alone_data() { editors(); }
    void what_the_program_sets_is_left_alone();
    void text_that_fits_is_not_touched_data() { editors(); }
    void text_that_fits_is_not_touched();

    void pasting_without_a_key_is_fitted();
    void a_selection_that_is_pasted_over_comes_back_by_undo();
    void the_cursor_stays_behind_the_fitted_text();
    void the_last_word_of_a_line_edit_is_the_fitted_text();
    void the_limit_of_a_line_edit_holds();
    void cells_of_tables_are_watched();
    void formats_and_objects_of_a_text_stay();
    void an_edit_without_undo_is_fitted();
    void the_character_of_the_program_goes_with_the_next_edit();

private:
    /// One way to look at all kinds of editors.
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

void EditorGuardTest::typed_text_is_fitted()
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

void EditorGuardTest::pasted_text_is_fitted()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("ВЛ\u2011110 → ПС 😀и\u0306"));
    QCOMPARE(editor.text(), QStringLiteral("ВЛ-110 -> ПС й"));
    QCOMPARE(adjusted->count(), 1);
    QVERIFY(adjusted->at(0).at(0).toString().contains(QStringLiteral("«😀» опущено")));
}

void EditorGuardTest::composed_text_is_fitted()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("né→"));
    QApplication::sendEvent(editor.widget, &event);
    QCOMPARE(editor.text(), QStringLiteral("ne->"));
}

void EditorGuardTest::dropped_text_is_fitted()
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

void EditorGuardTest::undo_takes_edit_and_fitting_back_together()
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

void EditorGuardTest::redo_brings_the_fitted_text()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("а→б"));
    editor.undo();
    editor.redo();
    QCOMPARE(editor.text(), QStringLiteral("а->б"));
}

void EditorGuardTest::what_the_program_sets_is_left_alone()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    editor.set(QStringLiteral("а→б"));
    QCOMPARE(editor.text(), QStringLiteral("а→б"));
    paste(editor.widget, QStringLiteral("в"));
    editor.set(QStringLiteral("г→д")); // also after the user edited another text
    QCOMPARE(editor.text(), QStringLiteral("г→д"));
}

void EditorGuardTest::text_that_fits_is_not_touched()
{
    QFETCH(int, kind);
    const Editor editor = make(kind);
    paste(editor.widget, QStringLiteral("Ёлка – «№ 12»"));
    QTest::sendKeyEvent(QTest::Click, editor.widget, Qt::Key_unknown, QStringLiteral("!"), Qt::NoModifier);
    QCOMPARE(editor.text(), QStringLiteral("Ёлка – «№ 12»!"));
    QCOMPARE(adjusted->count(), 0);
}

void EditorGuardTest::pasting_without_a_key_is_fitted()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    QApplication::clipboard()->setText(QStringLiteral("а→б"));
    line->paste();
    QCOMPARE(line->text(), QStringLiteral("а->б"));
}

void EditorGuardTest::a_selection_that_is_pasted_over_comes_back_by_undo()
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

void EditorGuardTest::the_cursor_stays_behind_the_fitted_text()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    line->setText(QStringLiteral("до после"));
    line->setCursorPosition(3);
    paste(line, QStringLiteral("→ "));
    QCOMPARE(line->text(), QStringLiteral("до -> после"));
    QCOMPARE(line->cursorPosition(), 6);
}

void EditorGuardTest::the_last_word_of_a_line_edit_is_the_fitted_text()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    QString told;
    connect(line, &QLineEdit::textChanged, line, [&told](const QString& text) { told = text; });
    paste(line, QStringLiteral("а→б"));
    QTRY_COMPARE(told, QStringLiteral("а->б"));
}

void EditorGuardTest::the_limit_of_a_line_edit_holds()
{
    auto* line = new QLineEdit(window.get());
    line->setMaxLength(4);
    show(line);
    paste(line, QStringLiteral("абв→г"));
    QCOMPARE(line->text(), QStringLiteral("абв-"));
}

void EditorGuardTest::cells_of_tables_are_watched()
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

void EditorGuardTest::formats_and_objects_of_a_text_stay()
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

void EditorGuardTest::an_edit_without_undo_is_fitted()
{
    auto* edit = new QTextEdit(window.get());
    edit->setUndoRedoEnabled(false);
    show(edit);
    paste(edit, QStringLiteral("а→б"));
    QTRY_COMPARE(edit->toPlainText(), QStringLiteral("а->б"));
}

void EditorGuardTest::the_character_of_the_program_goes_with_the_next_edit()
{
    auto* line = new QLineEdit(window.get());
    show(line);
    line->setText(QStringLiteral("→ "));
    line->end(false);
    paste(line, QStringLiteral("б"));
    QCOMPARE(line->text(), QStringLiteral("-> б"));
}

QTEST_MAIN(EditorGuardTest)
#include "EditorGuard_test.moc"
