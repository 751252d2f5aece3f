#include "HtmlParser.h"

#include <ctime>
#include <QTest>
#include <QTextBlock>
#include <QTextCodec>
#include <QTextDocument>
#include <random>

namespace
{
using Properties = std::vector<HtmlParser::Property>;

std::string parameter(const std::string& name, const std::string& shown)
{
    return HtmlParser::createParameter({{"name", name}, {"locname", shown}}, shown);
}

/// The effect of converting old templates on a text that already contains the new parameters.
std::string normalized(const std::string& html)
{
    QString text = QString::fromUtf8(html.c_str());
    text.replace(QLatin1String("\r"), QString()).replace(QLatin1String("\n"), QLatin1String(" "));
    text.replace(QLatin1String("]["), QLatin1String("] [")).replace(QLatin1String(" ]"), QLatin1String("] "));
    text.replace(QLatin1String("[ "), QLatin1String(" [")).replace(QLatin1String(">,"), QLatin1String("> ,"));
    text.replace(QLatin1String(">."), QLatin1String("> ."));
    text.replace(QLatin1String("["), QLatin1String("<span style=\" text-decoration: line-through;\">"));
    text.replace(QLatin1String("]"), QLatin1String("</span>"));
    text.replace(QLatin1String("</a><a"), QLatin1String("</a> <a"));
    return text.toStdString();
}

/// A random text of all characters of the code page, special ones more often than others.
QString randomText(std::mt19937& random, QTextCodec* codec, int longest)
{
    static const QString specials = QStringLiteral("<>[]\"'&;=%|,. \n\t#/\\+?!*()-:;&lt;%3B</a><br/>");
    QString text;
    const int length = static_cast<int>(random() % static_cast<unsigned>(longest + 1));
    while (text.size() < length) {
        if (random() % 2) {
            text += specials[static_cast<int>(random() % static_cast<unsigned>(specials.size()))];
            continue;
        }
        const QChar c(static_cast<ushort>(random() % 4 ? 0x400 + random() % 0x60 : 0x20 + random() % 0x2100));
        if (c != QChar::ReplacementCharacter && !c.isSurrogate() && codec->canEncode(c))
            text += c;
    }
    return text;
}
} // namespace

class HtmlParser_test : public QObject
{
    Q_OBJECT

private slots:
    void anEmptyParserKnowsNothing();
    void aTextWithoutChangeComesBackByteForByte();
    void parametersAreNumberedInTheOrderOfTheText();
    void anOrdinaryLinkIsNoParameter();
    void propertiesKeepTheirOrderAndName_data();
    void propertiesKeepTheirOrderAndName();
    void shownTextIsReadWithoutMarkup();
    void shownTextIsReplaced();
    void aStrikeOutAroundTheShownTextStays();
    void aDatumIsAttachedAndReadBackFromTheLinkOfAView();
    void anEmptyDatumTakesItAway();
    void indexesOutOfRangeAreHarmless();
    void flagsAndTextsOfATemplateAreSetReadAndRemoved();
    void anEmptyTextPropertyExists();
    void aLiteralIsATextPropertyAndNoFlag();
    void aViewDoesNotShowTemplateProperties();
    void propertiesSurviveTheChangeOfAnEnclosingText();
    void propertiesOfTwoTextsAreMergedAndTheFirstCounts();
    void readyHtmlLeavesTemplatePropertiesAwayWhenAsked();
    void aListIsPackedAndUnpacked_data();
    void aListIsPackedAndUnpacked();
    void invalidCharactersAreSeparatedBySingleBlanks();
    void parametersSurviveTheConversionOfOldTemplates();
    void recodingTheTextRecodesItsValues();
    void brokenMarkupIsReadAsFarAsItGoes_data();
    void brokenMarkupIsReadAsFarAsItGoes();
    void allCharactersMakeTheRoundTrip_data();
    void allCharactersMakeTheRoundTrip();
    void mutatedTextsAreHarmless();
    void propertiesAreOfOneKind();
    void removingWhatIsAbsentChangesNothing();
    void oddMarkupIsReadAsBrowsersDo();
    void timeIsLinearInTheLength_data();
    void timeIsLinearInTheLength();
};

void HtmlParser_test::anEmptyParserKnowsNothing()
{
    HtmlParser parser;
    QCOMPARE(parser.countParameters(), 0u);
    QVERIFY(!parser.isExistTemplateProperty("open_wshift"));
    QCOMPARE(parser.readyHtml(true), std::string());
    parser.setHtml("");
    QCOMPARE(parser.readyHtml(true), std::string());
}

void HtmlParser_test::aTextWithoutChangeComesBackByteForByte()
{
    const std::string texts[] = {"plain",
                                 "a < b > c & d \" ' [x] \r\n",
                                 "<p>x</p><!-- c --><a href='http://x'>y</a>",
                                 "<A HREF=parameter:name=text>z</A>",
                                 std::string("nul\0inside", 10),
                                 "\xcf\xd1 110 \xea\xc2"};
    for (const std::string& text : texts)
        QCOMPARE(HtmlParser(text).readyHtml(true), text);
}

void HtmlParser_test::parametersAreNumberedInTheOrderOfTheText()
{
    const HtmlParser parser("x " + parameter("substation", "S") + " y " + parameter("line", "L"));
    QCOMPARE(parser.countParameters(), 2u);
    QCOMPARE(parser.propertyNameValue(0), std::string("substation"));
    QCOMPARE(parser.propertyNameValue(1), std::string("line"));
    QCOMPARE(parser.displayText(0), std::string("S"));
    QCOMPARE(parser.displayText(1), std::string("L"));
}

void HtmlParser_test::anOrdinaryLinkIsNoParameter()
{
    const HtmlParser parser("<a href=\"http://host/\">x</a><a name=\"parameter:name=text\">y</a><abbr "
                            "href=\"parameter:name=text\">z</abbr>");
    QCOMPARE(parser.countParameters(), 0u);
}

void HtmlParser_test::propertiesKeepTheirOrderAndName_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("plain") << QByteArray("text");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("separators") << QByteArray("a;b=c%3B|d");
    QTest::newRow("markup") << QByteArray("<a href=\"x\">[y]</a> ]'&amp;");
    QTest::newRow("line ends") << QByteArray("a\r\nb\tc");
    QTest::newRow("layout") << QByteArray("dd.MM.yyyy hh:mm");
    QTest::newRow("Windows-1251") << QByteArray("\xcf\xf0\xe8\xb8\xec\xa0\xb9 1");
}

void HtmlParser_test::propertiesKeepTheirOrderAndName()
{
    QFETCH(QByteArray, value);
    const Properties properties = {{"name", "text"}, {"locname", value.toStdString()}, {"optional", ""}};
    const HtmlParser parser("a " + HtmlParser::createParameter(properties, "x") + " b");
    QCOMPARE(parser.countParameters(), 1u);
    QCOMPARE(parser.properties(0), properties);
    QCOMPARE(parser.propertyValue(0, "locname"), value.toStdString());
    QVERIFY(parser.isExistProperty(0, "optional"));
    QVERIFY(!parser.isExistProperty(0, "format"));
    QCOMPARE(parser.displayText(0), std::string("x"));

    HtmlParser unquoted("<a href=parameter:name=text>x</a>");
    unquoted.setPropertyData(0, value.toStdString());
    QCOMPARE(HtmlParser(unquoted.readyHtml(true)).propertyData(0), value.toStdString());
}

void HtmlParser_test::shownTextIsReadWithoutMarkup()
{
    const HtmlParser parser(
        "<a href=\"parameter:name=text\"><span style=\" text-decoration: line-through;\">a&lt;b "
        "&amp;  <b>c</b><br/>d&nbsp;\n e&#65;&#x42;&laquo;&#8470;</span></a>");
    QCOMPARE(parser.displayText(0), std::string("a<b & c\nd  eAB&laquo;&#8470;"));
}

void HtmlParser_test::shownTextIsReplaced()
{
    const std::string label = parameter("text", "label");
    HtmlParser parser("a " + label + " b " + label);
    parser.setDisplayText(1, "x < y\nz  [1]");
    QCOMPARE(parser.displayText(0), std::string("label"));
    QCOMPARE(parser.displayText(1), std::string("x < y\nz  [1]"));
    QCOMPARE(parser.readyHtml(true), "a " + label + " b " + label.substr(0, label.find('>') + 1) +
                                         "x &lt; y<br/>z &nbsp;&#91;1&#93;</a>");
    parser.setDisplayText(1, "label");
    QCOMPARE(parser.readyHtml(true), "a " + label + " b " + label);
}

void HtmlParser_test::aStrikeOutAroundTheShownTextStays()
{
    const std::string span = "<span style=\" text-decoration: line-through;\">";
    HtmlParser parser("<a href=\"parameter:name=text\">" + span +
                      "<b>old</b></span></a> <a "
                      "href=\"parameter:name=text\"><b>x</b> and <i>y</i></a>");
    parser.setDisplayText(0, "new");
    parser.setDisplayText(1, "z");
    QCOMPARE(parser.readyHtml(true), "<a href=\"parameter:name=text\">" + span +
                                         "<b>new</b></span></a> <a "
                                         "href=\"parameter:name=text\">z</a>");
}

void HtmlParser_test::aDatumIsAttachedAndReadBackFromTheLinkOfAView()
{
    HtmlParser parser("x " + parameter("employee_fio", QStringLiteral("ФИО").toStdString()));
    QCOMPARE(parser.propertyData(0), std::string());
    parser.setPropertyData(0, "0123456789ABCDEF0123456789ABCDEF");
    parser.setPropertyData(0, "K\"1;=");
    QCOMPARE(parser.propertyData(0), std::string("K\"1;="));
    QCOMPARE(parser.propertyNameValue(0), std::string("employee_fio"));

    QTextDocument view;
    view.setHtml(QString::fromStdString(parser.readyHtml(true)));
    QString link;
    for (auto it = view.begin().begin(); !it.atEnd(); ++it) {
        if (it.fragment().charFormat().isAnchor())
            link = it.fragment().charFormat().anchorHref();
    }
    QCOMPARE(HtmlParser::dataFromProperties(link.toStdString()), std::string("K\"1;="));
    QCOMPARE(HtmlParser::dataFromProperties("http://host/?data=1"), std::string());
    QCOMPARE(HtmlParser::dataFromProperties("parameter:name=text"), std::string());
    QCOMPARE(HtmlParser::dataFromProperties(""), std::string());
}

void HtmlParser_test::anEmptyDatumTakesItAway()
{
    const std::string html = "x " + parameter("employee_fio", "F") + " y";
    HtmlParser parser(html);
    parser.setPropertyData(0, "KEY");
    QVERIFY(parser.readyHtml(true) != html);
    parser.setPropertyData(0, "");
    QCOMPARE(parser.readyHtml(true), html);
}

void HtmlParser_test::indexesOutOfRangeAreHarmless()
{
    const std::string html = parameter("text", "x");
    HtmlParser parser(html);
    QCOMPARE(parser.propertyNameValue(1), std::string());
    QCOMPARE(parser.displayText(7), std::string());
    QCOMPARE(parser.propertyData(7), std::string());
    QVERIFY(parser.properties(1).empty());
    QVERIFY(!parser.isExistProperty(1, "name"));
    parser.setDisplayText(1, "y");
    parser.setPropertyData(static_cast<unsigned>(-1), "y");
    QCOMPARE(parser.readyHtml(true), html);
}

void HtmlParser_test::flagsAndTextsOfATemplateAreSetReadAndRemoved()
{
    const std::string text = "text " + parameter("text", "x");
    HtmlParser parser(text);
    parser.setTemplateProperty("open_wshift", true);
    parser.setTemplateProperty("first_mark", std::string(":/markers/worker_red.png"));
    parser.setTemplateProperty("command", std::string("a;b=\"c\" <d> 50 %"));

    HtmlParser again(parser.readyHtml(true));
    QCOMPARE(again.countParameters(), 1u);
    QVERIFY(again.isExistTemplateProperty("open_wshift"));
    QVERIFY(!again.isExistTemplateProperty("close_wshift"));
    bool flag = false;
    again.templatePropertyValue("open_wshift", flag);
    QVERIFY(flag);
    flag = false;
    again.templatePropertyValue("first_mark", flag);
    again.templatePropertyValue("time_exec", flag);
    QVERIFY(!flag);
    std::string value;
    again.templatePropertyValue("open_wshift", value);
    again.templatePropertyValue("second_mark", value);
    QCOMPARE(value, std::string());
    again.templatePropertyValue("first_mark", value);
    QCOMPARE(value, std::string(":/markers/worker_red.png"));
    again.templatePropertyValue("command", value);
    QCOMPARE(value, std::string("a;b=\"c\" <d> 50 %"));

    again.setTemplateProperty("open_wshift", false);
    again.removeTemplateProperty("first_mark");
    again.removeTemplateProperty("first_mark");
    again.removeTemplateProperty("absent");
    again.removeTemplateProperty("command");
    QCOMPARE(again.readyHtml(true), text);
}

void HtmlParser_test::anEmptyTextPropertyExists()
{
    HtmlParser parser("x");
    parser.setTemplateProperty("first_mark", std::string());
    const HtmlParser again(parser.readyHtml(true));
    QVERIFY(again.isExistTemplateProperty("first_mark"));
    std::string value;
    again.templatePropertyValue("first_mark", value);
    QCOMPARE(value, std::string());
}

void HtmlParser_test::aLiteralIsATextPropertyAndNoFlag()
{
    HtmlParser parser;
    parser.setTemplateProperty("first_mark", ":/x.png");
    std::string value;
    parser.templatePropertyValue("first_mark", value);
    QCOMPARE(value, std::string(":/x.png"));
}

void HtmlParser_test::aViewDoesNotShowTemplateProperties()
{
    HtmlParser parser("<b>one</b> two");
    parser.setTemplateProperty("time_exec", true);
    parser.setTemplateProperty("command", "shown-nowhere");
    const QString html = QString::fromStdString(parser.readyHtml(true));
    QVERIFY(html.contains(QLatin1String("shown-nowhere")));
    QVERIFY(Qt::mightBeRichText(html));
    QTextDocument view;
    view.setHtml(html);
    QCOMPARE(view.toPlainText(), QStringLiteral("one two"));
}

void HtmlParser_test::propertiesSurviveTheChangeOfAnEnclosingText()
{
    HtmlParser parser("<a href=\"parameter:name=text\">x<meta name=\"template\" content=\"time_exec\">y</a>");
    QVERIFY(parser.isExistTemplateProperty("time_exec"));
    parser.setDisplayText(0, "z");
    const HtmlParser again(parser.readyHtml(true));
    QVERIFY(again.isExistTemplateProperty("time_exec"));
    QCOMPARE(again.displayText(0), std::string("z"));

    HtmlParser first("<a href=\"parameter:name=text\"><meta name=\"template\" content=\"time_exec\">y</a>");
    first.setDisplayText(0, "z");
    QCOMPARE(
        first.readyHtml(true),
        std::string("<meta name=\"template\" content=\"time_exec\"><a href=\"parameter:name=text\">z</a>"));
}

void HtmlParser_test::propertiesOfTwoTextsAreMergedAndTheFirstCounts()
{
    HtmlParser parser("<meta name=\"template\" content=\"time_exec;command=a\">x<meta name=\"template\" "
                      "content=\"command=b;open_wshift\">y");
    std::string value;
    parser.templatePropertyValue("command", value);
    QCOMPARE(value, std::string("a"));
    QVERIFY(parser.isExistTemplateProperty("open_wshift"));
    parser.removeTemplateProperty("command");
    QCOMPARE(parser.readyHtml(true),
             std::string("<meta name=\"template\" content=\"time_exec;open_wshift\">xy"));
}

void HtmlParser_test::readyHtmlLeavesTemplatePropertiesAwayWhenAsked()
{
    HtmlParser parser("x");
    parser.setTemplateProperty("time_exec", true);
    QCOMPARE(parser.readyHtml(false), std::string("x"));
    QCOMPARE(HtmlParser(parser.readyHtml(true)).readyHtml(false), std::string("x"));
    // The texts on both sides of them do not join to a tag.
    const HtmlParser between(
        "<a <meta name=\"template\" content=\"time_exec\">href=\"parameter:name=text\">x");
    QCOMPARE(HtmlParser(between.readyHtml(false)).countParameters(), 0u);
}

void HtmlParser_test::aListIsPackedAndUnpacked_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::newRow("empty") << QStringList();
    QTest::newRow("one empty value") << QStringList{QString()};
    QTest::newRow("empty values") << QStringList{QString(), QStringLiteral("a"), QString(), QString()};
    QTest::newRow("separators") << QStringList{QStringLiteral("a|b"), QStringLiteral("c;d=e"),
                                               QStringLiteral("%7C")};
    QTest::newRow("words") << QStringList{QStringLiteral("да"),
                                          QStringLiteral("нет, оставлена на холостом ходу")};
}

void HtmlParser_test::aListIsPackedAndUnpacked()
{
    QFETCH(QStringList, values);
    std::vector<std::string> list;
    for (const QString& value : values)
        list.push_back(value.toStdString());
    const std::string packed = HtmlParser::createListProperty(list);
    QCOMPARE(HtmlParser::listValues(packed), list);
    const HtmlParser parser(HtmlParser::createParameter({{"name", "list"}, {"list", packed}}, "x"));
    QCOMPARE(HtmlParser::listValues(parser.propertyValue(0, "list")), list);
}

void HtmlParser_test::invalidCharactersAreSeparatedBySingleBlanks()
{
    const QString chars = QString::fromStdString(HtmlParser::invalidChars(true));
    const QStringList pieces = chars.split(QLatin1Char(' '));
    QVERIFY(!pieces.isEmpty());
    for (const QString& piece : pieces)
        QCOMPARE(piece.size(), 1); // an empty piece would be found in every text
    QCOMPARE(pieces.join(QString()), QString::fromStdString(HtmlParser::invalidChars(false)));
}

void HtmlParser_test::parametersSurviveTheConversionOfOldTemplates()
{
    const std::string label = "a] [b\r\nc>, d>. ] [ \"e\" </a><a";
    const Properties properties = {
        {"name", "list"}, {"list", HtmlParser::createListProperty({"[x]", ">,", "a ]"})}, {"locname", label}};
    const std::string first = HtmlParser::createParameter(properties, ",x");
    const std::string second = HtmlParser::createParameter(properties, label);
    const HtmlParser parser(normalized(first + second + ", [struck] " + first));
    QCOMPARE(parser.countParameters(), 3u);
    for (unsigned i = 0; i < 3; ++i)
        QCOMPARE(parser.properties(i), properties);
    QCOMPARE(parser.displayText(0), std::string(",x"));
    QCOMPARE(parser.displayText(1), std::string("a] [b\nc>, d>. ] [ \"e\" </a><a"));
    QCOMPARE(parser.displayText(2), std::string(",x"));
}

void HtmlParser_test::recodingTheTextRecodesItsValues()
{
    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    const QString label = QStringLiteral("Приём №1 «Ёж»");
    HtmlParser parser(HtmlParser::createParameter({{"name", "text"}, {"locname", label.toStdString()}}, "x"));
    parser.setTemplateProperty("command", label.toStdString());
    const QByteArray stored = codec->fromUnicode(QString::fromStdString(parser.readyHtml(true)));
    const HtmlParser again(stored.toStdString());
    QCOMPARE(codec->toUnicode(again.propertyValue(0, "locname").c_str()), label);
    std::string command;
    again.templatePropertyValue("command", command);
    QCOMPARE(codec->toUnicode(command.c_str()), label);
}

void HtmlParser_test::brokenMarkupIsReadAsFarAsItGoes_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("shown");
    const QByteArray tag = "<a href=\"parameter:name=text\">";
    QTest::newRow("no closing tag") << tag + "x y" << QByteArray("x y");
    QTest::newRow("next anchor before the closing tag") << tag + "x" + tag + "y</a>" << QByteArray("x|y");
    QTest::newRow("nothing behind the tag") << tag << QByteArray("");
    QTest::newRow("tag cut off") << QByteArray("<a href=\"parameter:name=text\"") << QByteArray();
    QTest::newRow("stray bracket in front") << "5 < 6 <b " + tag + "x</a>" << QByteArray("x");
    QTest::newRow("brackets inside") << tag + "1 < 2 > 1</a>" << QByteArray("1 < 2 > 1");
    QTest::newRow("comment not closed") << tag + "x</a><!-- " + tag + "y</a>" << QByteArray("x|y");
    QTest::newRow("parameter in a comment") << tag + "x</a><!-- " + tag + "y</a> -->" << QByteArray("x");
    QTest::newRow("quote not closed") << QByteArray("<a href=\"parameter:name=text>x</a>") << QByteArray("x");
    QTest::newRow("other quotes and case")
        << QByteArray("<A class=c HREF = 'parameter:name=text' >x</A>") << QByteArray("x");
    QTest::newRow("half an entity") << tag + "a&b &lt &#; &#x;&#99999999;</a>"
                                    << QByteArray("a&b &lt &#; &#x;&#99999999;");
}

void HtmlParser_test::brokenMarkupIsReadAsFarAsItGoes()
{
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, shown);
    HtmlParser parser(html.toStdString());
    std::string all;
    for (unsigned i = 0; i < parser.countParameters(); ++i) {
        QCOMPARE(parser.propertyNameValue(i), std::string("text"));
        all += (i ? "|" : "") + parser.displayText(i);
    }
    QCOMPARE(all, shown.toStdString());
    QCOMPARE(parser.readyHtml(true), html.toStdString());

    const unsigned count = parser.countParameters();
    for (unsigned i = 0; i < count; ++i)
        parser.setDisplayText(i, "new " + std::to_string(i));
    const HtmlParser again(parser.readyHtml(true));
    QCOMPARE(again.countParameters(), count);
    for (unsigned i = 0; i < count; ++i)
        QCOMPARE(again.displayText(i), "new " + std::to_string(i));
}

void HtmlParser_test::allCharactersMakeTheRoundTrip_data()
{
    QTest::addColumn<QByteArray>("codePage");
    QTest::newRow("Windows-1251") << QByteArray("Windows-1251");
    QTest::newRow("UTF-8") << QByteArray("UTF-8");
}

void HtmlParser_test::allCharactersMakeTheRoundTrip()
{
    QFETCH(QByteArray, codePage);
    QTextCodec* codec = QTextCodec::codecForName(codePage);
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        std::mt19937 random(seed);
        const auto text = [&](int longest) {
            const QByteArray bytes = codec->fromUnicode(randomText(random, codec, longest));
            return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        };
        HtmlParser parser;
        std::string html;
        std::vector<Properties> properties;
        std::vector<std::string> shown;
        for (unsigned i = random() % 4; i > 0; --i) {
            Properties list = {{"name", "text"}};
            for (unsigned n = random() % 4; n > 0; --n)
                list.emplace_back("p" + std::to_string(n), text(20));
            properties.push_back(list);
            shown.push_back(text(30));
            html += HtmlParser::escaped(text(20)) + HtmlParser::createParameter(list, shown.back());
        }
        parser.setHtml(html);
        const std::string command = text(30);
        parser.setTemplateProperty("command", command);
        const unsigned count = parser.countParameters();
        QCOMPARE(count, static_cast<unsigned>(shown.size()));
        if (count > 0) {
            const unsigned changed = random() % count;
            shown[changed] = text(30);
            parser.setDisplayText(changed, shown[changed]);
            const std::string data = text(10);
            parser.setPropertyData(changed, data);
            if (!data.empty())
                properties[changed].emplace_back("data", data);
        }
        const std::string ready = parser.readyHtml(true);
        const HtmlParser again(ready);
        QCOMPARE(again.countParameters(), count);
        for (unsigned i = 0; i < count; ++i) {
            QVERIFY2(again.properties(i) == properties[i], ready.c_str());
            QCOMPARE(again.displayText(i), shown[i]);
        }
        std::string value;
        again.templatePropertyValue("command", value);
        QCOMPARE(value, command);
        QCOMPARE(again.readyHtml(true), ready);
    }
}

void HtmlParser_test::mutatedTextsAreHarmless()
{
    HtmlParser source("a <b>b</b> " + parameter("text", "x <&> y") + " [c] " + parameter("list", "z") +
                      "<!-- d -->");
    source.setTemplateProperty("time_exec", true);
    source.setTemplateProperty("command", "e;f=g");
    const std::string original = source.readyHtml(true);
    static const std::string pieces[] = {"<", ">",   "\"",   "'",    "&",   ";",      "=",
                                         "%", "<a ", "</a>", "<!--", "-->", "<meta ", "&#"};
    for (unsigned seed = 1; seed <= 20000; ++seed) {
        std::mt19937 random(seed);
        std::string text = original;
        for (unsigned n = 1 + random() % 6; n > 0 && !text.empty(); --n) {
            const std::size_t at = random() % text.size();
            switch (random() % 4) {
            case 0:
                text.erase(at, 1 + random() % 8);
                break;
            case 1:
                text.insert(at, pieces[random() % (sizeof(pieces) / sizeof(pieces[0]))]);
                break;
            case 2:
                text[at] = static_cast<char>(random());
                break;
            default:
                text.resize(at);
            }
        }
        HtmlParser parser(text);
        QCOMPARE(parser.readyHtml(true), text);
        const unsigned count = parser.countParameters();
        for (unsigned i = 0; i < count; ++i) {
            parser.setDisplayText(i, "s" + std::to_string(i));
            parser.setPropertyData(i, "d" + std::to_string(i));
        }
        parser.setTemplateProperty("new", std::string("value"));
        const HtmlParser again(parser.readyHtml(true));
        QCOMPARE(again.countParameters(), count);
        for (unsigned i = 0; i < count; ++i) {
            QCOMPARE(again.displayText(i), "s" + std::to_string(i));
            QCOMPARE(again.propertyData(i), "d" + std::to_string(i));
        }
        std::string value;
        again.templatePropertyValue("new", value);
        QCOMPARE(value, std::string("value"));
    }
}

void HtmlParser_test::propertiesAreOfOneKind()
{
    HtmlParser parser("x");
    parser.setTemplateProperty("a", true);
    std::string text = "kept";
    parser.templatePropertyValue("a", text);
    QCOMPARE(text, std::string("kept")); // a flag is not a text
    parser.setTemplateProperty("b", std::string("x"));
    parser.setTemplateProperty("b", true);
    bool isSet = false;
    parser.templatePropertyValue("b", isSet);
    QVERIFY(isSet);
}

void HtmlParser_test::removingWhatIsAbsentChangesNothing()
{
    const std::string html = "x<META name=\"template\" content=\"a\">y<meta name=\"author\" content=\"b\">";
    HtmlParser parser(html);
    QVERIFY(parser.isExistTemplateProperty("a"));
    QVERIFY(!parser.isExistTemplateProperty("b"));
    parser.removeTemplateProperty("none");
    QCOMPARE(parser.readyHtml(true), html);
}

void HtmlParser_test::oddMarkupIsReadAsBrowsersDo()
{
    HtmlParser open("<a href=\"parameter:name=te&#120;t\">x");
    QCOMPARE(open.propertyNameValue(0), std::string("text"));
    open.setDisplayText(0, "y");
    QCOMPARE(open.readyHtml(true), std::string("<a href=\"parameter:name=te&#120;t\">y</a>"));
    QCOMPARE(HtmlParser::dataFromProperties("pxrameter:data=1"), std::string());
}

void HtmlParser_test::timeIsLinearInTheLength_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("brackets") << QByteArray("<");
    QTest::newRow("tags not closed") << QByteArray("<a ");
    QTest::newRow("comments not closed") << QByteArray("<!--");
    QTest::newRow("quotes") << QByteArray("<a href=\"");
    QTest::newRow("entities") << QByteArray("&#");
    QTest::newRow("parameters not closed") << QByteArray("<a href=\"parameter:name=text\">");
    QTest::newRow("nested elements") << QByteArray("<b>");
    QTest::newRow("template properties") << QByteArray("<meta name=\"template\" content=\"a\">");
}

void HtmlParser_test::timeIsLinearInTheLength()
{
    QFETCH(QByteArray, piece);
    const auto cost = [&piece](int length) {
        const std::string text = piece.repeated(length / piece.size()).toStdString();
        std::clock_t best = std::numeric_limits<std::clock_t>::max();
        for (int run = 0; run < 3; ++run) {
            // Processor time of this process: the load of the machine does not count.
            const std::clock_t begin = std::clock();
            HtmlParser parser(text);
            parser.setDisplayText(0, "x");
            parser.setTemplateProperty("n", true);
            parser.readyHtml(true);
            best = std::min(best, std::clock() - begin);
        }
        return best;
    };
    const std::clock_t part = std::max<std::clock_t>(cost(200000), CLOCKS_PER_SEC / 500);
    // Sixteen times the length: a quadratic step would cost 256 times as much.
    QVERIFY2(cost(3200000) < part * 100, "the time grows faster than the text");
}

QTEST_MAIN(HtmlParser_test)
#include "HtmlParser_test.moc"
