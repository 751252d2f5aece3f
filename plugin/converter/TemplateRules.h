#pragma once

#include "ConversionReport.h"
#include "ConverterTables.h"

#include <QHash>
#include <QSet>
#include <QVector>

class HtmlParser;
class ParamRules;

/// Rebuilds the tree of template categories and converts every template of the earlier journal that belongs
/// to it to a row of LogbookTemplates. Uses the tables in memory; the old ones must not change in the
/// meantime.
class TemplateRules
{
public:
    TemplateRules(ConverterTables* tables, ParamRules* params, ConversionReport* report);

    /// \name The three levels: each converts its top-level categories with their subtrees
    /// @{
    void processPublicTempaltes();
    void processOrgTypesTempaltes();
    void processDepartmentsTempaltes();
    /// @}
    void processChildCats(const MDRData* oldCategory, const MDRData* newCategory);
    void processTemplates(const MDRData* oldCategory, const MDRData* newCategory);
    /// Reports the templates that no level contains. Call it after the three levels.
    void noteLeftOut();

    /// Templates converted so far.
    int count() const { return m_count; }

private:
    using Rows = QVector<const MDRData*>;

    /// Rows by the text of a field, each group in the order of key 0; rows without the text are in no
    /// group.
    static QHash<QByteArray, Rows> grouped(const CMDArray& table, const char* field);
    void takeCategory(const MDRData* old, const QByteArray& parent, const QByteArray& orgType,
                      const QByteArray& department);
    void convert(const MDRData* old, const QByteArray& category);
    /// Replaces the written parameters by the new ones; false if the text cannot be read.
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
    QSet<const MDRData*> m_seen;         ///< templates of the levels done so far
    int m_count = 0;
};
