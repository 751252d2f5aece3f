#pragma once

#include "CModelTable.h"

#include <QString>

class QTextCodec;

/// The seven tables of a conversion: three of the earlier journal, which are only read, and four of this
/// one. Their texts are in the code page of the session.
struct ConverterTables {
    CModelTable oldCategories{"OperLogCategories"};
    CModelTable oldTemplates{"OperLogTemplates"};
    CModelTable oldParams{"OperLogTemplateParams"};
    CModelTable categories{"LogbookCatsTemplate"};
    CModelTable templates{"LogbookTemplates"};
    CModelTable paramCategories{"TemplateParamCategories"};
    CModelTable params{"TemplateParams"};
    const QTextCodec* codec = nullptr;

    /// Sets KeyLink as the only key 0 of every table, then the second keys: new categories and templates
    /// are found by nameLoc, old parameters by nameLat.
    void setKeys();
    /// The text of a field, decoded; empty if it is absent.
    QString text(const MDRData* record, const char* field) const;
    /// The record with this text in the key's field, or null.
    MDRData* seek(const CModelTable& table, int key, const QString& text) const;
};

/// The category of all parameters created by a conversion.
extern const char convertedCategoryKey[];

/// One of the old tables that a conversion needs is empty.
bool hasNothingToConvert(const ConverterTables& tables);
/// At least nine of ten categories and nine of ten templates exist already, by their names; rows without a
/// name count as found. False if there is nothing to convert.
bool isAlreadyConverted(const ConverterTables& tables);
/// Replaces \a to with the fields of \a from and copies of its records with ROW_INSERT or ROW_UPDATE, every
/// field marked.
void copyEdited(const CModelTable* from, CMDArray* to);
