#pragma once

#include "ConversionReport.h"
#include "ConverterTables.h"

#include <QHash>
#include <string>
#include <vector>

/// Converts the parameters of the earlier journal to rows of TemplateParams, and finds the parameter for
/// each reference in its templates. Uses the tables in memory and keeps both references.
class ParamRules
{
public:
    ParamRules(ConverterTables* tables, ConversionReport* report);

    /// Creates a row for each text, enumeration, and date or time among the old parameters. References to
    /// equipment and organizations get none: templates use base parameters for them.
    void processParameters();
    void convertText(const MDRData* old);
    void convertEnum(const MDRData* old);
    /// A layout that cannot be read is added to the report and its list of failures.
    void convertDateTime(const MDRData* old);
    /// Creates the category of these rows unless it exists.
    void createParamCategory();
    /// Adds a row of TemplateParams with this key, or changes an existing one.
    void createParameter(const QString& key, const QString& title, const std::string& html);

    /// The html of the parameter called \a name in a template, with or without "<" and ">"; empty if there
    /// is none. A strike-out encloses the shown text inside the anchor.
    QString toHtmlParameter(QString name, bool strikeOut);
    /// The base parameter for an old one, or null: the first row of TemplateParams whose parameter has the
    /// name.
    MDRData* findBaseParam(const QString& name);
    /// Whether the old journal had a parameter with this name, with or without "<" and ">".
    bool isExistParameterDelphi(QString name) const;

private:
    using Properties = std::vector<std::pair<std::string, std::string>>;

    void convert(const MDRData* old);
    /// Adds the remaining properties, creates the parameter and records it as \a result.
    void make(const MDRData* old, Properties properties, const QString& title,
              ConversionReport::Result result, const QStringList& losses = {});
    void indexBaseNames();
    QString baseName(const MDRData* old) const;
    QString titleOf(const MDRData* old, const QString& otherwise) const;
    void note(const MDRData* old, ConversionReport::Result result, const QStringList& losses = {});

    ConverterTables* m_tables;
    ConversionReport* m_report;
    QHash<QString, MDRData*> m_byBaseName; ///< first rows of TemplateParams, collected on first use
};
