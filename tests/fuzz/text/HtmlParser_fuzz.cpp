#include "FuzzTarget.h"
#include "HtmlParser.h"
#include "TemplateText.h"

#include <QTextCodec>
#include <string>

// For any bytes as a text: without changes it is returned unchanged; shown texts, data and template
// properties that were set can be read again, with any text around them; and the visible text numbers the
// parameters like the parser.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    HtmlParser parser(text);
    fuzzRequire(parser.readyHtml(true) == text);
    fuzzRequire(HtmlParser(parser.readyHtml(false)).countParameters() == parser.countParameters());

    const unsigned count = parser.countParameters();
    const std::string value = text.substr(0, 40);
    std::string shown; // a text contains no NUL, and does not distinguish line ends
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\r')
            shown += i + 1 < value.size() && value[i + 1] == '\n' ? "" : "\n";
        else if (value[i] != '\0')
            shown += value[i];
    }
    for (unsigned i = 0; i < count; ++i) {
        parser.properties(i);
        parser.displayText(i);
        HtmlParser::listValues(parser.propertyValue(i, "list"));
        parser.setDisplayText(i, value);
        parser.setPropertyData(i, value);
    }
    parser.setTemplateProperty("fuzzed", value);
    const HtmlParser again(parser.readyHtml(true));
    fuzzRequire(again.countParameters() == count);
    for (unsigned i = 0; i < count; ++i)
        fuzzRequire(again.displayText(i) == shown && again.propertyData(i) == value);
    std::string read;
    again.templatePropertyValue("fuzzed", read);
    fuzzRequire(read == value);

    static QTextCodec* const codec = QTextCodec::codecForName("Windows-1251");
    const QString decoded = codec->toUnicode(text.data(), static_cast<int>(text.size()));
    int highest = -1;
    QString joined;
    for (const TemplateText::Run& run : TemplateText::runs(decoded)) {
        highest = qMax(highest, run.parameter);
        joined += run.text;
    }
    fuzzRequire(static_cast<unsigned>(highest + 1) == count);
    fuzzRequire(joined.replace(QChar::Nbsp, QLatin1Char(' ')) == TemplateText::plain(decoded));
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    const auto bytes = [](const std::string& text) { return QByteArray::fromStdString(text); };
    HtmlParser full(
        "<p>a <b>b</b> " + HtmlParser::createParameter({{"name", "text"}, {"locname", "l"}}, "x <&> y") +
        "<br/><span style=\" text-decoration: line-through;\">c</span></p><!-- d -->&nbsp;&#8470;&laquo;");
    full.setTemplateProperty("time_exec", true);
    full.setTemplateProperty("command", "e;f=\"g\"");
    const std::string list = HtmlParser::createListProperty({"a|b", "", "c"});
    return {bytes(full.readyHtml(true)),
            bytes(HtmlParser::createParameter({{"name", "list"}, {"list", list}, {"optional", ""}}, ",z")),
            QByteArrayLiteral("<a href='parameter:name=text;data=%4B'><i>x<a href=\"parameter:\">y</i></a>"),
            QByteArrayLiteral("<style>p</style><META NAME=template CONTENT=a;b=1><!DOCTYPE x>5 < 6 &#x41;")};
}
