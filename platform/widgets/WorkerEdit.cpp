#include "WorkerEdit.h"

#include "ReferenceData.h"
#include "SuggestionModel.h"
#include "SuggestionPopup.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

WorkerEdit::WorkerEdit(QWidget* parent)
    : QWidget(parent),
      m_line(new QLineEdit(this)),
      m_treeButton(new QToolButton(this)),
      m_model(new SuggestionModel(this)),
      m_popup(new SuggestionPopup(m_line, m_model))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_line, 1);
    layout->addWidget(m_treeButton);
    m_line->setObjectName(QStringLiteral("workerLine"));
    m_line->setAccessibleName(tr("Собеседник"));
    m_line->setPlaceholderText(tr("Фамилия, имя или подразделение"));
    m_line->setClearButtonEnabled(true);
    m_line->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
    m_line->installEventFilter(this);
    m_treeButton->setObjectName(QStringLiteral("workerTreeButton"));
    m_treeButton->setText(QStringLiteral("…"));
    m_treeButton->setToolTip(tr("Выбрать в структуре организации"));
    setFocusProxy(m_line);

    connect(m_line, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_key.clear();
        if (text.trimmed().isEmpty())
            m_popup->hide();
        else
            suggest(text);
        emit changed();
    });
    connect(m_popup, &SuggestionPopup::asked, this,
            [this] { suggest(m_key.isEmpty() ? m_line->text() : QString()); });
    connect(m_popup, &SuggestionPopup::taken, this, &WorkerEdit::take);
    connect(m_treeButton, &QToolButton::clicked, this, &WorkerEdit::treeRequested);
}

void WorkerEdit::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        // if nothing can be cleared the button would be misleading
        m_line->setClearButtonEnabled(isEnabled());
}

void WorkerEdit::setModule(CVrkCliMod* module)
{
    m_reference = ReferenceData::of(module);
    m_loaded = false;
    if (m_reference)
        connect(m_reference, &ReferenceData::changed, this, [this] { m_loaded = false; });
}

void WorkerEdit::setWorker(const QByteArray& key, const QString& name)
{
    m_popup->hide();
    m_key = key;
    m_line->setText(key.isEmpty() ? QString() : name);
    if (!m_line->hasFocus())
        m_line->setCursorPosition(0); // shows the beginning of a long name
    emit changed();
}

bool WorkerEdit::isResolved() const
{
    return m_line->text().trimmed().isEmpty() || !m_key.isEmpty();
}

void WorkerEdit::loadItems()
{
    if (m_loaded || !m_reference)
        return;
    m_loaded = true;
    m_model->setItems(m_reference->items(ParameterKind::Worker));
}

void WorkerEdit::suggest(const QString& query)
{
    loadItems();
    m_model->setQuery(query);
    m_popup->suggest(0);
}

void WorkerEdit::take(int row)
{
    if (const ReferenceItem* item = m_model->item(row))
        setWorker(item->key.toUtf8(), item->text);
}

void WorkerEdit::takeTyped()
{
    if (isResolved())
        return;
    loadItems();
    if (const ReferenceItem* item = m_model->itemByText(m_line->text()))
        setWorker(item->key.toUtf8(), item->text);
}

bool WorkerEdit::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        takeTyped();
        // After a switch from another window the cursor stays, so that the user can continue typing.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            m_line->setCursorPosition(0);
    }
    return QWidget::eventFilter(watched, event);
}
