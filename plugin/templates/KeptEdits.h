#pragma once

#include "CModelTable.h"
#include "KeptTexts.h"
#include "TemplateTables.h"

class QTextCodec;

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

    /// Adds what is kept here too.
    void keepAll(const KeptEdits& other);
    /// What is kept as a text that outlives the program; no values when there is nothing.
    KeptTexts::Values values(const QTextCodec* codec) const;
    /// Adds what such a text holds, without what the tables hold by now.
    void read(const KeptTexts::Values& values, const TemplateTables& tables);

    const CModelTable& categories() const { return m_categories; }
    const CModelTable& templates() const { return m_templates; }

    /// Copies flags, values and marks into a fresh record of a table with the same fields.
    static void copyRecord(const MDRData* from, MDRData* to);

private:
    /// A change is kept with all that its row holds, should the row be gone when it comes back.
    static void add(CModelTable* kept, const CModelTable& stored, const MDRData* record);
    static void read(CModelTable* kept, const QString& packed, const CModelTable& stored);

    CModelTable m_categories;
    CModelTable m_templates;
};
