#pragma once

#include "ConversionReport.h"
#include "ConverterTables.h"

#include <QHash>
#include <string>
#include <vector>

/// Turns the parameters of the earlier journal into rows of TemplateParams, and finds the parameter that a template of
/// it refers to. Works on the tables in memory and keeps both references.
class ParamRules
{
public:
    ParamRules(ConverterTables* tables, ConversionReport* report);

    /// Makes a row for each text, enumeration, and date or time among the old parameters. References to equipment and
    /// organizations get none: templates reach base parameters through them.
    void processParameters();
    void convertText(const MDRData* old);
    void convertEnum(const MDRData* old);
    /// A layout that cannot be read goes into the report and its list of failures.
    void convertDateTime(const MDRData* old);
    /// The category of the rows made here, unless it is there.
    void createParamCategory();
    /// Adds a row of TemplateParams under this key, or changes the one that is there.
    void createParameter(const QString& key, const QString& title, const std::string& html);

    /// What stands in a template for the parameter called \a name, with or without "<" and ">"; empty when there is
    /// none. Struck out, the mark encloses the shown text inside of the anchor.
    QString toHtmlParameter(QString name, bool strikeOut);
    /// The base parameter behind an old one, or null. The first row of TemplateParams whose parameter bears the name.
    MDRData* findBaseParam(const QString& name);
    /// The old journal had a parameter of this name, with or without "<" and ">".
    bool isExistParameterDelphi(QString name) const;

private:
    using Properties = std::vector<std::pair<std::string, std::string>>;

    void convert(const MDRData* old);
    /// Adds the rest of the properties, makes the parameter and notes it as \a result.
    void make(const MDRData* old, Properties properties, const QString& title,
              ConversionReport::Result result, const QStringList& losses = {});
    void indexBaseNames();
    QString baseName(const MDRData* old) const;
    QString titleOf(const MDRData* old, const QString& otherwise) const;
    void note(const MDRData* old, ConversionReport::Result result, const QStringList& losses = {});

    ConverterTables* m_tables;
    ConversionReport* m_report;
    QHash<QString, MDRData*> m_byBaseName; ///< first rows of TemplateParams, made at the first question
};
