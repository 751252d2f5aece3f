#include "OpenWorkshiftDialog.h"

#include "CModelTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnWrapper.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "PersonName.h"
#include "RecordValue.h"
#include "TemplateFiller.h"
#include "ui_OpenWorkshiftDialog.h"

#include <QTextCodec>

void OpenWorkshiftDialog::autoFillTemplate()
{
    autoFillWorker();
    autoFillDepartment();
    autoFillOrganization();
    autoFillWorkshiftWorkers();
    autoFillWorkshiftWorkersGroups();
}

void OpenWorkshiftDialog::changeIntervalTemplate()
{
    if (!m_form->changeTemplateCheck->isChecked())
        return;
    const QVector<unsigned int> found = m_filler->findParameter(QStringLiteral("interval"));
    if (found.isEmpty())
        return;
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    m_filler->setParameterValue(found.constFirst(),
                                tr("с %1 по %2").arg(start().toString(format), end().toString(format)),
                                QString());
}

void OpenWorkshiftDialog::autoFillWorker()
{
    const QVector<unsigned int> found = m_filler->findParameter(QStringLiteral("employee_fio"));
    if (found.isEmpty())
        return;
    const QString name =
        HfnWrapper::workerFullName(codec(), table(QLatin1String(LogbookTable::Workers)), m_workerKey);
    if (name.isEmpty())
        LogText::warn(QStringLiteral("void OpenWorkshiftDialog::autoFillWorker()"),
                      QStringLiteral("can not auto fill employee: full name is empty!"));
    else
        m_filler->setParameterValue(found.constFirst(), name, m_workerKey);
}

void OpenWorkshiftDialog::autoFillNamed(const QString& parameter, const char* tableName, const QString& key,
                                        const QString& signature, const QString& notFound)
{
    const QVector<unsigned int> found = m_filler->findParameter(parameter);
    CModelTable* rows = table(QLatin1String(tableName));
    if (found.isEmpty() || key.isEmpty() || !rows)
        return;
    const MDRData* row = recordByKeyLink(rows, key.toUtf8().constData());
    if (!row) {
        LogText::warn(signature, LogText::fill(notFound, {key}));
        return;
    }
    if (Row(row).has(Field::name_))
        m_filler->setParameterValue(found.constFirst(), Row(row).text(Field::name_, codec()), key);
}

void OpenWorkshiftDialog::autoFillDepartment()
{
    autoFillNamed(QStringLiteral("department"), LogbookTable::Departments, m_departmentKey,
                  QStringLiteral("void OpenWorkshiftDialog::autoFillDepartment()"),
                  QStringLiteral("Not found department %1!"));
}

void OpenWorkshiftDialog::autoFillOrganization()
{
    autoFillNamed(QStringLiteral("organization"), LogbookTable::Organizations, m_organizationKey,
                  QStringLiteral("void OpenWorkshiftDialog::autoFillOrganization()"),
                  QStringLiteral("Not found organization %1!"));
}

/// The user's surname and initials, from the organization structure. The other workers of the crew are not
/// included.
QString OpenWorkshiftDialog::shortName(int* group) const
{
    OrgStruct::Worker worker;
    worker.keyLink = m_workerKey;
    OrgStructWidget* structure = m_orgStructDialog->widget();
    structure->setSelectionType(OrgStruct::Person);
    structure->setCurrectItem(worker);
    worker = structure->selectedItem().worker;
    *group = worker.group;

    return PersonName::shortName(worker.lastName, worker.firstName, worker.patronymicName);
}

void OpenWorkshiftDialog::autoFillWorkshiftWorkers()
{
    const QVector<unsigned int> found = m_filler->findParameter(QStringLiteral("shift_workers"));
    if (found.isEmpty())
        return;
    int group = 0;
    const QString name = shortName(&group);
    if (name.isEmpty())
        LogText::warn(QStringLiteral("void OpenWorkshiftDialog::autoFillWorkshiftWorkers()"),
                      QStringLiteral("can not auto fill shift_workers: full name is empty!"));
    else
        m_filler->setParameterValue(found.constFirst(), name, m_workerKey);
}

void OpenWorkshiftDialog::autoFillWorkshiftWorkersGroups()
{
    const QVector<unsigned int> found = m_filler->findParameter(QStringLiteral("shift_workers_groups"));
    if (found.isEmpty())
        return;
    int group = 0;
    const QString name = shortName(&group);
    if (name.isEmpty()) {
        LogText::warn(QStringLiteral("void OpenWorkshiftDialog::autoFillWorkshiftWorkersGroups()"),
                      QStringLiteral("can not auto fill shift_workers_groups: full name is empty!"));
        return;
    }
    m_filler->setParameterValue(found.constFirst(), PersonName::withGroup(name, group), m_workerKey);
}
