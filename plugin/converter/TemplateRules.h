#pragma once

#include "ConversionReport.h"
#include "ConverterTables.h"

#include <QHash>
#include <QSet>
#include <QVector>

class HtmlParser;
class ParamRules;

/// Builds the tree of template categories anew and turns every template of the earlier journal that hangs in it into a
/// row of LogbookTemplates. Works on the tables in memory; the old ones must not change meanwhile.
class TemplateRules
{
public:
    TemplateRules(ConverterTables* tables, ParamRules* params, ConversionReport* report);

    /// \name The three levels: each takes its top-level categories with all that hangs below them
    /// @{
    void processPublicTempaltes();
    void processOrgTypesTempaltes();
    void processDepartmentsTempaltes();
    /// @}
    void processChildCats(const MDRData* oldCategory, const MDRData* newCategory);
    void processTemplates(const MDRData* oldCategory, const MDRData* newCategory);
    /// Notes the templates that no level has taken. After the three levels.
    void noteLeftOut();

    /// Templates converted so far.
    int count() const { return m_count; }

private:
    using Rows = QVector<const MDRData*>;

    /// Rows by the text of a field, each group in the order of key 0; rows without the text in none.
    static QHash<QByteArray, Rows> grouped(const CMDArray& table, const char* field);
    void takeCategory(const MDRData* old, const QByteArray& parent, const QByteArray& orgType,
                      const QByteArray& department);
    void convert(const MDRData* old, const QByteArray& category);
    /// Puts the new parameters in place of the written ones; false when the text cannot be read.
    bool replaceParameters(QString* text, const QString& name, QStringList* losses);
    void setMarker(HtmlParser* parser, const MDRData* old, const char* field, const char* property,
                   const QString& unknown, QStringList* losses);
    void setCommand(HtmlParser* parser, const MDRData* old, QStringList* losses);
    void stepDone();

    ConverterTables* m_tables;
    ParamRules* m_params;
    ConversionReport* m_report;
    QHash<QByteArray, Rows> m_children;  ///< of OperLogCategories, by ParentKey
    QHash<QByteArray, Rows> m_templates; ///< of OperLogTemplates, by CategoryKey
    QSet<const MDRData*> m_seen;         ///< templates that a level has taken
    int m_count = 0;
};
