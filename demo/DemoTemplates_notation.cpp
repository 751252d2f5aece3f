#include "DemoTemplates.h"
#include "HtmlEscapes.h"
#include "HtmlParser.h"
#include "HtmlScanner.h"

namespace
{
/// The content of a parameter's braces; empty if the notation cannot express it.
QString parameterNotation(const HtmlParser& parser, unsigned index)
{
    const QString type = QString::fromStdString(parser.propertyNameValue(index));
    QString notation = type;
    if (parser.isExistProperty(index, "optional"))
        notation += QLatin1Char('?');
    notation += QLatin1Char(':') + QString::fromStdString(parser.propertyValue(index, "locname"));
    if (type == QLatin1String("datetime"))
        notation += QLatin1Char(';') + QString::fromStdString(parser.propertyValue(index, "format"));
    if (type == QLatin1String("list")) {
        QStringList values;
        for (const std::string& value : HtmlParser::listValues(parser.propertyValue(index, "list")))
            values << QString::fromStdString(value);
        notation += QLatin1Char(';') + values.join(QLatin1Char('|'));
    }
    const QString before = QString::fromStdString(parser.propertyValue(index, "before"));
    const QString after = QString::fromStdString(parser.propertyValue(index, "after"));
    if (!before.isEmpty() || !after.isEmpty())
        notation += QLatin1Char(';') + before + QChar(0x2026) + after;
    return QLatin1Char('{') + notation + QLatin1Char('}');
}
} // namespace

QString DemoTemplates::notation(const std::string& html)
{
    const HtmlParser parser(html);
    HtmlScanner<char> scanner(html);
    HtmlScanner<char>::Token token;
    QString text;
    QString styles; // style characters of the open spans
    unsigned parameter = 0;
    bool inside = false; // the parser is in the shown text of a parameter, its label
    while (scanner.next(token)) {
        const std::string piece = html.substr(token.begin, token.end - token.begin);
        const bool opens = token.kind == HtmlScanner<char>::Open;
        if (token.kind == HtmlScanner<char>::Text) {
            if (!inside)
                text += QString::fromStdString(HtmlEscapes::fromEntities(piece));
        } else if (opens && scanner.parameterLink(token).found) {
            text += parameterNotation(parser, parameter++);
            inside = true;
        } else if (HtmlScanner<char>::equals(token.name, "a")) {
            inside = false;
        } else if (opens && HtmlScanner<char>::equals(token.name, "br")) {
            text += QLatin1Char('\n');
        } else if (HtmlScanner<char>::equals(token.name, "span")) {
            if (opens)
                styles +=
                    piece.find("line-through") != std::string::npos ? QLatin1Char('~') : QLatin1Char('*');
            if (!styles.isEmpty())
                text += styles.back();
            if (!opens)
                styles.chop(1);
        }
    }
    // Converting back shows whether anything was lost.
    QString error;
    return DemoTemplates::html(text, &error) == html && error.isEmpty() ? text : QString();
}
