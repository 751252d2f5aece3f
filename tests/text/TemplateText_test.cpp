#include "HtmlParser.h"
#include "TemplateText.h"

#include <ctime>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <random>

namespace
{
QString parameter(const char* name, const QString& shown)
{
    return QString::fromStdString(HtmlParser::createParameter({{"name", name}}, shown.toStdString()));
}

QTextCharFormat formatOf(const QTextDocument& document, const QString& text)
{
    QTextCursor cursor = document.find(text);
    return cursor.charFormat();
}
} // namespace

class TemplateText_test : public QObject
{
    Q_OBJECT

private slots:
    void plainTextIsWhatAReaderSees_data();
    void plainTextIsWhatAReaderSees();
    void returnsTheLooksOfPassages_data();
    void returnsTheLooksOfPassages();
    void everyParameterHasARunOfItsOwn();
    void parametersAreNumberedAsTheParserDoes();
    void aDocumentIsFilledAsPainted();
    void fillingAgainReplacesTheText();
    void tenThousandRecordsAreReadInATrice();
    void brokenTextsAreHarmless();
};

void TemplateText_test::plainTextIsWhatAReaderSees_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("plain");
    const auto row = [](const char* title, const char* html, const char* plain) {
        QTest::newRow(title) << QString::fromUtf8(html) << QString::fromUtf8(plain);
    };
    row("empty", "", "");
    row("words", "Смену принял", "Смену принял");
    row("blanks and line ends", "  a \r\n\t b  ", "a b");
    row("no-break blanks", "ПС&nbsp;110\xc2\xa0кВ", "ПС 110 кВ");
    row("entities", "&lt;a&gt; &amp; &quot;b&quot; &apos; &laquo;в&raquo; &#8470;&#x41; &#128512;",
        "<a> & \"b\" ' «в» №A \xf0\x9f\x98\x80");
    row("unknown entities", "a&b; &unknown; &#; &#xD800; &", "a&b; &unknown; &#; &#xD800; &");
    row("stray brackets", "5 < 6 > 4", "5 < 6 > 4");
    row("inline elements", "a<b>b</b> <i> c</i><span style=\"x\">d</span>", "ab cd");
    row("parameters", "На <a href=\"parameter:name=substation\">ПС 110</a>, конец", "На ПС 110, конец");
    row("template properties", "<meta name=\"template\" content=\"command=x\">текст", "текст");
    row("line breaks", "a<br>b<br/><br />c", "a\nb\n\nc");
    row("trailing breaks", "a<br/><br/>", "a");
    row("leading break", "<br/>a", "\na");
    row("paragraphs", "<p>a</p>\n<p>b</p><div>c<div>d</div></div>", "a\nb\nc\nd");
    row("cells", "<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>", "a b\nc");
    row("whole document",
        "<!DOCTYPE html><html><head><title>t</title><style>p {}</style></head><body>a</body></html>", "a");
    row("comment", "a<!-- b -->c", "ac");
    row("line break in a parameter", "<a href=\"parameter:name=text\">x<br/>y</a> z", "x\ny z");
}

void TemplateText_test::plainTextIsWhatAReaderSees()
{
    QFETCH(QString, html);
    QTEST(TemplateText::plain(html), "plain");
    QString joined;
    for (const TemplateText::Run& run : TemplateText::runs(html))
        joined += run.text;
    QCOMPARE(joined.replace(QChar::Nbsp, QLatin1Char(' ')), TemplateText::plain(html));
}

void TemplateText_test::returnsTheLooksOfPassages_data()
{
    using namespace TemplateText;
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("looks");
    const auto row = [](const char* html, int looks) {
        QTest::newRow(html) << QString::fromLatin1(html) << looks;
    };
    row("X", 0);
    row("<b>X</b>", Bold);
    row("<STRONG>X</STRONG>", Bold);
    row("<i>a</i>X", 0);
    row("<b><em><u>X</u></em></b>", Bold | Italic | Underlined);
    row("<s>X</s>", StruckOut);
    row("<sup>X</sup>", Raised);
    row("<sub>X</sub>", Lowered);
    row("<span style=\" text-decoration: line-through;\">X</span>", StruckOut);
    row("<span style=\"font-weight:600; font-style:italic; text-decoration: underline\">X</span>",
        Bold | Italic | Underlined);
    row("<span style=\"font-weight:400\">X</span>", 0);
    row("<b>a<i>b</b>X</i>", 0);
    row("</i></b>X", 0);
    row("<a href=\"parameter:name=text\"><b>a</a>X", 0);
    row("<b><a href=\"parameter:name=text\">a</b></a>X</b>", Bold);
}

void TemplateText_test::returnsTheLooksOfPassages()
{
    QFETCH(QString, html);
    QFETCH(int, looks);
    for (const TemplateText::Run& run : TemplateText::runs(html)) {
        if (run.text.contains(QLatin1Char('X')))
            QCOMPARE(static_cast<int>(run.looks), looks);
    }
    QVERIFY(TemplateText::plain(html).contains(QLatin1Char('X')));
}

void TemplateText_test::everyParameterHasARunOfItsOwn()
{
    const QString html = QStringLiteral("a ") + parameter("text", QString()) + QStringLiteral(" <br/>") +
                         parameter("text", QStringLiteral("x")) + parameter("text", QStringLiteral("y\nz")) +
                         QStringLiteral(" b");
    const QVector<TemplateText::Run> runs = TemplateText::runs(html);
    QStringList reported;
    for (const TemplateText::Run& run : runs)
        reported << QString::number(run.parameter) + QLatin1Char(':') + run.text;
    const QStringList expected{QStringLiteral("-1:a "), QStringLiteral("0:"),     QStringLiteral("-1:\n"),
                               QStringLiteral("1:x"),   QStringLiteral("2:y\nz"), QStringLiteral("-1: b")};
    QCOMPARE(reported, expected);
}

void TemplateText_test::parametersAreNumberedAsTheParserDoes()
{
    const std::string html =
        "<a href=\"http://x\">l</a><a href=\"parameter:name=text\">a<a href=\"parameter:name="
        "text\">b</a><!-- <a href=\"parameter:name=text\">c</a> -->"
        "<A HREF='parameter:name=line'>d</A>";
    HtmlParser parser(html);
    for (unsigned i = 0; i < parser.countParameters(); ++i)
        parser.setDisplayText(i, "p" + std::to_string(i));
    QCOMPARE(parser.countParameters(), 3u);
    for (const TemplateText::Run& run : TemplateText::runs(QString::fromStdString(parser.readyHtml(true)))) {
        if (run.parameter >= 0)
            QCOMPARE(run.text, QStringLiteral("p%1").arg(run.parameter));
    }
}

void TemplateText_test::aDocumentIsFilledAsPainted()
{
    const QString html = QStringLiteral("<b>Bold</b> <s>struck</s> 10<sup>2</sup><br/>") +
                         parameter("text", QStringLiteral("value")) + QStringLiteral(" end");
    QTextCharFormat look;
    look.setFontItalic(true);
    QTextDocument document;
    document.setDocumentMargin(3);
    TemplateText::fill(&document, html, look);
    QCOMPARE(document.toPlainText(), QStringLiteral("Bold struck 102\nvalue end"));
    QCOMPARE(document.documentMargin(), 3.0);
    QCOMPARE(formatOf(document, QStringLiteral("Bold")).fontWeight(), int(QFont::Bold));
    QVERIFY(formatOf(document, QStringLiteral("struck")).fontStrikeOut());
    QCOMPARE(formatOf(document, QStringLiteral("102")).verticalAlignment(),
             QTextCharFormat::AlignSuperScript);
    QVERIFY(formatOf(document, QStringLiteral("value")).fontItalic());
    QVERIFY(!formatOf(document, QStringLiteral("end")).fontItalic());
    QVERIFY(!document.isUndoAvailable());
}

void TemplateText_test::fillingAgainReplacesTheText()
{
    QTextDocument document;
    TemplateText::fill(&document, QStringLiteral("<b>one</b>"));
    TemplateText::fill(&document, QStringLiteral("two"));
    QCOMPARE(document.toPlainText(), QStringLiteral("two"));
    QVERIFY(formatOf(document, QStringLiteral("two")).fontWeight() != int(QFont::Bold));
    TemplateText::fill(&document, QString());
    QVERIFY(document.isEmpty());
}

void TemplateText_test::tenThousandRecordsAreReadInATrice()
{
    QString html = QStringLiteral("<meta name=\"template\" content=\"time_exec\">");
    for (int i = 0; i < 6; ++i)
        html += QStringLiteral("Команда на производство переключений ") +
                parameter("substation", QStringLiteral("ПС 110 кВ Заречная")) +
                QStringLiteral(" &quot;х&quot;. ");
    std::clock_t begin = std::clock(); // of this process: the load of the machine does not count
    qint64 length = 0;
    for (int i = 0; i < 10000; ++i)
        length += TemplateText::plain(html).size();
    const std::clock_t own = std::clock() - begin;
    begin = std::clock();
    // Compared with Qt's rich-text document, on a fiftieth of the records.
    QTextDocument document;
    for (int i = 0; i < 200; ++i) {
        document.setHtml(html);
        length -= document.toPlainText().size();
    }
    QVERIFY(length > 0);
    const std::clock_t peer = (std::clock() - begin) * 50;
    QVERIFY2(own * 4 < peer, qPrintable(QStringLiteral("%1 against %2").arg(own).arg(peer)));
}

void TemplateText_test::brokenTextsAreHarmless()
{
    static const QStringList pieces{
        QStringLiteral("<"),     QStringLiteral(">"),
        QStringLiteral("<b>"),   QStringLiteral("</b>"),
        QStringLiteral("</a>"),  QStringLiteral("&#"),
        QStringLiteral(";"),     QStringLiteral("<p>"),
        QStringLiteral("<br/>"), QStringLiteral(" "),
        QStringLiteral("style"), QStringLiteral("ж"),
        QStringLiteral("<!--"),  QStringLiteral("<a href=\"parameter:name=text\">")};
    for (unsigned seed = 1; seed <= 5000; ++seed) {
        std::mt19937 random(seed);
        QString html;
        for (unsigned n = random() % 40; n > 0; --n)
            html += pieces[static_cast<int>(random() % static_cast<unsigned>(pieces.size()))];
        const QString plain = TemplateText::plain(html);
        QTextDocument document;
        TemplateText::fill(&document, html);
        QCOMPARE(document.toPlainText(), plain);
        const HtmlParser parser(html.toStdString());
        int highest = -1;
        for (const TemplateText::Run& run : TemplateText::runs(html))
            highest = qMax(highest, run.parameter);
        QCOMPARE(static_cast<unsigned>(highest + 1), parser.countParameters());
    }
    QVERIFY(TemplateText::plain(QStringLiteral("<b>").repeated(100000) +
                                QStringLiteral("</i>").repeated(100000)) == QString());
}

QTEST_MAIN(TemplateText_test)
#include "TemplateText_test.moc"
