#pragma once

#include "Rights.h"
#include "TemplateLevel.h"
#include "TemplateTables.h"

#include <QString>

/// What the user may do on a page of the configurator: decided by its level, his rights, the tables and the
/// current item alone.
class TemplatePageRules
{
public:
    virtual ~TemplatePageRules() = default;

    /// The record of the current item, or null.
    virtual MDRData* currentRecord() const = 0;
    const TemplateTables& tables() const { return m_tables; }

    /// There are unsaved records: saving and cancelling are enabled, creating and deleting are not.
    bool isExistUnsaved() const { return m_tables.isEdited(); }
    bool isRootCreatable() const;
    bool isFolderCreatable() const { return canEdit() && !isExistUnsaved() && currentRecord(); }
    bool isTemplateCreatable() const { return canEdit() && !isExistUnsaved() && isOwnItemCurrent(); }
    bool isItemDeletable() const { return !isExistUnsaved() && isCurrentDeletable(); }
    bool canCopyCurrent() const;
    bool canPasteHere() const;

protected:
    static QString clipboardFormat() { return QStringLiteral("logbook_template"); }
    bool isAdmin() const { return m_rights == Rights::Admin; }
    bool isAnyAdmin() const { return m_rights != Rights::View; }
    bool canEdit() const { return m_rights >= m_level->editor; }
    /// The rows at the top of the tree; null if these are categories.
    const CModelTable* roots() const;
    /// Like isItemDeletable, also with unsaved records.
    bool isCurrentDeletable() const;

    const TemplateLevel* m_level = nullptr;
    Rights::AdminRights m_rights = Rights::View;
    CModelTable* m_orgTypesTable = nullptr;
    CModelTable* m_departmentsTable = nullptr;
    TemplateTables m_tables;

private:
    bool isOwnItemCurrent() const;
};
