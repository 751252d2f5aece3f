#include "Fields.h"
#include "TemplateTab.h"
#include "ui_TemplateTab.h"

const TemplateTab::Operations TemplateTab::publicOperations = {
    &TemplateTab::isEditable_Public,          nullptr,
    &TemplateTab::isRootCreatable_Public,     &TemplateTab::isFolderCreatable_Public,
    &TemplateTab::isTemplateCreatable_Public, &TemplateTab::isItemDeletable_Public,
    &TemplateTab::canEditPassport_Public,     &TemplateTab::isCanCopy_Public,
    &TemplateTab::isCanPaste_Public,          &TemplateTab::newFolder_Public,
    &TemplateTab::newTemplate_Public,         &TemplateTab::whereInsertRecord_Public};

bool TemplateTab::isEditable_Public() const
{
    return isAdmin();
}

bool TemplateTab::isRootCreatable_Public() const
{
    return isAdmin();
}

bool TemplateTab::isFolderCreatable_Public() const
{
    return isAdmin();
}

bool TemplateTab::isTemplateCreatable_Public() const
{
    return isAdmin();
}

bool TemplateTab::isItemDeletable_Public() const
{
    return isAdmin() && m_form->templatesTree->currentIndex().isValid();
}

bool TemplateTab::canEditPassport_Public() const
{
    return isAdmin();
}

bool TemplateTab::isCanCopy_Public() const
{
    return canCopyCurrent();
}

bool TemplateTab::isCanPaste_Public() const
{
    return isAdmin() && canPasteHere();
}

void TemplateTab::newFolder_Public(QModelIndex index, MDRData* record)
{
    newFolderUnder(index, record, nullptr, nullptr,
                   QStringLiteral("void TemplateTab::newFolder_Public(QModelIndex, MDArrayRec*)"),
                   QStringLiteral("failed get record by index. Can't find parent category record."));
}

void TemplateTab::newTemplate_Public(QModelIndex index, MDRData* record)
{
    newTemplateUnder(index, record,
                     QStringLiteral("void TemplateTab::newTemplate_Public(QModelIndex, MDArrayRec*)"));
}

void TemplateTab::whereInsertRecord_Public(int& row, QModelIndex& parent, TEventNciParse* event)
{
    whereInsert(row, parent, event, nullptr, nullptr, {Field::OrgTypeKey, Field::DepartmentKey});
}
