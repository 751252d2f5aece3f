#include "Fields.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"

const TemplateTab::Operations TemplateTab::depsOperations = {
    &TemplateTab::isEditable_Deps,          &TemplateTab::applyTemplateFilter_Deps,
    &TemplateTab::isRootCreatable_Deps,     &TemplateTab::isFolderCreatable_Deps,
    &TemplateTab::isTemplateCreatable_Deps, &TemplateTab::isItemDeletable_Deps,
    &TemplateTab::canEditPassport_Deps,     &TemplateTab::isCanCopy_Deps,
    &TemplateTab::isCanPaste_Deps,          &TemplateTab::newFolder_Deps,
    &TemplateTab::newTemplate_Deps,         &TemplateTab::whereInsertRecord_Deps};

bool TemplateTab::isEditable_Deps() const
{
    return isAnyAdmin();
}

/// An administrator sees all departments, others their own. Deliberate: without a department the page is
/// hidden for everybody, including the administrator.
void TemplateTab::applyTemplateFilter_Deps()
{
    const QString department = userParameter("DEPARTMENTKEY");
    if (department.isEmpty()) {
        emit writeLog(
            QStringLiteral("void TemplateTab::applyTemplateFilter_Deps()"),
            QStringLiteral("not found department key in {m_app->m_user_params} by key DEPARTMENTKEY"));
        emit hideMe();
        return;
    }
    if (!isAdmin())
        m_proxy->setFilterRoot(department);
}

bool TemplateTab::isRootCreatable_Deps() const
{
    return false;
}

bool TemplateTab::isFolderCreatable_Deps() const
{
    return isAnyAdmin();
}

bool TemplateTab::isTemplateCreatable_Deps() const
{
    return isAnyAdmin() && isOwnItemCurrent();
}

bool TemplateTab::isItemDeletable_Deps() const
{
    return isAnyAdmin() && isCurrentDeletable(m_departmentsTable);
}

bool TemplateTab::canEditPassport_Deps() const
{
    return isAnyAdmin();
}

bool TemplateTab::isCanCopy_Deps() const
{
    return canCopyCurrent();
}

bool TemplateTab::isCanPaste_Deps() const
{
    return isAnyAdmin() && canPasteHere();
}

void TemplateTab::newFolder_Deps(QModelIndex index, MDRData* record)
{
    newFolderUnder(index, record, m_departmentsTable, Field::DepartmentKey,
                   QStringLiteral("void TemplateTab::newFolder_Deps(QModelIndex, MDArrayRec*)"),
                   QStringLiteral("Not found department or parent key"));
}

void TemplateTab::newTemplate_Deps(QModelIndex index, MDRData* record)
{
    newTemplateUnder(index, record,
                     QStringLiteral("void TemplateTab::newTemplate_Deps(QModelIndex, MDArrayRec*)"));
}

void TemplateTab::whereInsertRecord_Deps(int& row, QModelIndex& parent, TEventNciParse* event)
{
    whereInsert(row, parent, event, m_departmentsTable, Field::DepartmentKey, {Field::OrgTypeKey});
}
