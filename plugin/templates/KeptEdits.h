#pragma once

#include "CModelTable.h"
#include "KeptTexts.h"
#include "TemplateTables.h"

class QTextCodec;

/// Records that left the edit tables without being saved, kept so that the user can restore them.
class KeptEdits
{
public:
    /// Adds the new and changed records of the edit tables.
    void keepAll(const TemplateTables& tables);
    /// Adds this record of one of the edit tables.
    void keep(const TemplateTables& tables, const MDRData* record);
    /// The kept version of this record was restored.
    void forget(const CModelTable& kept, const QByteArray& key);
    void clear();
    bool isEmpty() const { return m_categories.data.RecCount() == 0 && m_templates.data.RecCount() == 0; }

    /// Adds the records kept there.
    void keepAll(const KeptEdits& other);
    /// The kept records as a text that outlives the program; no values if there are none.
    KeptTexts::Values values(const QTextCodec* codec) const;
    /// Adds the records of such a text, except those that the tables already have.
    void read(const KeptTexts::Values& values, const TemplateTables& tables);

    const CModelTable& categories() const { return m_categories; }
    const CModelTable& templates() const { return m_templates; }

    /// Copies flags, values and marks into a fresh record of a table with the same fields.
    static void copyRecord(const MDRData* from, MDRData* to);

private:
    /// A changed record is kept with all fields, in case its row no longer exists when it is restored.
    static void add(CModelTable* kept, const CModelTable& stored, const MDRData* record);
    static void read(CModelTable* kept, const QString& packed, const CModelTable& stored);

    CModelTable m_categories{"LogbookCatsTemplate", LogbookCatsTemplateFields, ""};
    CModelTable m_templates{"LogbookTemplates", LogbookTemplatesFields, ""};
};
