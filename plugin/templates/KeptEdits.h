#pragma once

#include "CModelTable.h"
#include "TemplateTables.h"

/// Unsaved records that left the edit tables without being saved, kept so that the user can have them back.
class KeptEdits
{
public:
    KeptEdits();

    /// Adds the new and changed records of the edit tables to what is kept.
    void keepAll(const TemplateTables& tables);
    /// Adds this record of one of the edit tables.
    void keep(const TemplateTables& tables, const MDRData* record);
    /// What is kept under the key of this record was given back.
    void forget(const CModelTable& kept, const QByteArray& key);
    void clear();
    bool isEmpty() const;

    const CModelTable& categories() const { return m_categories; }
    const CModelTable& templates() const { return m_templates; }

    /// Copies flags, values and marks into a fresh record of a table with the same fields.
    static void copyRecord(const MDRData* from, MDRData* to);

private:
    /// A change is kept with all that its row holds, should the row be gone when it comes back.
    static void add(CModelTable* kept, const CModelTable& stored, const MDRData* record);

    CModelTable m_categories;
    CModelTable m_templates;
};
