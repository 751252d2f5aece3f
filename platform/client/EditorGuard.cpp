#include "EditorGuard.h"

#include "LongWords.h"

#include <algorithm>
#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>

namespace
{
/// Characters in a document's raw text that mark objects, forced line ends, paragraphs and frames.
bool isStructure(QChar character)
{
    switch (character.unicode()) {
    case QChar::ObjectReplacementCharacter:
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
    case 0xFDD0:
    case 0xFDD1:
        return true;
    default:
        return false;
    }
}
} // namespace

EditorGuard::EditorGuard(QObject* parent) : QObject(parent)
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->installEventFilter(this);
}

bool EditorGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish || event->type() == QEvent::FocusIn)
        watch(watched);
    return false;
}

void EditorGuard::watch(QObject* editor)
{
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        if (!qobject_cast<QAbstractSpinBox*>(line->parent()))
            connect(line, &QLineEdit::textEdited, this, &EditorGuard::fitLine, Qt::UniqueConnection);
    } else if (auto* text = qobject_cast<QTextEdit*>(editor)) {
        LongWords::watch(text->document());
        connect(text, &QTextEdit::textChanged, this, &EditorGuard::fitTextEdit, Qt::UniqueConnection);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(editor)) {
        LongWords::watch(plain->document());
        connect(plain, &QPlainTextEdit::textChanged, this, &EditorGuard::fitPlainTextEdit,
                Qt::UniqueConnection);
    }
}

void EditorGuard::fitLine()
{
    auto* line = qobject_cast<QLineEdit*>(sender());
    if (!line || m_fitting)
        return;
    const QString edited = line->text();
    const QVector<TextFit::Change> changes = m_fit.changes(edited);
    if (changes.isEmpty())
        return;
    const QScopedValueRollback<bool> fitting(m_fitting, true);
    const QString fitted = TextFit::applied(edited, changes);
    const QString head = edited.left(line->cursorPosition());
    const int cursor = TextFit::applied(head, m_fit.changes(head)).size();

    // The edit is undone and repeated with the fitted text, so that it stays one step of undo.
    if (line->isUndoAvailable())
        line->undo();
    const QString before = line->text();
    int same = 0;
    while (same < before.size() && same < fitted.size() && before[same] == fitted[same])
        ++same;
    int tail = 0;
    while (tail < before.size() - same && tail < fitted.size() - same &&
           before[before.size() - 1 - tail] == fitted[fitted.size() - 1 - tail])
        ++tail;
    line->setSelection(same, before.size() - same - tail);
    line->insert(fitted.mid(same, fitted.size() - same - tail));
    line->setCursorPosition(cursor);
    // The line has yet to emit the edit as the user made it: the signal with the fitted text must come
    // last.
    QTimer::singleShot(0, line, [line] { emit line->textChanged(line->text()); });
    emit textAdjusted(TextFit::notice(edited, changes));
}

void EditorGuard::fitTextEdit()
{
    auto* edit = qobject_cast<QTextEdit*>(sender());
    if (edit && !edit->isReadOnly())
        fitEdited(edit->document(), edit);
}

void EditorGuard::fitPlainTextEdit()
{
    auto* edit = qobject_cast<QPlainTextEdit*>(sender());
    if (edit && !edit->isReadOnly())
        fitEdited(edit->document(), edit);
}

void EditorGuard::fitEdited(QTextDocument* document, QWidget* editor)
{
    if (document->isUndoRedoEnabled()) {
        // Setting a text as a whole leaves nothing to undo; this distinguishes text set by the program.
        if (document->isUndoAvailable())
            fitDocument(document);
    } else if (editor->hasFocus()) {
        // Undo is off either while the program sets a text as a whole, or permanently: decide later which
        // it is.
        QTimer::singleShot(0, document, [guard = QPointer<EditorGuard>(this), document] {
            if (guard && !document->isUndoRedoEnabled())
                guard->fitDocument(document);
        });
    }
}

void EditorGuard::fitDocument(QTextDocument* document)
{
    if (m_fitting)
        return;
    QString text = document->toRawText();
    std::replace_if(text.begin(), text.end(), isStructure, QLatin1Char(' '));
    const QVector<TextFit::Change> changes = m_fit.changes(text);
    if (changes.isEmpty())
        return;

    const QScopedValueRollback<bool> fitting(m_fitting, true);
    QTextCursor cursor(document);
    cursor.joinPreviousEditBlock();
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        cursor.setPosition(change->start + 1);
        const QTextCharFormat format = cursor.charFormat();
        cursor.setPosition(change->start);
        cursor.setPosition(change->start + change->length, QTextCursor::KeepAnchor);
        cursor.insertText(change->replacement, format);
    }
    cursor.endEditBlock();
    emit textAdjusted(TextFit::notice(text, changes));
}
