#include "DemoTemplates.h"
#include "HtmlParser.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextCodec>

namespace
{
QString shownText(const std::string& html)
{
    QString text = QString::fromStdString(html);
    return text.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
}

QSet<QString> kinds()
{
    QSet<QString> found;
    for (const DemoTemplate& record : DemoTemplates::builtIn()) {
        const HtmlParser parser(record.html);
        for (unsigned i = 0; i < parser.countParameters(); ++i)
            found.insert(QString::fromStdString(parser.propertyNameValue(i)));
    }
    return found;
}

const char wellFormed[] =
    "== Name\nlevel: Общие\ncategory: One / Two\nflags: time_exec, open_wshift\n"
    "first_mark: Авария\nsecond_mark: Снято заземление\ncommand: Снято\n"
    "text: Begin {text?:Label} and\n  {list:Choice;a|b} *bold* ~gone~.\n~ Label: x | #2..3\n";
} // namespace

class DemoTemplates_test : public QObject
{
    Q_OBJECT

private slots:
    void readsOneTemplate()
    {
        QVector<DemoTemplate> templates;
        QString error;
        QVERIFY2(DemoTemplates::parse(QString::fromUtf8(wellFormed), &templates, &error), qPrintable(error));
        QCOMPARE(templates.size(), 1);
        const DemoTemplate& record = templates.first();
        QCOMPARE(record.name, QStringLiteral("Name"));
        QCOMPARE(record.level, DemoTemplate::Common);
        QCOMPARE(record.categories, (QStringList{QStringLiteral("One"), QStringLiteral("Two")}));
        QCOMPARE(record.samples.value(QStringLiteral("Label")),
                 (QStringList{QStringLiteral("x"), QStringLiteral("#2..3")}));

        const HtmlParser parser(record.html);
        QCOMPARE(parser.countParameters(), 2U);
        QCOMPARE(parser.properties(0).front().first, std::string("name"));
        QCOMPARE(parser.propertyNameValue(0), std::string("text"));
        QCOMPARE(parser.propertyValue(0, "locname"), std::string("Label"));
        QVERIFY(parser.isExistProperty(0, "optional"));
        QVERIFY(!parser.isExistProperty(1, "optional"));
        QCOMPARE(HtmlParser::listValues(parser.propertyValue(1, "list")),
                 (std::vector<std::string>{"a", "b"}));
        QVERIFY(parser.isExistTemplateProperty("time_exec"));
        QVERIFY(parser.isExistTemplateProperty("open_wshift"));
        QVERIFY(!parser.isExistTemplateProperty("close_wshift"));
        std::string value;
        parser.templatePropertyValue("first_mark", value);
        QCOMPARE(value, std::string(":/markers/exclamation_mark.png"));
        parser.templatePropertyValue("second_mark", value);
        QCOMPARE(value, std::string(":/markers/thunder_blue.png"));
        parser.templatePropertyValue("command", value);
        QCOMPARE(value, std::string("Снято"));
        QVERIFY(record.html.find("<br") != std::string::npos);
        QVERIFY(record.html.find("font-weight:600;\">bold</span>") != std::string::npos);
        QVERIFY(record.html.find("text-decoration: line-through;\">gone</span>") != std::string::npos);
    }

    void readsTheWordsAroundAValue()
    {
        const QString text =
            QStringLiteral("Begin.{text?:Label; № ….} {list?:Choice;a|b; (…)} {datetime:T;hh:mm}");
        QString error;
        const std::string html = DemoTemplates::html(text, &error);
        QCOMPARE(error, QString());
        const HtmlParser parser(html);
        QCOMPARE(parser.propertyValue(0, "before"), std::string(" № "));
        QCOMPARE(parser.propertyValue(0, "after"), std::string("."));
        QCOMPARE(parser.propertyValue(1, "before"), std::string(" ("));
        QCOMPARE(parser.propertyValue(1, "after"), std::string(")"));
        QCOMPARE(HtmlParser::listValues(parser.propertyValue(1, "list")),
                 (std::vector<std::string>{"a", "b"}));
        QCOMPARE(parser.propertyValue(2, "format"), std::string("hh:mm"));
        QVERIFY(!parser.isExistProperty(2, "before"));
        QCOMPARE(DemoTemplates::notation(html), text);
    }

    void noBuiltInTextLeavesWordsWithoutTheirValue()
    {
        for (const DemoTemplate& demo : DemoTemplates::builtIn()) {
            static const QRegularExpression optional(QStringLiteral("\\{\\w+\\?:[^}]*\\}"));
            static const QRegularExpression others(QStringLiteral("\\{[^}]*\\}"));
            static const QRegularExpression left(
                QStringLiteral("№ *[.,;]|: *[.,;]|: *$|[.,] *[.,]|  |до *м/с"));
            const QString notation = DemoTemplates::notation(HtmlParser(demo.html).readyHtml(false));
            QVERIFY2(!notation.isEmpty(), qPrintable(demo.name));
            const QString text =
                QString(notation).remove(optional).replace(others, QStringLiteral("x")).trimmed();
            QVERIFY2(!left.match(text).hasMatch(), qPrintable(text));
        }
    }

    void saysWhatIsWrong_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char* name, const char* from, const char* to, const char* complaint) {
            QTest::newRow(name) << QString::fromUtf8(from) << QString::fromUtf8(to)
                                << QString::fromUtf8(complaint);
        };
        row("word", "flags:", "flag:", "line 4: unknown word \"flag\"");
        row("no value", "flags: ", "flags ", "no value");
        row("flag", "time_exec", "time", "unknown flag \"time\"");
        row("level", "Общие", "Общее", "unknown level \"Общее\"");
        row("level without owner", "Общие", "Тип", "unknown level \"Тип\"");
        row("marker", "Авария", "Беда", "unknown marker \"Беда\"");
        row("command alone", "second_mark: Снято заземление\n", "", "has a command without second marker");
        row("no level", "level: Общие\n", "", "lacks level, category or text");
        row("no category", "category: One / Two\n", "", "lacks level, category or text");
        row("no label", "{text?:Label}", "{text?:}", "a parameter without end or label");
        row("no end", "{list:Choice;a|b}", "{list:Choice;a|b", "a parameter without end or label");
        row("no samples", "~ Label: x | #2..3\n", "", "has no samples for \"Label\"");
        row("samples for nothing", "~ Label:", "~ Lapel:", "\"Lapel\"");
        row("nothing open", "== Name\n", "", "nothing is open");
    }
    void saysWhatIsWrong()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, complaint);
        const QString text = QString::fromUtf8(wellFormed).replace(from, to);
        QVERIFY(text != QString::fromUtf8(wellFormed));
        QVector<DemoTemplate> templates;
        QString error;
        QVERIFY(!DemoTemplates::parse(text, &templates, &error));
        QVERIFY2(error.contains(complaint), qPrintable(error));
    }

    void builtInOnesAreManyAndNamedOnce()
    {
        const QVector<DemoTemplate> templates = DemoTemplates::builtIn();
        QVERIFY(templates.size() >= 40);
        QSet<QString> names;
        for (const DemoTemplate& record : templates)
            names.insert(record.name);
        QCOMPARE(names.size(), templates.size());
    }

    void everyLevelFlagAndMarkerOccurs()
    {
        QSet<int> levels;
        QSet<QString> flags;
        QSet<QString> markers;
        bool both = false;
        for (const DemoTemplate& record : DemoTemplates::builtIn()) {
            levels.insert(record.level);
            for (const QString& flag : record.flags)
                flags.insert(flag);
            markers.insert(record.firstMark);
            markers.insert(record.secondMark);
            both = both || record.flags.size() == 2;
        }
        QCOMPARE(levels.size(), 3);
        QCOMPARE(flags.size(), 3);
        QVERIFY(both);
        markers.remove(QString());
        QCOMPARE(markers.size(), 7);
    }

    void everyKindOfParameterOccurs_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind :
             {"datetime", "text", "list", "signalName", "signalNum", "baseVoltage", "organization",
              "department", "employee_fio", "employee_fio_role", "employee_fio_group", "employee_fio_dep_org",
              "equipmentName", "equipmentPath", "interval", "shift_workers", "shift_workers_groups",
              "substation", "line"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void everyKindOfParameterOccurs()
    {
        QFETCH(QString, kind);
        QVERIFY(kinds().contains(kind));
        QCOMPARE(kinds().size(), 19);
    }

    void parametersAreComplete()
    {
        for (const DemoTemplate& record : DemoTemplates::builtIn()) {
            const HtmlParser parser(record.html);
            QVERIFY2(parser.countParameters() > 0, qPrintable(record.name));
            for (unsigned i = 0; i < parser.countParameters(); ++i) {
                const std::string kind = parser.propertyNameValue(i);
                QCOMPARE(parser.displayText(i), parser.propertyValue(i, "locname"));
                QCOMPARE(parser.isExistProperty(i, "format"), kind == "datetime");
                QVERIFY(kind != "datetime" || !parser.propertyValue(i, "format").empty());
                QCOMPARE(parser.isExistProperty(i, "list"), kind == "list");
                QVERIFY(kind != "list" ||
                        HtmlParser::listValues(parser.propertyValue(i, "list")).size() >= 2);
            }
        }
    }

    void textsFitTheCodePageAndTheForm()
    {
        const QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
        for (const DemoTemplate& record : DemoTemplates::builtIn()) {
            QVERIFY2(codec->canEncode(QString::fromStdString(record.html)), qPrintable(record.name));
            QVERIFY2(codec->canEncode(record.name) && record.name.size() <= 100, qPrintable(record.name));
            QVERIFY2(!shownText(record.html).contains(QRegularExpression(QStringLiteral("[\\[\\]<>+]"))),
                     qPrintable(record.name));
            QVERIFY2(!record.command.contains(QRegularExpression(QStringLiteral("[\"'«»]"))),
                     qPrintable(record.name));
        }
    }
};

QTEST_GUILESS_MAIN(DemoTemplates_test)
#include "DemoTemplates_test.moc"
