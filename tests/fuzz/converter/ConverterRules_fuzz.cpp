#include "EarlierTables.h"
#include "FuzzTarget.h"
#include "HtmlParser.h"
#include "ParamRules.h"
#include "ParamText.h"
#include "TemplateMarks.h"
#include "TemplateRules.h"

// A template and its parameters of the earlier journal may contain any text: the result is a valid template
// text, and each template is converted or named in the report.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString input = QString::fromUtf8(reinterpret_cast<const char*>(data),
                                            static_cast<int>(qMin<std::size_t>(size, 2000)));
    const QStringList parts = input.split(QLatin1Char('\x01'));
    const QString description = parts.value(1);
    ParamText::toQtDateTimeLayout(description);
    ParamText::enumValues(description);
    ParamText::equipmentParameter(description);
    ParamText::organizationParameter(description);
    TemplateMarks::toResourcesIcon(description);
    QMap<QString, bool> marked;
    TemplateMarks::parameters(parts.value(0), &marked);
    TemplateMarks::normalized(parts.value(0));

    EarlierTables tables;
    tables.add(tables.oldCategories, "C", {{"name_", "Common"}});
    tables.addBase("substation", "Substation");
    const QByteArray name = parts.value(2).toUtf8();
    tables.addParam("podst", {{"param", description}, {"nameLoc", parts.value(3)}});
    tables.addParam("prim", {{"nameLoc", parts.value(3)}});
    if (!name.isEmpty() && !name.contains('\0'))
        tables.addParam(name.constData(), {{"param", description}});
    tables.add(tables.oldTemplates, "T", {{"CategoryKey", "C"}, {"name_", "T"}, {"text_", parts.value(0)}});
    ConversionReport report;
    ParamRules params(&tables, &report);
    params.processParameters();
    TemplateRules rules(&tables, &params, &report);
    rules.processPublicTempaltes();
    rules.processOrgTypesTempaltes();
    rules.processDepartmentsTempaltes();
    rules.noteLeftOut();

    const MDRData* made = tables.made(QStringLiteral("T"));
    fuzzRequire((made != nullptr) == (rules.count() == 1));
    const bool hasText = !parts.value(0).isEmpty() && parts.value(0).at(0) != QChar(0);
    fuzzRequire(made || !hasText || !report.failed.isEmpty());
    if (made) {
        const std::string html = tables.field(made, "html").toStdString();
        fuzzRequire(HtmlParser(html).readyHtml(true) == html);
    }
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {QByteArrayLiteral("On <podst> [struck <prim>] text\r\nline\x01"
                              "Equipment=Substation;\x01x\x01Name, \"A\""),
            QByteArrayLiteral("<x> and <podst>\x01"
                              "Enum=1=a,2=<b>\x01x\x01[n]"),
            QByteArrayLiteral("<prim>, <podst> ]\x01"
                              "DateTime=ShortDate\x01"
                              "a b\x01"),
            QByteArrayLiteral("[[<podst>]] > <\x01Organization=Own\x01podst\x01<&>")};
}
