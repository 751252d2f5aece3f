#include "TemplateEditorText.h"

#include "DateTimeLine.h"
#include "ParameterKind.h"
#include "ShownText.h"
#include "TemplateEditorChipPainter.h"
#include "TemplateEditorHtml.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolTip>

namespace
{
/// Clipboard and drag format of passages of template texts.
const QString ownFormat = QStringLiteral("logbook_template_text");
} // namespace

TemplateEditorText::TemplateEditorText(QWidget* parent) : QTextEdit(parent)
{
    setTabChangesFocus(true); // a template does not support tabs
    setAutoFormatting(QTextEdit::AutoNone);
    document()->setDocumentMargin(6);
    document()->documentLayout()->registerHandler(TemplateEditorChip::ObjectType,
                                                  new TemplateEditorChipPainter(this));
    connect(this, &QTextEdit::cursorPositionChanged, this, &TemplateEditorText::leaveChipFormat);
}

void TemplateEditorText::setContent(const QString& html)
{
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setCharFormat(QTextCharFormat());
    TemplateEditorHtml::insert(cursor, html);
    document()->setUndoRedoEnabled(true);
    document()->setModified(false);
    cursor.setPosition(0);
    setTextCursor(cursor);
    leaveChipFormat();
    verticalScrollBar()->setValue(0);
}

QString TemplateEditorText::content() const
{
    return TemplateEditorHtml::text(document());
}

QTextCharFormat TemplateEditorText::formatAt(int position) const
{
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    return cursor.charFormat();
}

bool TemplateEditorText::isChip(int position) const
{
    return position >= 0 && document()->characterAt(position) == QChar::ObjectReplacementCharacter &&
           TemplateEditorChip::isChip(formatAt(position));
}

TemplateEditorChip TemplateEditorText::chipAt(int position) const
{
    return isChip(position) ? TemplateEditorChip::fromFormat(formatAt(position)) : TemplateEditorChip();
}

int TemplateEditorText::currentChip() const
{
    const QTextCursor cursor = textCursor();
    const int start = cursor.selectionStart();
    if (cursor.hasSelection())
        return cursor.selectionEnd() == start + 1 && isChip(start) ? start : -1;
    if (isChip(start - 1))
        return start - 1;
    return isChip(start) ? start : -1;
}

void TemplateEditorText::replaceChip(int position, const TemplateEditorChip& chip)
{
    if (!isChip(position))
        return;
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    cursor.setCharFormat(chip.format());
}

void TemplateEditorText::undoStep()
{
    step([this] { document()->undo(); });
}

void TemplateEditorText::redoStep()
{
    step([this] { document()->redo(); });
}

void TemplateEditorText::step(const std::function<void()>& go)
{
    // The document's own choice of a position may be after its end.
    int place = -1;
    const auto note = [&place](int position, int, int added) { place = position + added; };
    const auto changed = connect(document(), &QTextDocument::contentsChange, this, note);
    go();
    disconnect(changed);
    if (place < 0)
        return;
    QTextCursor cursor(document());
    cursor.setPosition(qMin(place, document()->characterCount() - 1));
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TemplateEditorText::insertParameter(const QString& html)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    const QTextCharFormat words = TemplateEditorChip::withoutChip(cursor.charFormat());
    cursor.removeSelectedText();
    const QString blank(QLatin1Char(' '));
    if (isChip(cursor.position() - 1))
        cursor.insertText(blank, words);
    const int start = cursor.position();
    TemplateEditorHtml::insert(cursor, html);
    QTextCursor inserted(document());
    inserted.setPosition(start);
    inserted.setPosition(cursor.position(), QTextCursor::KeepAnchor);
    QTextCharFormat look = words; // it reads like the surrounding words
    look.clearProperty(QTextFormat::TextVerticalAlignment);
    inserted.mergeCharFormat(look);
    if (isChip(cursor.position())) {
        cursor.insertText(blank, words);
        cursor.movePosition(QTextCursor::PreviousCharacter);
    }
    cursor.endEditBlock();
    setTextCursor(cursor);
    leaveChipFormat();
    ensureCursorVisible();
}

void TemplateEditorText::leaveChipFormat()
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection() && TemplateEditorChip::isChip(cursor.charFormat()))
        setCurrentCharFormat(TemplateEditorChip::withoutChip(cursor.charFormat()));
}

bool TemplateEditorText::hasLook(TemplateText::Look look) const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return TemplateText::looksOf(currentCharFormat()) & look;
    for (QTextBlock block = document()->findBlock(cursor.selectionStart());
         block.isValid() && block.position() < cursor.selectionEnd(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const int start = it.fragment().position();
            const bool selected =
                start < cursor.selectionEnd() && start + it.fragment().length() > cursor.selectionStart();
            if (selected && !(TemplateText::looksOf(it.fragment().charFormat()) & look))
                return false;
        }
    }
    return true;
}

bool TemplateEditorText::isBold() const
{
    return hasLook(TemplateText::Bold);
}

bool TemplateEditorText::isStruckOut() const
{
    return hasLook(TemplateText::StruckOut);
}

void TemplateEditorText::setBold(bool bold)
{
    QTextCharFormat format;
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    mergeCurrentCharFormat(format);
}

void TemplateEditorText::setStruckOut(bool struckOut)
{
    QTextCharFormat format;
    format.setFontStrikeOut(struckOut);
    mergeCurrentCharFormat(format);
}

int TemplateEditorText::chipUnder(const QPoint& point) const
{
    const QPointF inDocument =
        QPointF(point) + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int near = document()->documentLayout()->hitTest(inDocument, Qt::FuzzyHit);
    for (const int position : {near, near - 1}) {
        if (!isChip(position))
            continue;
        const QTextBlock block = document()->findBlock(position);
        const int inBlock = position - block.position();
        const QTextLine line = block.layout()->lineForTextPosition(inBlock);
        const QPointF at = inDocument - document()->documentLayout()->blockBoundingRect(block).topLeft();
        if (line.isValid() && at.x() >= line.cursorToX(inBlock) && at.x() < line.cursorToX(inBlock + 1) &&
            at.y() >= line.y() && at.y() < line.y() + line.height())
            return position;
    }
    return -1;
}

void TemplateEditorText::select(int chip)
{
    QTextCursor cursor(document());
    cursor.setPosition(chip);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void TemplateEditorText::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && textCursor().hasSelection() && currentChip() >= 0 &&
        !(event->modifiers() & ~Qt::KeypadModifier)) {
        emit chipRequested(currentChip());
        return;
    }
    if (event->matches(QKeySequence::Undo) && !isReadOnly())
        undoStep();
    else if (event->matches(QKeySequence::Redo) && !isReadOnly())
        redoStep();
    else
        QTextEdit::keyPressEvent(event);
}

void TemplateEditorText::mousePressEvent(QMouseEvent* event)
{
    const bool plain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    m_pressedChip = plain ? chipUnder(event->pos()) : -1;
    const QTextCursor cursor = textCursor();
    const bool inSelection = cursor.hasSelection() && m_pressedChip >= cursor.selectionStart() &&
                             m_pressedChip < cursor.selectionEnd();
    if (m_pressedChip >= 0 && !inSelection)
        select(m_pressedChip); // selected before the press is handled, so that it can be dragged at once
    QTextEdit::mousePressEvent(event);
}

void TemplateEditorText::mouseReleaseEvent(QMouseEvent* event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (m_pressedChip >= 0 && chipUnder(event->pos()) == m_pressedChip && !textCursor().hasSelection())
        select(m_pressedChip);
    m_pressedChip = -1;
}

void TemplateEditorText::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int chip = event->button() == Qt::LeftButton ? chipUnder(event->pos()) : -1;
    if (chip < 0) {
        QTextEdit::mouseDoubleClickEvent(event);
        return;
    }
    select(chip);
    emit chipRequested(chip);
}

void TemplateEditorText::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setObjectName(QStringLiteral("templateMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto replace = [menu, this](const char* name, void (TemplateEditorText::*slot)()) {
        if (auto* action = menu->findChild<QAction*>(QLatin1String(name))) {
            disconnect(action, &QAction::triggered, nullptr, nullptr);
            connect(action, &QAction::triggered, this, slot);
        }
    };
    replace("edit-undo", &TemplateEditorText::undoStep);
    replace("edit-redo", &TemplateEditorText::redoStep);
    const int under =
        event->reason() == QContextMenuEvent::Keyboard ? currentChip() : chipUnder(event->pos());
    if (under >= 0 && !isReadOnly()) {
        auto* edit = new QAction(tr("Параметр…"), menu);
        edit->setObjectName(QStringLiteral("parameterMenuAction"));
        connect(edit, &QAction::triggered, this, [this, under] { emit chipRequested(under); });
        QAction* first = menu->actions().value(0);
        menu->insertAction(first, edit);
        menu->insertSeparator(first);
    }
    menu->popup(event->globalPos());
}

bool TemplateEditorText::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const int chip = chipUnder(help->pos());
        if (chip >= 0)
            QToolTip::showText(help->globalPos(), toolTipOf(chipAt(chip)), viewport());
        else
            QToolTip::hideText();
        return true;
    }
    return QTextEdit::viewportEvent(event);
}

QString TemplateEditorText::toolTipOf(const TemplateEditorChip& chip) const
{
    QStringList lines{chip.property("locname")};
    if (chip.hasProperty("format"))
        lines << DateTimeLine::shownFormat(chip.property("format"));
    QStringList values;
    for (const std::string& value : HtmlParser::listValues(chip.property("list").toStdString()))
        values << QString::fromStdString(value);
    lines += values.mid(0, 12);
    if (values.size() > 12)
        lines << QStringLiteral("…");
    if (chip.hasProperty("optional"))
        lines << tr("Можно оставить пустым");
    return ShownText::tip(lines.join(QLatin1Char('\n')));
}

QMimeData* TemplateEditorText::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    const QString html =
        TemplateEditorHtml::fragment(document(), cursor.selectionStart(), cursor.selectionEnd());
    auto* mime = new QMimeData;
    mime->setData(ownFormat, html.toUtf8());
    mime->setHtml(html);
    mime->setText(TemplateText::plain(html));
    return mime;
}

bool TemplateEditorText::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasFormat(parameterFormat()) || source->hasFormat(ownFormat) || source->hasHtml() ||
           source->hasText();
}

void TemplateEditorText::insertFromMimeData(const QMimeData* source)
{
    if (isReadOnly())
        return;
    if (source->hasFormat(parameterFormat())) {
        emit parameterDropped(QString::fromUtf8(source->data(parameterFormat())));
        return;
    }
    if (!canInsertFromMimeData(source)) {
        emit refused(tr("Вставить можно только текст: рисунков и файлов шаблон не переносит"));
        return;
    }
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    const QTextCharFormat words = TemplateEditorChip::withoutChip(cursor.charFormat());
    cursor.removeSelectedText();
    cursor.setCharFormat(words);
    const bool own = source->hasFormat(ownFormat);
    if (own)
        TemplateEditorHtml::insertFragment(cursor, QString::fromUtf8(source->data(ownFormat)));
    else if (source->hasHtml())
        TemplateEditorHtml::insert(cursor, source->html());
    else
        TemplateEditorHtml::insertPlain(cursor, source->text());
    cursor.endEditBlock();
    setTextCursor(cursor);
    leaveChipFormat();
    ensureCursorVisible();
    const QStringList lost =
        !own && source->hasHtml() ? TemplateEditorHtml::uncarried(source->html()) : QStringList();
    if (!lost.isEmpty())
        emit refused(
            tr("Вставлен только текст. Шаблон не переносит: %1").arg(lost.join(QLatin1String(", "))));
}
