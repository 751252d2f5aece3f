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

namespace
{
/// The user in the organization structure. The other workers of the crew are not included.
OrgStruct::Worker workerIn(OrgStructWidget* structure, const QString& key)
{
    OrgStruct::Worker worker;
    worker.keyLink = key;
    structure->setSelectionType(OrgStruct::Person);
    structure->setCurrectItem(worker);
    return structure->selectedItem().worker;
}

QString shortName(const OrgStruct::Worker& worker)
{
    return PersonName::shortName(worker.lastName, worker.firstName, worker.patronymicName);
}
} // namespace

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

void OpenWorkshiftDialog::autoFillUser(const char* parameter, const char* what, const char* function,
                                       const std::function<QString()>& userName)
{
    const QVector<unsigned int> found = m_filler->findParameter(QLatin1String(parameter));
    if (found.isEmpty())
        return;
    const QString name = userName();
    if (name.isEmpty())
        LogText::warn(QStringLiteral("void OpenWorkshiftDialog::") + QLatin1String(function),
                      QStringLiteral("can not auto fill %1: full name is empty!").arg(QLatin1String(what)));
    else
        m_filler->setParameterValue(found.constFirst(), name, m_workerKey);
}

void OpenWorkshiftDialog::autoFillWorker()
{
    autoFillUser("employee_fio", "employee", "autoFillWorker()", [this] {
        return HfnWrapper::workerFullName(codec(), table(QLatin1String(LogbookTable::Workers)), m_workerKey);
    });
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

void OpenWorkshiftDialog::autoFillWorkshiftWorkers()
{
    autoFillUser("shift_workers", "shift_workers", "autoFillWorkshiftWorkers()",
                 [this] { return shortName(workerIn(m_orgStructDialog->widget(), m_workerKey)); });
}

void OpenWorkshiftDialog::autoFillWorkshiftWorkersGroups()
{
    autoFillUser("shift_workers_groups", "shift_workers_groups", "autoFillWorkshiftWorkersGroups()", [this] {
        const OrgStruct::Worker user = workerIn(m_orgStructDialog->widget(), m_workerKey);
        return PersonName::withGroup(shortName(user), user.group);
    });
}
