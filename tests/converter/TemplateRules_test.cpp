#include "TemplateRules.h"

#include "EarlierTables.h"
#include "ParamRules.h"
#include "TemplateText.h"

#include <QSignalSpy>
#include <QTest>
#include <random>

namespace
{
/// Old tables with a common category "C", and the rules applied to them.
struct Run {
    EarlierTables tables;
    ConversionReport report;
    int count = 0;

    Run()
    {
        tables.add(tables.oldCategories, "C", {{"name_", "Общие"}});
        tables.addBase("substation", "Подстанция");
        tables.addParam("podst", {{"param", "Equipment=Substation;"}});
        tables.addParam("prim", {{"nameLoc", "Примечание"}});
        tables.addParam("nomer", {{"nameLoc", "Номер [наряда], \"А\""}});
        tables.addParam("pogoda", {{"nameLoc", "Погода"}, {"param", "Enum=1=ясно,2=<гроза>"}});
        tables.addParam("lost", {{"param", "Equipment=Nothing;"}});
    }
    void add(const char* key, TestStore::Fields fields, const char* category = "C")
    {
        fields.emplace_back("CategoryKey", category);
        fields.emplace_back("name_", key);
        tables.add(tables.oldTemplates, key, fields);
    }
    void go()
    {
        ParamRules params(&tables, &report);
        params.processParameters();
        TemplateRules rules(&tables, &params, &report);
        rules.processPublicTempaltes();
        rules.processOrgTypesTempaltes();
        rules.processDepartmentsTempaltes();
        rules.noteLeftOut();
        count = rules.count();
    }
    QString html(const char* name) { return tables.field(tables.made(QString::fromUtf8(name)), "html"); }
    HtmlParser parsed(const char* name) { return HtmlParser(html(name).toStdString()); }
    QStringList lines()
    {
        QStringList all;
        for (const ConversionReport::Line& line : report.lines())
            all << line.text;
        return all;
    }
};

QString path(const EarlierTables& tables, const MDRData* category)
{
    const QString name = tables.field(category, "nameLoc");
    const QString parent = tables.field(category, "ParentKey");
    const QString level = tables.field(category, "OrgTypeKey") + QLatin1Char('/') +
                          tables.field(category, "DepartmentKey") + QLatin1Char(' ');
    return parent.isEmpty()
               ? level + name
               : path(tables, tables.seek(tables.categories, 0, parent)) + QLatin1Char('>') + name;
}
} // namespace

/// Old categories and templates become those of this journal.
class TemplateRules_test : public QObject
{
    Q_OBJECT

private slots:
    void categoriesKeepTheirLevelAndTree()
    {
        Run run;
        EarlierTables& tables = run.tables;
        tables.add(tables.oldCategories, "C1",
                   {{"name_", "В общих"}, {"ParentKey", "C"}, {"OrgTypeKey", "T"}, {"DepartmentKey", "D"}});
        tables.add(tables.oldCategories, "C2", {{"name_", "Глубже"}, {"ParentKey", "C1"}});
        tables.add(tables.oldCategories, "O", {{"name_", "Сети"}, {"OrgTypeKey", "TYPE"}});
        tables.add(tables.oldCategories, "O1", {{"name_", "В сетях"}, {"ParentKey", "O"}});
        tables.add(tables.oldCategories, "D", {{"name_", "Район"}, {"DepartmentKey", "DEP"}});
        tables.add(tables.oldCategories, "B",
                   {{"name_", "Оба"}, {"OrgTypeKey", "T"}, {"DepartmentKey", "D"}});
        tables.add(tables.oldCategories, "E", {{"name_", "Пустой ключ"}, {"OrgTypeKey", ""}});
        tables.add(tables.oldCategories, "H", {{"name_", "Без родителя"}, {"ParentKey", "GONE"}});
        tables.add(tables.oldCategories, "Z1", {{"name_", "Круг"}, {"ParentKey", "Z2"}});
        tables.add(tables.oldCategories, "Z2", {{"name_", "Круг"}, {"ParentKey", "Z1"}});
        run.go();
        QStringList paths;
        for (int i = 0; i < tables.categories.data.RecCount(); ++i) {
            const MDRData* made = MDARec(tables.categories.data.array, 0, i);
            QCOMPARE(int(made->flags), int(ROW_INSERT));
            QCOMPARE(tables.field(made, "KeyLink").size(), 32);
            if (!tables.field(made, "ParentKey").isEmpty()) // the level is that of the top
                QCOMPARE(tables.field(made, "OrgTypeKey") + tables.field(made, "DepartmentKey"), QString());
            paths << path(tables, made);
        }
        paths.sort();
        QStringList wanted{QStringLiteral("/ Общие"),
                           QStringLiteral("/ Общие>В общих"),
                           QStringLiteral("/ Общие>В общих>Глубже"),
                           QStringLiteral("TYPE/ Сети"),
                           QStringLiteral("TYPE/ Сети>В сетях"),
                           QStringLiteral("/DEP Район"),
                           QStringLiteral("/D Оба")};
        wanted.sort();
        QCOMPARE(paths, wanted);
    }

    void templatesKeepTheirCategories()
    {
        Run run;
        run.tables.add(run.tables.oldCategories, "D", {{"name_", "Район"}, {"DepartmentKey", "DEP"}});
        run.tables.add(run.tables.oldCategories, "D1", {{"name_", "Обходы"}, {"ParentKey", "D"}});
        run.add("a", {{"text_", "x"}});
        run.add("b", {{"text_", "x"}}, "D1");
        run.add("c", {{"text_", "x"}}, "D");
        run.add("nowhere", {{"text_", "x"}}, "GONE");
        run.add("empty", {{"text_", ""}});
        run.add("null", {});
        run.go();
        const auto place = [&](const char* name) {
            const QString category =
                run.tables.field(run.tables.made(QString::fromUtf8(name)), "CategoryKey");
            return path(run.tables, run.tables.seek(run.tables.categories, 0, category));
        };
        QCOMPARE(place("a"), QStringLiteral("/ Общие"));
        QCOMPARE(place("b"), QStringLiteral("/DEP Район>Обходы"));
        QCOMPARE(run.tables.templates.data.RecCount(), 3);
        QCOMPARE(run.count, 3); // of six rows
        QCOMPARE(run.report.templates.size(), 6);
        QStringList order;
        for (int i = 0; i < run.count; ++i)
            order << run.report.templates[i].name;
        QCOMPARE(order, (QStringList{QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("b")}));
    }

    void aNewTemplateIsMarkedForInsertion()
    {
        Run run;
        run.add("Принята смена", {{"text_", "Смена принята"}});
        run.go();
        MDRData* made = run.tables.made(QStringLiteral("Принята смена"));
        QVERIFY(made);
        QCOMPARE(int(made->flags), int(ROW_INSERT));
        QCOMPARE(run.tables.field(made, "KeyLink").size(), 32);
        QCOMPARE(run.tables.field(made, "html"), QStringLiteral("Смена принята"));
        for (int f = 0; f < MDAFldCount(run.tables.templates.data.array); ++f) {
            bool marked = false;
            MDRIsUser(MDRFldByNum(run.tables.templates.data.array, f), made, &marked);
            QVERIFY(marked);
        }
    }

    void plusSignsAreRemovedFirst()
    {
        Run run;
        run.add("t", {{"text_", "a + <pr+im>+"}});
        run.go();
        QCOMPARE(run.parsed("t").countParameters(), 1u);
        QCOMPARE(TemplateText::plain(run.html("t")), QStringLiteral("a Примечание"));
    }

    void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown"); // struck-out runs in ~
        const auto row = [](const char* name, const char* text, const char* shown) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(shown);
        };
        row("words and parameters", "На <podst>: <prim>", "На Подстанция: Примечание");
        row("neighbours are parted", "<podst><prim>", "Подстанция Примечание");
        row("a full stop is parted", "<prim>.", "Примечание .");
        row("a comma is parted", "<prim>, x", "Примечание , x");
        row("a parameter outside of passages", "[x] <prim>", "~x~ Примечание");
        row("a parameter in a passage", "a [<prim>] b [x]", "a ~Примечание~ b ~x~");
        row("in the last passage it is struck out with the words", "a [x <prim>]", "a ~x Примечание~");
        row("lines become blanks", "a\r\nb", "a b");
        row("title with brackets and quotes", "<nomer>; x", "Номер [наряда], \"А\"; x");
        row("in front of an unclosed passage", "<prim> [x", "~Примечание~ ~x~");
    }
    void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        Run run;
        run.add("t", {{"text_", text}});
        run.go();
        QString read;
        bool struck = false;
        for (const TemplateText::Run& piece : TemplateText::runs(run.html("t"))) {
            if (piece.text.isEmpty())
                continue;
            if (piece.looks.testFlag(TemplateText::StruckOut) != struck)
                read += QLatin1Char('~');
            struck = piece.looks.testFlag(TemplateText::StruckOut);
            read += piece.text;
        }
        if (struck)
            read += QLatin1Char('~');
        QCOMPARE(read, shown);
        QCOMPARE(run.lines(), QStringList());
    }

    void aStruckOutParameterHasTheStrikeOutInside()
    {
        Run run;
        run.add("t", {{"text_", "[<prim>] [x]"}});
        run.go();
        const QString mark = QStringLiteral("<span style=\" text-decoration: line-through;\">");
        QVERIFY(
            run.html("t").contains(QStringLiteral("\">") + mark + QStringLiteral("Примечание</span></a>")));
        QVERIFY(run.html("t").startsWith(mark + QStringLiteral("<a ")));
    }

    void readsPropertiesFromTheColumns_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("property"); // "name" or "name=value", empty for none
        QTest::addColumn<QString>("line");
        const auto row = [](const char* name, const char* field, const QVariant& value, const char* property,
                            const char* line = "") {
            QTest::newRow(name) << QByteArray(field) << value << QString::fromUtf8(property)
                                << QString::fromUtf8(line);
        };
        const auto text = [](const char* words) { return QVariant(QString::fromUtf8(words)); };
        row("opens", "canStartShift", true, "open_wshift");
        row("does not open", "canStartShift", false, "");
        row("closes", "canEndShift", true, "close_wshift");
        row("takes time", "isNecessaryFinishTime", true, "time_exec");
        row("takes no time", "isNecessaryFinishTime", false, "");
        row("first marker", "icon", text("Авария"), "first_mark=:/markers/exclamation_mark.png");
        row("first marker with its ending", "icon", text("Авария.png"),
            "first_mark=:/markers/exclamation_mark.png");
        row("unknown first marker", "icon", text("Пожар"), "", "Не найдена иконка 1-го маркера: Пожар");
        row("empty first marker", "icon", text(""), "");
        row("second marker", "completingIcon", text("Снято заземление"),
            "second_mark=:/markers/thunder_blue.png");
        row("unknown second marker", "completingIcon", text("Пожар.png"), "",
            "Не найдена иконка 2-го маркера: Пожар.png");
        row("command", "completingCommand", text("Исполнено, 100% = да"), "command=Исполнено, 100% = да");
        row("command with forbidden characters", "completingCommand", text("a<b>\"c\""), "command=abc",
            "Для шаблона 't' изменена команда второго маркера:\nКоманда содержала недопустимые символы, "
            "которые были удалены.\nКоманда (до изменения): a<b>\"c\".\nКоманда (после изменении): abc.");
        row("command of nothing but those", "completingCommand", text("<>"), "command=",
            "Для шаблона 't' изменена команда второго маркера:\nКоманда содержала недопустимые символы, "
            "которые были удалены.\nКоманда (до изменения): <>.\nКоманда (после изменении): .");
        row("empty command", "completingCommand", text(""), "");
        row("what looks like a placeholder", "completingCommand", text("\"%1 %3"), "command=%1 %3",
            "Для шаблона 't' изменена команда второго маркера:\nКоманда содержала недопустимые символы, "
            "которые были удалены.\nКоманда (до изменения): \"%1 %3.\nКоманда (после изменении): %1 %3.");
    }
    void readsPropertiesFromTheColumns()
    {
        QFETCH(QByteArray, field);
        QFETCH(QVariant, value);
        QFETCH(QString, property);
        QFETCH(QString, line);
        Run run;
        run.add("t", {{"text_", "x"}, {field.constData(), value}});
        run.go();
        const HtmlParser parser = run.parsed("t");
        QStringList found;
        for (const char* name :
             {"open_wshift", "close_wshift", "time_exec", "first_mark", "second_mark", "command"}) {
            if (!parser.isExistTemplateProperty(name))
                continue;
            bool flag = false;
            std::string words;
            parser.templatePropertyValue(name, flag);
            parser.templatePropertyValue(name, words);
            found << QString::fromLatin1(name) +
                         (flag ? QString() : QLatin1Char('=') + QString::fromStdString(words));
        }
        QCOMPARE(found.join(QLatin1Char('|')), property);
        QCOMPARE(run.lines().join(QLatin1Char('|')), line);
        for (const ConversionReport::Line& reported : run.report.lines())
            QCOMPARE(reported.tone, ConversionReport::Warning);
        QCOMPARE(run.report.missing, QStringList());
        QCOMPARE(run.report.failed, QStringList());
        QCOMPARE(TemplateText::plain(run.html("t")), QStringLiteral("x"));
    }

    void reportsAndDropsUnknownParameters()
    {
        Run run;
        run.add("t", {{"text_", "a <nobody> b <lost> c <nobody>"}});
        run.go();
        QCOMPARE(run.html("t"), QStringLiteral("a  b  c "));
        QCOMPARE(run.report.missing, QStringList{QStringLiteral("<nobody>")});
        QCOMPARE(run.report.failed, QStringList{QStringLiteral("<lost>")});
        QCOMPARE(run.count, 1);
    }

    void anOpenBracketEndsTheTextAndPreventsSaving()
    {
        Run run;
        run.add("broken", {{"text_", "В <prim> отключилась <podst, причина"}});
        run.add("whole", {{"text_", "x"}});
        run.go();
        QCOMPARE(run.tables.made(QStringLiteral("broken")), nullptr);
        QVERIFY(run.tables.made(QStringLiteral("whole")));
        QCOMPARE(run.count, 1);
        const QString reported = QStringLiteral("Шаблон 'broken': за знаком \"<\" нет знака \">\"");
        QCOMPARE(run.report.failed, QStringList{reported});
        QCOMPARE(run.lines(), QStringList{reported});
        QCOMPARE(run.report.lines()[0].tone, ConversionReport::Error);
    }

    void reportsProgressAfterEachTemplate()
    {
        Run run;
        run.add("a", {{"text_", "x"}});
        run.add("b", {{"text_", "x"}});
        run.add("c", {{"text_", "x"}});
        QStringList steps;
        connect(&run.report, &ConversionReport::stepped, &run.report, [&](const QString& text) {
            if (!text.isEmpty())
                steps << text;
        });
        run.go();
        QCOMPARE(steps, (QStringList{QStringLiteral("Обработано 1 из 3 шаблонов.\n33%"),
                                     QStringLiteral("Обработано 2 из 3 шаблонов.\n66%"),
                                     QStringLiteral("Обработано 3 из 3 шаблонов.\n100%")}));
    }

    void theReportListsTheResultOfEachTemplate()
    {
        Run run;
        run.add("t", {{"text_", "a + <nobody>"}, {"icon", "Пожар"}, {"completingCommand", "<x>"}});
        run.add("lost", {{"text_", "x"}}, "GONE");
        run.go();
        const QString text = run.report.asText();
        for (const char* line :
             {"podst: ссылка, берётся из основных параметров\n", "prim: текст\n", "pogoda: список значений\n",
              "Шаблоны прежнего журнала: 2\n", "t: преобразован\n", "    удалены знаки \"+\"\n",
              "    параметр <nobody> не существует\n", "    Не найдена иконка 1-го маркера: Пожар\n",
              "    команда второго маркера изменена: <x>\n",
              "lost: не преобразован: нет текста или раздела\n"})
            QVERIFY2(text.contains(QString::fromUtf8(line)), line);
    }

    /// For any old text, the new one has its parameters in their order and shows no markup.
    void anyTextReadsBack_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 20; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }
    void anyTextReadsBack()
    {
        QFETCH(unsigned, seed);
        struct Known {
            const char* written;
            const char* base;
            const char* label;
        };
        static constexpr Known known[] = {{"<podst>", "substation", "Подстанция"},
                                          {"<prim>", "text", "Примечание"},
                                          {"<nomer>", "text", "Номер [наряда], \"А\""},
                                          {"<pogoda>", "list", "Погода"}};
        static constexpr const char* pieces[] = {"[",    "]",         "[ ",    " ]",    " ",   ", ", ".",
                                                 "\r\n", "отключена", "В-110", "5 > 3", "№ 1", "и",  "\"А\"",
                                                 "(да)", "100%",      "][",    "=",     ";",   "&c"};
        std::mt19937 random(seed);
        const auto below = [&random](std::size_t n) { return random() % n; };
        Run run;
        struct Wanted {
            QByteArray name;
            std::vector<Known> params;
            QString words;
        };
        QVector<Wanted> wanted;
        for (int n = 0; n < 50; ++n) {
            Wanted one{"t" + QByteArray::number(n), {}, {}};
            QString text = QStringLiteral("x");
            one.words = text;
            for (std::size_t left = below(25); left > 0; --left) {
                if (below(3) == 0) {
                    one.params.push_back(known[below(std::size(known))]);
                    text += QString::fromUtf8(one.params.back().written);
                    one.words += QString::fromUtf8(one.params.back().label);
                } else {
                    const QString piece = QString::fromUtf8(pieces[below(std::size(pieces))]);
                    text += piece;
                    one.words += QString(piece).remove(QLatin1Char('[')).remove(QLatin1Char(']'));
                }
            }
            run.add(one.name.constData(), {{"text_", text}});
            wanted.append(one);
        }
        run.go();
        const auto withoutBlanks = [](QString text) {
            return text.remove(QLatin1Char(' ')).remove(QLatin1Char('\r')).remove(QLatin1Char('\n'));
        };
        for (const Wanted& one : wanted) {
            const QString html = run.html(one.name.constData());
            const HtmlParser parser(html.toStdString());
            QVERIFY2(parser.countParameters() == one.params.size(), qPrintable(html));
            for (unsigned i = 0; i < parser.countParameters(); ++i) {
                QCOMPARE(parser.propertyNameValue(i), std::string(one.params[i].base));
                QCOMPARE(parser.displayText(i), std::string(one.params[i].label));
            }
            QCOMPARE(parser.readyHtml(true), html.toStdString());
            QCOMPARE(withoutBlanks(TemplateText::plain(html)), withoutBlanks(one.words));
        }
        QCOMPARE(run.count, 50);
        QCOMPARE(run.report.failed + run.report.missing, QStringList());
    }
};

QTEST_MAIN(TemplateRules_test)
#include "TemplateRules_test.moc"
