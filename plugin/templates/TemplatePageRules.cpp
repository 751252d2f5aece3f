#include "TemplatePageRules.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

const CModelTable* TemplatePageRules::roots() const
{
    switch (m_level->roots) {
    case TemplateLevel::OrgTypeRoots:
        return m_orgTypesTable;
    case TemplateLevel::DepartmentRoots:
        return m_departmentsTable;
    default:
        return nullptr;
    }
}

bool TemplatePageRules::isRootCreatable() const
{
    return isAdmin() && !isExistUnsaved() && m_level->roots == TemplateLevel::NoRoots;
}

bool TemplatePageRules::isCurrentDeletable() const
{
    const MDRData* record = currentRecord();
    return canEdit() && record && !TemplateTables::isContains(roots(), record);
}

bool TemplatePageRules::isOwnItemCurrent() const
{
    const MDRData* record = currentRecord();
    return TemplateTables::isContains(&m_tables.categories, record) ||
           TemplateTables::isContains(&m_tables.templates, record);
}

bool TemplatePageRules::canCopyCurrent() const
{
    return isAnyAdmin() && TemplateTables::isContains(&m_tables.templates, currentRecord());
}

bool TemplatePageRules::canPasteHere() const
{
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    return canEdit() && isOwnItemCurrent() && mime && mime->hasFormat(clipboardFormat()) &&
           !mime->data(clipboardFormat()).isEmpty();
}
