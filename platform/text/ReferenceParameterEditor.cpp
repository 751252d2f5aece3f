#include "ReferenceParameterEditor.h"

#include "ReferenceData.h"
#include "SuggestionModel.h"
#include "SuggestionPopup.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

ReferenceParameterEditor::ReferenceParameterEditor(const ParameterSpec& spec, ReferenceData* reference,
                                                   QWidget* parent)
    : ParameterEditor(spec, parent),
      m_reference(reference),
      m_line(new QLineEdit(this)),
      m_model(new SuggestionModel(this))
{
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(m_line, 1);
    auto* all = new QToolButton(this);
    all->setObjectName(QStringLiteral("allButton"));
    all->setArrowType(Qt::DownArrow);
    all->setToolTip(tr("Показать список (стрелка вниз)"));
    all->setFocusPolicy(Qt::NoFocus);
    row->addWidget(all);
    if (isCrew()) {
        auto* crew = new QToolButton(this);
        crew->setObjectName(QStringLiteral("crewButton"));
        crew->setText(tr("Вся смена"));
        crew->setToolTip(tr("Вписать всех работников открытой смены (F5)"));
        crew->setFocusPolicy(Qt::NoFocus);
        row->addWidget(crew);
        connect(crew, &QToolButton::clicked, this, &ReferenceParameterEditor::fillCrew);
    }
    rows()->addLayout(row);
    m_line->setPlaceholderText(isCrew() ? tr("Фамилии через запятую") : tr("Часть названия"));
    if (spec.kind == ParameterKind::Worker || spec.kind == ParameterKind::WorkerWithGroup ||
        spec.kind == ParameterKind::WorkerWithRole || spec.kind == ParameterKind::WorkerWithPlace)
        m_line->setPlaceholderText(tr("Фамилия, должность или подразделение"));
    m_model->setNearOnly(isEquipment());
    addInput(m_line);
    m_popup = new SuggestionPopup(m_line, m_model);

    if (m_reference)
        connect(m_reference, &ReferenceData::changed, this, [this] { m_loaded = false; });
    connect(all, &QToolButton::clicked, this, [this] {
        m_line->setFocus();
        suggestAll();
    });
    connect(m_popup, &SuggestionPopup::asked, this, &ReferenceParameterEditor::suggestAll);
    connect(m_popup, &SuggestionPopup::taken, this, &ReferenceParameterEditor::take);
    connect(m_line, &QLineEdit::textEdited, this, [this] {
        m_key.clear();
        suggest();
        emit edited();
    });
}

bool ReferenceParameterEditor::isCrew() const
{
    return spec().kind == ParameterKind::Crew || spec().kind == ParameterKind::CrewWithGroups;
}

bool ReferenceParameterEditor::isEquipment() const
{
    switch (spec().kind) {
    case ParameterKind::EquipmentName:
    case ParameterKind::EquipmentPath:
    case ParameterKind::Substation:
    case ParameterKind::Line:
    case ParameterKind::Bay:
        return true;
    default:
        return false;
    }
}

void ReferenceParameterEditor::loadItems()
{
    if (m_loaded || !m_reference)
        return;
    m_loaded = true;
    m_model->setItems(m_reference->items(spec().kind));
}

QString ReferenceParameterEditor::query() const
{
    return isCrew() ? m_line->text().section(QLatin1Char(','), -1).trimmed() : m_line->text();
}

void ReferenceParameterEditor::suggest()
{
    if (query().trimmed().isEmpty()) {
        m_popup->hide();
        return;
    }
    loadItems();
    m_model->setQuery(query());
    m_popup->suggest(true);
}

void ReferenceParameterEditor::suggestAll()
{
    loadItems();
    // A text that was taken from the list finds nothing but itself; the whole list is what is wanted then.
    m_model->setQuery(m_key.isEmpty() && !isCrew() ? query() : QString());
    m_popup->suggest(true);
}

void ReferenceParameterEditor::take(int row)
{
    const ReferenceItem* item = m_model->item(row);
    if (!item) {
        m_model->setNearOnly(false);
        m_popup->suggest(true);
        return;
    }
    QString text = item->text;
    const QString key = item->key;
    if (isCrew()) {
        const int comma = m_line->text().lastIndexOf(QLatin1Char(','));
        if (comma >= 0)
            text.prepend(m_line->text().left(comma) + QStringLiteral(", "));
    }
    setTyped(text, key);
}

void ReferenceParameterEditor::fillCrew()
{
    if (!m_reference)
        return;
    QStringList names;
    QString key;
    for (const ReferenceItem& item : m_reference->crew(spec().kind)) {
        names << item.text;
        key = item.key;
    }
    setTyped(names.join(QStringLiteral(", ")), names.size() == 1 ? key : QString());
}

void ReferenceParameterEditor::setTyped(const QString& text, const QString& key)
{
    m_popup->hide();
    m_line->setText(text);
    if (!isCrew())
        m_line->setCursorPosition(0); // of a long name the beginning is seen
    m_key = key;
    if (isCrew() && text.contains(QLatin1Char(',')))
        m_key.clear(); // no record stands behind several names
    emit edited();
}

ParameterValue ReferenceParameterEditor::value() const
{
    return {m_line->text().trimmed(), m_key};
}

void ReferenceParameterEditor::setValue(const ParameterValue& value)
{
    const QSignalBlocker blocker(this);
    m_line->setText(value.text);
    m_line->setCursorPosition(0);
    m_key = value.key;
    m_popup->hide();
}

QWidget* ReferenceParameterEditor::input() const
{
    return m_line;
}

void ReferenceParameterEditor::finish(QWidget*)
{
    if (!m_key.isEmpty() || m_line->text().trimmed().isEmpty() || !m_loaded)
        return;
    if (const ReferenceItem* item = m_model->itemByText(m_line->text()))
        setTyped(item->text, item->key);
}

bool ReferenceParameterEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (isCrew() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_F5) {
        fillCrew();
        return true;
    }
    return ParameterEditor::eventFilter(watched, event);
}
