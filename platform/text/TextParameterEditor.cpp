#include "TextParameterEditor.h"

#include "GrowingTextEdit.h"
#include "LatelyUsed.h"
#include "SuggestionModel.h"
#include "SuggestionPopup.h"
#include "TextMatch.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

TextParameterEditor::TextParameterEditor(const ParameterSpec& spec, LatelyUsed* latelyUsed, QWidget* parent)
    : ParameterEditor(spec, parent),
      m_latelyUsed(latelyUsed),
      m_edit(new GrowingTextEdit(this)),
      m_model(new SuggestionModel(this))
{
    if (spec.wholeText) {
        m_edit->setLines(4, 14);
        m_edit->setToolTip(tr("Ctrl+Enter — дальше"));
    } else {
        m_edit->setToolTip(tr("Enter — дальше, Shift+Enter — новая строка"));
    }
    rows()->addWidget(m_edit);
    addInput(m_edit);
    m_popup = new SuggestionPopup(m_edit, m_model);
    m_popup->setEnterStays(true); // the text may continue

    connect(m_edit, &QPlainTextEdit::textChanged, this, [this] {
        // Marks of the spelling arrive by this signal, too, even after the record was saved.
        const QString text = m_edit->toPlainText();
        if (text == m_text)
            return;
        m_text = text;
        m_key.clear();
        emit edited();
        if (m_edit->hasFocus())
            offer(false);
    });
    connect(m_popup, &SuggestionPopup::asked, this, [this] {
        if (m_edit->document()->isEmpty())
            offer(true);
    });
    connect(m_popup, &SuggestionPopup::taken, this, [this](int row) {
        if (const ReferenceItem* item = m_model->item(row)) {
            const QString text = item->text; // a change of the text replaces the suggestions
            m_edit->setPlainText(text);
            m_edit->moveCursor(QTextCursor::End);
            m_popup->hide();
        }
    });
}

void TextParameterEditor::offer(bool all)
{
    const QString typed = m_edit->toPlainText();
    QVector<ReferenceItem> items;
    if (m_latelyUsed && (all || !typed.trimmed().isEmpty())) {
        for (const QString& text : m_latelyUsed->texts(spec().label)) {
            ReferenceItem item;
            item.text = text;
            item.folded = TextMatch::folded(text);
            if (text != typed)
                items.append(item);
        }
    }
    m_model->setItems(items);
    m_model->setQuery(typed);
    m_popup->suggest(-1);
}

ParameterValue TextParameterEditor::value() const
{
    return {m_edit->toPlainText().trimmed(), m_key};
}

void TextParameterEditor::setValue(const ParameterValue& value)
{
    const QSignalBlocker blocker(this);
    m_edit->setPlainText(value.text);
    m_edit->moveCursor(QTextCursor::End);
    m_popup->hide();
    m_key = value.key;
}

QWidget* TextParameterEditor::input() const
{
    return m_edit;
}

bool TextParameterEditor::enterPressed(QWidget*, Qt::KeyboardModifiers modifiers)
{
    const bool breaks =
        spec().wholeText ? !(modifiers & Qt::ControlModifier) : bool(modifiers & Qt::ShiftModifier);
    if (breaks)
        m_edit->insertPlainText(QStringLiteral("\n"));
    return breaks;
}
