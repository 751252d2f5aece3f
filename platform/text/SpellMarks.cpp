#include "SpellMarks.h"

#include "SpellDictionary.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

SpellMarks::SpellMarks(QWidget* editor, QTextDocument* document, const SpellDictionary* dictionary)
    : QSyntaxHighlighter(document), m_editor(editor), m_dictionary(dictionary)
{
    m_mark.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    m_mark.setUnderlineColor(QColor(0xE0, 0x30, 0x30));
    connect(dictionary, &SpellDictionary::changed, this, &QSyntaxHighlighter::rehighlight);
    if (auto* text = qobject_cast<QTextEdit*>(editor))
        connect(text, &QTextEdit::cursorPositionChanged, this, &SpellMarks::cursorMoved);
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(editor))
        connect(plain, &QPlainTextEdit::cursorPositionChanged, this, &SpellMarks::cursorMoved);
}

bool SpellMarks::isFree(const QTextDocument* document)
{
    return !document->findChild<QSyntaxHighlighter*>();
}

int SpellMarks::cursorPosition() const
{
    if (!m_editor || !m_editor->hasFocus())
        return -1;
    if (const auto* text = qobject_cast<const QTextEdit*>(m_editor.data()))
        return text->textCursor().position();
    const auto* plain = qobject_cast<const QPlainTextEdit*>(m_editor.data());
    return plain ? plain->textCursor().position() : -1;
}

bool SpellMarks::isReadOnly() const
{
    return !m_editor || m_editor->property("readOnly").toBool();
}

void SpellMarks::highlightBlock(const QString& text)
{
    constexpr int longestParagraph = 20000; // a longer one would be felt at every key
    if (!m_dictionary->isReady() || text.size() > longestParagraph || isReadOnly())
        return;
    const int start = currentBlock().position();
    const int cursor = cursorPosition() - start;
    for (const SpellDictionary::Place& place : SpellDictionary::words(text)) {
        if (m_dictionary->isKnown(text.mid(place.begin, place.length)))
            continue;
        if (place.begin + place.length == cursor)
            m_typed = start + place.begin;
        else
            setFormat(place.begin, place.length, m_mark);
    }
}

// Marks the typed word when the cursor has left it.
void SpellMarks::cursorMoved()
{
    if (m_typed < 0)
        return;
    const QTextBlock block = document()->findBlock(m_typed);
    const int cursor = cursorPosition();
    if (block.isValid()) {
        for (const SpellDictionary::Place& place : SpellDictionary::words(block.text())) {
            const int begin = block.position() + place.begin;
            if (begin == m_typed && cursor == begin + place.length)
                return;
        }
    }
    m_typed = -1;
    if (block.isValid())
        rehighlightBlock(block);
}

QTextCursor SpellMarks::unknownAt(int position) const
{
    QTextCursor cursor(document());
    const QTextBlock block = document()->findBlock(position);
    for (const SpellDictionary::Place& place : SpellDictionary::words(block.text())) {
        const int begin = block.position() + place.begin;
        if (position < begin || position > begin + place.length ||
            m_dictionary->isKnown(block.text().mid(place.begin, place.length)))
            continue;
        cursor.setPosition(begin);
        cursor.setPosition(begin + place.length, QTextCursor::KeepAnchor);
        break;
    }
    return cursor;
}
