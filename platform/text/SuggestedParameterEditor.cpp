#include "SuggestedParameterEditor.h"

#include "SuggestionModel.h"
#include "SuggestionPopup.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

SuggestedParameterEditor::SuggestedParameterEditor(const ParameterSpec& spec, QWidget* parent)
    : ParameterEditor(spec, parent),
      m_line(new QLineEdit(this)),
      m_row(new QHBoxLayout),
      m_model(new SuggestionModel(this))
{
    auto* all = new QToolButton(this);
    all->setObjectName(QStringLiteral("allButton"));
    all->setArrowType(Qt::DownArrow);
    all->setToolTip(tr("Показать список (стрелка вниз)"));
    all->setFocusPolicy(Qt::NoFocus);
    m_row->setSpacing(4);
    m_row->addWidget(m_line, 1);
    m_row->addWidget(all);
    rows()->addLayout(m_row);
    addInput(m_line);
    m_popup = new SuggestionPopup(m_line, m_model);

    connect(all, &QToolButton::clicked, this, [this] {
        m_line->setFocus();
        suggestAll();
    });
    connect(m_popup, &SuggestionPopup::asked, this, &SuggestedParameterEditor::suggestAll);
    connect(m_popup, &SuggestionPopup::taken, this, &SuggestedParameterEditor::take);
    connect(m_line, &QLineEdit::textEdited, this, &SuggestedParameterEditor::typed);
}

void SuggestedParameterEditor::typed()
{
    m_key.clear();
    complain(QString());
    if (query().trimmed().isEmpty()) {
        m_popup->hide();
    } else {
        loadItems();
        m_model->setQuery(query());
        m_popup->suggest(0);
    }
    emit edited();
}

QString SuggestedParameterEditor::query() const
{
    return m_line->text();
}

void SuggestedParameterEditor::suggestAll()
{
    loadItems();
    const bool whole = isTaken();
    m_model->setQuery(whole ? QString() : query());
    m_popup->suggest(whole ? qMax(0, m_model->rowOf(m_line->text())) : 0);
}

void SuggestedParameterEditor::take(int row)
{
    if (const ReferenceItem* item = m_model->item(row))
        setTyped(item->text, item->key);
}

void SuggestedParameterEditor::setTyped(const QString& text, const QString& key)
{
    m_popup->hide();
    complain(QString());
    m_key = key;
    m_line->setText(text); // moves the cursor to the end
    emit edited();
}

ParameterValue SuggestedParameterEditor::value() const
{
    return {m_line->text().trimmed(), m_key};
}

void SuggestedParameterEditor::setValue(const ParameterValue& value)
{
    const QSignalBlocker blocker(this);
    m_popup->hide();
    complain(QString());
    m_line->setText(value.text);
    if (!m_line->hasFocus())
        m_line->setCursorPosition(0); // shows the beginning of a long name
    m_key = value.key;
}

QWidget* SuggestedParameterEditor::input() const
{
    return m_line;
}

bool SuggestedParameterEditor::eventFilter(QObject* watched, QEvent* event)
{
    const bool handled = ParameterEditor::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut) {
        // After a switch from another window the cursor stays, so that the user can continue typing.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            m_line->setCursorPosition(0);
    }
    return handled;
}
