#include "ReferenceParameterEditor.h"

#include "ReferenceData.h"
#include "SuggestionModel.h"
#include "SuggestionPopup.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

ReferenceParameterEditor::ReferenceParameterEditor(const ParameterSpec& spec, ReferenceData* reference,
                                                   QWidget* parent)
    : SuggestedParameterEditor(spec, parent), m_reference(reference)
{
    if (isCrew()) {
        auto* crew = new QToolButton(this);
        crew->setObjectName(QStringLiteral("crewButton"));
        crew->setText(tr("Вся смена"));
        crew->setToolTip(tr("Вписать всех работников открытой смены (F5)"));
        crew->setFocusPolicy(Qt::NoFocus);
        row()->addWidget(crew);
        connect(crew, &QToolButton::clicked, this, &ReferenceParameterEditor::fillCrew);
        popup()->setEnterStays(true); // another name may follow
    }
    line()->setPlaceholderText(isCrew() ? tr("Фамилии через запятую") : tr("Часть названия"));
    if (spec.kind == ParameterKind::Worker || spec.kind == ParameterKind::WorkerWithGroup ||
        spec.kind == ParameterKind::WorkerWithRole || spec.kind == ParameterKind::WorkerWithPlace)
        line()->setPlaceholderText(tr("Фамилия, должность или подразделение"));
    model()->setNearOnly(isEquipment());

    if (m_reference)
        connect(m_reference, &ReferenceData::changed, this, [this] { m_loaded = false; });
    connect(line(), &QLineEdit::textEdited, this, [this] { setUnknown(false); });
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
    model()->setItems(m_reference->items(spec().kind));
}

QString ReferenceParameterEditor::query() const
{
    return isCrew() ? line()->text().section(QLatin1Char(','), -1).trimmed() : line()->text();
}

void ReferenceParameterEditor::take(int row)
{
    const ReferenceItem* item = model()->item(row);
    if (!item) {
        model()->setNearOnly(false);
        popup()->suggest(0);
        return;
    }
    const int comma = isCrew() ? line()->text().lastIndexOf(QLatin1Char(',')) : -1;
    const QString before = comma < 0 ? QString() : line()->text().left(comma) + QStringLiteral(", ");
    setTyped(before + item->text, item->key);
}

void ReferenceParameterEditor::fillCrew()
{
    if (!m_reference)
        return;
    QStringList names;
    QString only;
    for (const ReferenceItem& item : m_reference->crew(spec().kind)) {
        names << item.text;
        only = item.key;
    }
    setTyped(names.join(QStringLiteral(", ")), names.size() == 1 ? only : QString());
}

void ReferenceParameterEditor::setTyped(const QString& text, const QString& key)
{
    setUnknown(false);
    // Several names have no single record.
    SuggestedParameterEditor::setTyped(text, isCrew() && text.contains(QLatin1Char(',')) ? QString() : key);
}

void ReferenceParameterEditor::setValue(const ParameterValue& value)
{
    const QSignalBlocker blocker(this);
    SuggestedParameterEditor::setValue(value);
    tellUnknown();
}

QStringList ReferenceParameterEditor::unknownNames()
{
    const QString text = line()->text().trimmed();
    if (text.isEmpty() || !key().isEmpty() || !m_reference)
        return {};
    loadItems();
    if (model()->isEmpty())
        return {}; // nothing is known, for example while the store cannot be reached
    QStringList unknown;
    for (const QString& name :
         isCrew() ? text.split(QLatin1Char(','), Qt::SkipEmptyParts) : QStringList{text}) {
        if (!name.trimmed().isEmpty() && !model()->itemByText(name))
            unknown << name.trimmed();
    }
    return unknown;
}

void ReferenceParameterEditor::tellUnknown()
{
    const QStringList unknown = unknownNames();
    if (!unknown.isEmpty())
        remark(isCrew() ? tr("Нет в справочнике: %1").arg(unknown.join(QStringLiteral(", ")))
                        : tr("Нет в справочнике: будет записано, как введено"));
    setUnknown(!unknown.isEmpty());
}

void ReferenceParameterEditor::setUnknown(bool unknown)
{
    if (m_unknown == unknown)
        return;
    m_unknown = unknown;
    if (!unknown)
        remark(QString());
    emit judged();
}

void ReferenceParameterEditor::finish(QWidget*)
{
    if (key().isEmpty() && !line()->text().trimmed().isEmpty() && m_loaded) {
        if (const ReferenceItem* item = model()->itemByText(line()->text()))
            setTyped(item->text, item->key);
    }
    tellUnknown();
}

bool ReferenceParameterEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (isCrew() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_F5) {
        fillCrew();
        return true;
    }
    return SuggestedParameterEditor::eventFilter(watched, event);
}
