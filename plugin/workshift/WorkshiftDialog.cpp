#include "WorkshiftDialog.h"

#include "CModelTable.h"
#include "CrewTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "GenGuid32.h"
#include "HfnWrapper.h"
#include "KeptChoice.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "RecordValue.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"

#include <QCloseEvent>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QTextCodec>
#include <QToolButton>

QString logNumber(double number)
{
    return QStringLiteral("%1").arg(number, 0, 'g', -1);
}

WorkshiftDialog::WorkshiftDialog(QWidget* parent, int flag) : CPopTemplate(parent, flag) {}

WorkshiftDialog::~WorkshiftDialog() = default;

QTextCodec* WorkshiftDialog::codec() const
{
    return module()->session()->codec();
}

void WorkshiftDialog::setUpForm(const Form& form, const QString& property)
{
    setWindowIcon(QIcon(QStringLiteral(":/icons/department.png")));
    form.addWorker->setIcon(QIcon(QStringLiteral(":/icons/add.png")));
    form.removeWorker->setIcon(QIcon(QStringLiteral(":/icons/delete.png")));
    form.clearWorkers->setIcon(QIcon(QStringLiteral(":/icons/clear.png")));
    connect(form.addWorker, &QToolButton::clicked, this, &WorkshiftDialog::addWorker);
    connect(form.removeWorker, &QToolButton::clicked, this, &WorkshiftDialog::removeWorkers);
    connect(form.clearWorkers, &QToolButton::clicked, this, &WorkshiftDialog::clearWorkers);
    connect(form.cancel, &QPushButton::clicked, this, &WorkshiftDialog::close);
    m_apply = form.apply;
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(Qt::CTRL | enter, this), &QShortcut::activated, this,
                &WorkshiftDialog::applyByKey);
    m_crewView = form.crew;
    m_crew = new CrewTable(form.crew, module()->session(), this);
    m_templates = form.templates;
    m_templates->setTextCodec(codec());
    m_templates->setTemplateProps({property}, true);
    m_property = property;
    m_filler = form.filler;
    m_filler->setModule(module());
    m_filler->setOrientation(Qt::Vertical);
    connect(m_filler, &TemplateFiller::templateChanged, this, &WorkshiftDialog::updateStateControls);
    connect(m_filler, &TemplateFiller::requestEditor, this, &WorkshiftDialog::showEditor);
    m_kept = new KeptChoice(this, tr("Не записано: %1."),
                            {[this] { return chosen(); },
                             [this](const KeptTexts::Values& kept) { return isOver(kept); },
                             [this](const KeptTexts::Values& kept) { choose(kept); }});
    connect(form.crew->model(), &QAbstractItemModel::rowsInserted, m_kept, &KeptChoice::touch);
    connect(form.crew->model(), &QAbstractItemModel::rowsRemoved, m_kept, &KeptChoice::touch);
}

void WorkshiftDialog::setDepartmentKey(const QString& key)
{
    m_departmentKey = key;
    m_templates->setRootDepKeyLink(key);
    m_filler->setKept(QStringLiteral("values/%1/%2").arg(m_property, key), windowTitle().toLower());
    m_kept->setPlace(keptPlace(m_property, key));
}

void WorkshiftDialog::setOrgTypeKey(const QString& key)
{
    m_orgTypeKey = key;
    m_templates->setRootOrgKeyLink(key);
}

void WorkshiftDialog::setCrewTables()
{
    m_crew->setTables(table(QLatin1String(LogbookTable::Workers)), table(QLatin1String(LogbookTable::Roles)),
                      table(QLatin1String(LogbookTable::WorkerRoles)));
}

void WorkshiftDialog::setWorkersTable(CModelTable* table)
{
    setTable(LogbookTable::Workers, table);
    setCrewTables();
}

void WorkshiftDialog::setRolesTable(CModelTable* table)
{
    setTable(LogbookTable::Roles, table);
    setCrewTables();
}

void WorkshiftDialog::setWorkerRolesTable(CModelTable* table)
{
    setTable(LogbookTable::WorkerRoles, table);
    setCrewTables();
}

void WorkshiftDialog::setCatsTemplateTable(CModelTable* table)
{
    m_templates->setCatsTemplateTable(table);
    setTable(LogbookTable::CatsTemplate, table);
}

void WorkshiftDialog::setTemplatesTable(CModelTable* table)
{
    m_templates->setTemplatesTable(table);
    setTable(LogbookTable::Templates, table);
}

void WorkshiftDialog::setDepartmentsTable(CModelTable* table)
{
    m_templates->setDepartmentsTable(table);
    setTable(LogbookTable::Departments, table);
}

void WorkshiftDialog::setOrgTypesTable(CModelTable* table)
{
    m_templates->setOrgTypesTable(table);
    setTable(LogbookTable::OrgTypes, table);
}

void WorkshiftDialog::MessageData(TEventNciParse* event)
{
    m_filler->MessageData(event);
}

void WorkshiftDialog::showEditor(const QString&, unsigned int) {}

void WorkshiftDialog::reloadTemplates()
{
    m_templates->reloadTemplates();
}

void WorkshiftDialog::closeEvent(QCloseEvent* event)
{
    m_kept->leave(); // before the crew is cleared
    clearWorkers();
    m_templates->clearSelection();
    CPopTemplate::closeEvent(event);
}

void WorkshiftDialog::hideEvent(QHideEvent* event)
{
    m_kept->leave(); // hidden by the journal, not closed
    CPopTemplate::hideEvent(event);
}

KeptTexts::Values WorkshiftDialog::chosenCrew(const QStringList& workers, const QString& times) const
{
    QStringList words{times};
    for (const QString& worker : workers)
        words << HfnWrapper::workerShortName(codec(), table(QLatin1String(LogbookTable::Workers)), worker);
    return {{QStringLiteral("caption"), windowTitle().toLower() + u' ' + words.join(QStringLiteral(", "))},
            {QStringLiteral("workers"), workers.join(u'\n')}};
}

void WorkshiftDialog::choose(const KeptTexts::Values& kept)
{
    for (const QString& worker : kept.value(QStringLiteral("workers")).split(u'\n', Qt::SkipEmptyParts))
        if (!m_crew->contains(worker))
            m_crew->append(worker);
    chooseTimes(kept);
    updateWorkshiftControls();
}

/// Before the button is pressed, the current field accepts its input, as it does when it loses the focus. A
/// missing value gets the focus.
void WorkshiftDialog::applyByKey()
{
    const QPointer<QWidget> field = focusWidget();
    if (field)
        field->clearFocus();
    m_apply->click();
    if (!isVisible() || focusWidget())
        return;
    if (QWidget* wrong = wrongField())
        wrong->setFocus(Qt::TabFocusReason);
    else if (!m_filler->focusMissing() && field)
        field->setFocus();
}

QString WorkshiftDialog::missingText() const
{
    if (!m_templates->hasTemplates())
        return tr("Нет шаблона для этой записи: его заводит администратор в конфигураторе");
    return m_filler->missing();
}

void WorkshiftDialog::reloadTemplateText(MDRData* record, const QString& signature)
{
    m_filler->setTemplate(QString());
    if (!record)
        return;
    const MDRVar html = Row(record).value(Field::html);
    if (MDRValue::hasText(html))
        m_filler->setTemplate(codec()->toUnicode(MDRValue::bytes(html)));
    else
        LogText::warn(signature, QStringLiteral("template does not contains html!"));
}

void WorkshiftDialog::addWorker()
{
    m_crew->choose(m_orgStructDialog, m_departmentKey, [this](const QString& workerKey) {
        m_crew->append(workerKey);
        m_crewView->selectRow(0); // deliberate: the first row, not the new one
        updateWorkshiftControls();
    });
}

void WorkshiftDialog::removeWorkers()
{
    m_crew->removeCurrent();
    updateWorkshiftControls();
}

void WorkshiftDialog::addCrewRows(CRowBatch& batch, const QByteArray& workshiftKey, bool opening) const
{
    for (const QString& worker : m_crew->workerKeys()) {
        if (worker.isEmpty())
            continue;
        const QByteArray workerKey = worker.toUtf8();
        const QByteArray rowKey = GenGuid32();
        MDRData* row = batch.newRow(ROW_INSERT, rowKey);
        batch.SetValF(row, Field::KeyLink, MDRValue::text(rowKey));
        batch.SetValF(row, Field::WorkshiftKey, MDRValue::text(workshiftKey));
        batch.SetValF(row, Field::WorkerKey, MDRValue::text(workerKey));
        batch.SetValF(row, Field::opening, MDRValue::boolean(opening));
        batch.RecPost(row);
    }
}

void WorkshiftDialog::addRecord(CRowBatch& batch, const QByteArray& workshiftKey, double time,
                                QStringList* pairs) const
{
    const QByteArray recordKey = GenGuid32();
    const QByteArray workerKey = m_workerKey.toUtf8();
    const QString text = m_filler->filledTemplate(true);
    const QByteArray html = codec()->fromUnicode(text);
    const QString null = QStringLiteral("NULL");
    struct Written {
        const char* name;
        MDRVar value;
        QString shown;
    };
    const Written fields[] = {
        {Field::KeyLink, MDRValue::text(recordKey), QString::fromLatin1(recordKey)},
        {Field::ShiftKey, MDRValue::text(workshiftKey), QString::fromLatin1(workshiftKey)},
        {Field::WorkerKey, MDRValue::text(workerKey), m_workerKey},
        {Field::VisaWorkerKey, MDRValue::null(), null},
        {Field::ReceiverWorkerKey, MDRValue::null(), null},
        {Field::SecondMarkWorkerKey, MDRValue::null(), null},
        {Field::recordTime, MDRValue::real(time), logNumber(time)},
        {Field::eventTime, MDRValue::real(time), logNumber(time)},
        {Field::firstMarkTime, MDRValue::null(), null},
        {Field::secondMarkTime, MDRValue::null(), null},
        {Field::executionTime, MDRValue::null(), null},
        {Field::html, MDRValue::text(html, mdr_TMemo), text},
        {Field::status, MDRValue::number(StatusApproved), QString::number(StatusApproved)},
        {Field::direction, MDRValue::number(DirectionNone), QString::number(DirectionNone)},
    };
    MDRData* row = batch.newRow(ROW_INSERT, recordKey);
    for (const Written& field : fields) {
        batch.SetValF(row, field.name, field.value);
        *pairs << QLatin1String(field.name) << field.shown;
    }
    batch.RecPost(row);
}

bool WorkshiftDialog::send(const char* table, const CRowBatch& batch) const
{
    return module()->session()->SqlUpdate(table, batch.array, true, nullptr);
}
