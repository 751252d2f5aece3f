#pragma once

#include <QPointer>
#include <QSyntaxHighlighter>

class QWidget;
class SpellDictionary;

/// Draws a red wavy line below the unknown words of an editor's text. Only a changed paragraph is examined again,
/// and not the word that is being typed. The text itself is never changed.
class SpellMarks : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// \a editor is a QTextEdit or a QPlainTextEdit; the marks belong to its document.
    SpellMarks(QWidget* editor, QTextDocument* document, const SpellDictionary* dictionary);

    /// The unknown word at this position of the text, selected; no selection if there is none.
    QTextCursor unknownAt(int position) const;
    /// Whether the document of an editor may be marked: others may have their own highlighting.
    static bool isFree(const QTextDocument* document);

protected:
    void highlightBlock(const QString& text) override;

private:
    int cursorPosition() const;
    bool isReadOnly() const;
    void cursorMoved();

    QPointer<QWidget> m_editor;
    const SpellDictionary* m_dictionary;
    int m_typed = -1; ///< begin of the word that is being typed; it is not marked yet
    QTextCharFormat m_mark;
};
