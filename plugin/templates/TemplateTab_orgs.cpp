#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "LogbookTables.h"
#include "RecordValue.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"

const TemplateTab::Operations TemplateTab::orgsOperations = {
    &TemplateTab::isEditable_Orgs,          &TemplateTab::applyTemplateFilter_Orgs,
    &TemplateTab::isRootCreatable_Orgs,     &TemplateTab::isFolderCreatable_Orgs,
    &TemplateTab::isTemplateCreatable_Orgs, &TemplateTab::isItemDeletable_Orgs,
    &TemplateTab::canEditPassport_Orgs,     &TemplateTab::isCanCopy_Orgs,
    &TemplateTab::isCanPaste_Orgs,          &TemplateTab::newFolder_Orgs,
    &TemplateTab::newTemplate_Orgs,         &TemplateTab::whereInsertRecord_Orgs};

bool TemplateTab::isEditable_Orgs() const
{
    return isAdmin();
}

/// An administrator sees all types of organizations, a local administrator that of his organization, a
/// viewer no page.
void TemplateTab::applyTemplateFilter_Orgs()
{
    if (isAdmin())
        return;
    const QString organization = isAnyAdmin() ? userParameter("ORGANIZATIONKEY") : QString();
    if (organization.isEmpty()) {
        emit hideMe();
        return;
    }
    const QString sql = QStringLiteral("SELECT * FROM %1 WHERE KeyLink = '%2';")
                            .arg(QLatin1String(LogbookTable::Organizations), organization);
    CMDArray answer;
    answer = m_module->session()->SqlRequest(sql.toUtf8().constData());
    if (answer.RecCount() == 0) {
        // Deliberate: the placeholder is not filled in.
        emit writeLog(QStringLiteral("void TemplateTab::applyTemplateFilter_Orgs()"),
                      QStringLiteral("SQL request {%1} return 0 records. Failed check "));
        emit hideMe();
        return;
    }
    const MDRVar type = Row(MDARec(answer.array, 0, 0)).value(Field::OrgTypeKey);
    if (MDRValue::hasText(type))
        m_proxy->setFilterRoot(QString::fromUtf8(MDRValue::bytes(type)));
    else
        emit hideMe();
}

bool TemplateTab::isRootCreatable_Orgs() const
{
    return false;
}

bool TemplateTab::isFolderCreatable_Orgs() const
{
    return isAdmin();
}

bool TemplateTab::isTemplateCreatable_Orgs() const
{
    return isAdmin() && isOwnItemCurrent();
}

bool TemplateTab::isItemDeletable_Orgs() const
{
    return isAdmin() && isCurrentDeletable(m_orgTypesTable);
}

bool TemplateTab::canEditPassport_Orgs() const
{
    return isAdmin();
}

bool TemplateTab::isCanCopy_Orgs() const
{
    return canCopyCurrent();
}

bool TemplateTab::isCanPaste_Orgs() const
{
    return isAdmin() && canPasteHere();
}

void TemplateTab::newFolder_Orgs(QModelIndex index, MDRData* record)
{
    newFolderUnder(index, record, m_orgTypesTable, Field::OrgTypeKey,
                   QStringLiteral("void TemplateTab::newFolder_Orgs(QModelIndex, MDArrayRec*)"),
                   QStringLiteral("Not found organization type or parent key"));
}

void TemplateTab::newTemplate_Orgs(QModelIndex index, MDRData* record)
{
    newTemplateUnder(index, record,
                     QStringLiteral("void TemplateTab::newTemplate_Orgs(QModelIndex, MDArrayRec*)"));
}

void TemplateTab::whereInsertRecord_Orgs(int& row, QModelIndex& parent, TEventNciParse* event)
{
    whereInsert(row, parent, event, m_orgTypesTable, Field::OrgTypeKey, {Field::DepartmentKey});
}
