#pragma once

#include "CModelTable.h"
#include "TemplateTables.h"

/// Unsaved records that left the edit tables without being saved, kept so that the user can have them back.
class KeptEdits
{
public:
    KeptEdits();

    /// Replaces what is kept by the new and changed records of the edit tables.
    void keepAll(const TemplateTables& tables);
    /// Replaces what is kept by this record of one of the edit tables.
    void keep(const TemplateTables& tables, const MDRData* record);
    void clear();
    bool isEmpty() const;

    const CModelTable& categories() const { return m_categories; }
    const CModelTable& templates() const { return m_templates; }

    /// Copies flags, values and marks into a fresh record of a table with the same fields.
    static void copyRecord(const MDRData* from, MDRData* to);

private:
    CModelTable m_categories;
    CModelTable m_templates;
};
