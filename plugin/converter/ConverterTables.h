#pragma once

#include "CModelTable.h"

#include <QString>

class QTextCodec;

/// The seven tables of a conversion: three of the earlier journal, which are only read, and four of this one. They hold
/// texts in the code page of the session.
struct ConverterTables {
    CModelTable oldCategories{"OperLogCategories"};
    CModelTable oldTemplates{"OperLogTemplates"};
    CModelTable oldParams{"OperLogTemplateParams"};
    CModelTable categories{"LogbookCatsTemplate"};
    CModelTable templates{"LogbookTemplates"};
    CModelTable paramCategories{"TemplateParamCategories"};
    CModelTable params{"TemplateParams"};
    const QTextCodec* codec = nullptr;

    /// Gives every table KeyLink as key 0 and nothing else, then the second keys: the new categories and templates are
    /// found by nameLoc, the old parameters by nameLat.
    void setKeys();
    /// The text of a field, decoded; empty when it is absent.
    QString text(const MDRData* record, const char* field) const;
    /// The record whose field of this key holds this text, or null.
    MDRData* seek(const CModelTable& table, int key, const QString& text) const;
};

/// The category of all parameters that a conversion makes.
extern const char convertedCategoryKey[];

/// One of the old tables that a conversion starts from is empty.
bool hasNothingToConvert(const ConverterTables& tables);
/// At least nine of ten categories and nine of ten templates are there already, by their names; rows without a name
/// count as found. False when there is nothing to convert.
bool isAlreadyConverted(const ConverterTables& tables);
/// Replaces \a to by the fields of \a from and copies of its records with ROW_INSERT or ROW_UPDATE, every field marked.
void copyEdited(const CModelTable* from, CMDArray* to);
