#pragma once

#include "CModelTable.h"
#include "LogbookFields.h"

/// The tables of one page of the configurator, each with the name of the server's table and only the order
/// of entry as key: copies of the server's tables, unsaved records, and the insert halves of running moves.
struct TemplateTables {
    TemplateTables();

    CModelTable categories{"LogbookCatsTemplate"};
    CModelTable templates{"LogbookTemplates"};
    CModelTable categoriesEdit{"LogbookCatsTemplate", LogbookCatsTemplateFields, ""};
    CModelTable templatesEdit{"LogbookTemplates", LogbookTemplatesFields, ""};
    CModelTable categoriesMoved{"LogbookCatsTemplate", LogbookCatsTemplateFields, ""};
    CModelTable templatesMoved{"LogbookTemplates", LogbookTemplatesFields, ""};

    /// There are unsaved records.
    bool isEdited() const { return categoriesEdit.data.RecCount() > 0 || templatesEdit.data.RecCount() > 0; }
    /// Leaves the order of entry as the only key.
    static void setDefaultKey(CModelTable* table) { table->data.setKeys({""}); }
    /// Makes the table a copy of another, which may be null or without array: mdr_Assign.
    static void copyFrom(CModelTable* table, const CModelTable* source);
    /// A text, or null for an empty one. The bytes must outlive the value.
    static MDRVar keyOrNull(const QByteArray& key);
    static bool isContains(const CModelTable* table, const MDRData* record);
    /// Removes the record; mdr_Foreign in the table's lastError if it belongs to another table.
    static void deleteRecord(CModelTable* table, MDRData* record);
    /// Stores one field as the user's change, and posts the record.
    static void storeField(CModelTable* table, MDRData* record, const char* field, const MDRVar& value);
};
