#include "TemplateCells.h"

#include "DemoTemplates.h"
#include "HtmlParser.h"

namespace
{
const char* const flags[] = {"open_wshift", "close_wshift", "time_exec"};
const char* const texts[] = {"first_mark", "second_mark", "command"};

QString rawMark()
{
    return QStringLiteral("html:");
}
} // namespace

TemplateCells::TemplateCells(const QString& html)
{
    if (html.isEmpty())
        return;
    HtmlParser parser(html.toStdString());
    const std::string body = parser.readyHtml(false);
    for (const char* name : flags) {
        bool set = false;
        parser.templatePropertyValue(name, set);
        if (set)
            properties.insert(name, QStringLiteral("1"));
        parser.removeTemplateProperty(name);
    }
    for (const char* name : texts) {
        std::string value;
        parser.templatePropertyValue(name, value);
        if (!value.empty())
            properties.insert(name, QString::fromStdString(value));
        parser.removeTemplateProperty(name);
    }
    text = DemoTemplates::notation(body);
    if (text.isNull() || parser.readyHtml(true) != body) { // a property of another kind would be lost
        text = rawMark() + html;
        properties.clear();
    }
}

bool TemplateCells::hasFlag(const QString& html, const char* name)
{
    bool set = false;
    HtmlParser(html.toStdString()).templatePropertyValue(name, set);
    return set;
}

QString TemplateCells::html(QString* error) const
{
    if (text.startsWith(rawMark()))
        return text.mid(rawMark().size());
    HtmlParser parser(DemoTemplates::html(text, error));
    for (const char* name : flags) {
        if (properties.contains(name))
            parser.setTemplateProperty(name, true);
    }
    for (const char* name : texts) {
        if (properties.contains(name))
            parser.setTemplateProperty(name, properties.value(name).toStdString());
    }
    return QString::fromStdString(parser.readyHtml(true));
}
