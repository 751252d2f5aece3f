#include "ParamRules.h"

#include "EarlierTables.h"

#include <QTest>

/// Old parameters become rows of TemplateParams, and references of templates are resolved.
class ParamRules_test : public QObject
{
    Q_OBJECT

private slots:
    void convertsEachKindOfRow_data()
    {
        QTest::addColumn<QVariantList>("old"); // nameLoc, param, TableKey
        QTest::addColumn<QString>("properties");
        QTest::addColumn<QString>("title");
        const auto row = [](const char* name, const QVariantList& old, const char* properties,
                            const char* title) {
            QTest::newRow(name) << old << QString::fromUtf8(properties) << QString::fromUtf8(title);
        };
        const QVariant null;
        row("a text", {QStringLiteral("Номер"), null, null}, "name=text|locname=Номер|param_key=x", "Номер");
        row("a text with an empty description",
            {QStringLiteral("Номер"), QStringLiteral(""), QStringLiteral("")},
            "name=text|locname=Номер|param_key=x", "Номер");
        row("a text without a title", {null, null, null}, "name=text|locname=Список значений|param_key=x",
            "Список значений");
        row("an enumeration", {QStringLiteral("Погода"), QStringLiteral("Enum=\"1=ясно,2=дождь\""), null},
            "name=list|list=ясно;дождь|locname=Погода|param_key=x", "Погода");
        row("an enumeration without a title", {QStringLiteral(""), QStringLiteral("ENUM=1=a"), null},
            "name=list|list=a|locname=Список значений|param_key=x", "Список значений");
        row("an enumeration in small letters",
            {QStringLiteral("Погода"), QStringLiteral("enum=1=a,2=b"), null},
            "name=list|list=;b|locname=Погода|param_key=x", "Погода");
        row("a date", {QStringLiteral("День"), QStringLiteral("DateTimeFormat=ShortestTime"), null},
            "name=datetime|format=hh:mm|locname=День|param_key=x", "День");
        row("a date in small letters", {QStringLiteral("День"), QStringLiteral("datetimeformat=Date"), null},
            "name=datetime|format=dd.MM.yyyy|locname=День|param_key=x", "День");
        row("a date without a title", {null, QStringLiteral("DateTimeFormat=Date"), null},
            "name=datetime|format=dd.MM.yyyy|locname=Дата и время|param_key=x", "Дата и время");
        row("a date wins over an enumeration",
            {QStringLiteral("День"), QStringLiteral("EnumDateTimeFormat=Date"), null},
            "name=datetime|format=dd.MM.yyyy|locname=День|param_key=x", "День");
        row("a date of a table",
            {QStringLiteral("День"), QStringLiteral("DateTimeFormat=Date"), QStringLiteral("Tbl_X")},
            "name=datetime|format=dd.MM.yyyy|locname=День|param_key=x", "День");
        row("equipment gets no row", {QStringLiteral("ПС"), QStringLiteral("Equipment=Substation;"), null},
            "", "");
        row("an organization gets no row", {QStringLiteral("Кто"), QStringLiteral("Organization;ALL"), null},
            "", "");
        row("an unknown description gets no row", {QStringLiteral("Что"), QStringLiteral("Formula=1"), null},
            "", "");
        row("a reference table gets no row", {QStringLiteral("U"), null, QStringLiteral("Tbl_BaseVoltage")},
            "", "");
    }
    void convertsEachKindOfRow()
    {
        QFETCH(QVariantList, old);
        QFETCH(QString, properties);
        QFETCH(QString, title);
        EarlierTables tables;
        tables.addParam("x", {{"nameLoc", old[0]}, {"param", old[1]}, {"TableKey", old[2]}});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        MDRData* made = tables.param("x");
        QCOMPARE(propertiesOf(tables, made), properties);
        QCOMPARE(report.failed, QStringList());
        QCOMPARE(report.lines().size(), 0);
        QCOMPARE(report.params.size(), 1);
        QCOMPARE(report.params[0].name, QStringLiteral("x"));
        if (properties.isEmpty()) {
            QCOMPARE(made, nullptr);
            return;
        }
        QCOMPARE(tables.field(made, "nameLoc"), title);
        QCOMPARE(tables.field(made, "CategoryKey"), QStringLiteral("$AutoConvertFromDelphi"));
        QCOMPARE(QString::fromStdString(tables.parsed(made).displayText(0)), title);
        QCOMPARE(int(made->flags), int(ROW_INSERT));
        for (int f = 0; f < MDAFldCount(tables.params.data.array); ++f) {
            bool marked = false;
            MDRIsUser(MDRFldByNum(tables.params.data.array, f), made, &marked);
            QVERIFY(marked);
        }
    }

    void emptyValuesOfAListAreLosses()
    {
        EarlierTables tables;
        tables.addParam("pogoda", {{"param", "Enum=1=ясно,дождь,3=туман"}});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QCOMPARE(report.params.size(), 1);
        QCOMPARE(report.params[0].losses, QStringList{QStringLiteral("значение 2 пусто")});
        QCOMPARE(report.lines().size(), 0); // no message
    }

    void shiftParametersAreBaseParameters_data()
    {
        QTest::addColumn<bool>("isConverted");
        QTest::newRow("shift_interval") << false;
        QTest::newRow("shift_workers") << false;
        QTest::newRow("shift_workers2") << false;
        QTest::newRow("Shift_interval") << true;
        QTest::newRow("shift_workers3") << true;
    }
    void shiftParametersAreBaseParameters()
    {
        QFETCH(bool, isConverted);
        EarlierTables tables;
        tables.addParam(QTest::currentDataTag(), {});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QCOMPARE(tables.param(QTest::currentDataTag()) != nullptr, isConverted);
    }

    void datesThatCannotBeReadAreErrors_data()
    {
        QTest::addColumn<QString>("param");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("unknown layout")
            << QStringLiteral("DateTimeFormat=Century")
            << QStringList{QStringLiteral("Не удалось обработать параметр даты и времени begin"),
                           QStringLiteral("Поле param: DateTimeFormat=Century"),
                           QStringLiteral("Формат даты и времени: Century"), QStringLiteral("-----")};
        QTest::newRow("two equal signs")
            << QStringLiteral("DateTimeFormat=Date=x")
            << QStringList{QStringLiteral("Не удалось обработать параметр даты и времени begin"),
                           QStringLiteral("Поле param: DateTimeFormat=Date=x"), QStringLiteral("-----")};
        QTest::newRow("no equal sign")
            << QStringLiteral("DateTimeFormat")
            << QStringList{QStringLiteral("Не удалось обработать параметр даты и времени begin"),
                           QStringLiteral("Поле param: DateTimeFormat"), QStringLiteral("-----")};
    }
    void datesThatCannotBeReadAreErrors()
    {
        QFETCH(QString, param);
        QFETCH(QStringList, lines);
        EarlierTables tables;
        tables.addParam("begin", {{"param", param}});
        tables.addParam("other", {});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QStringList reported;
        for (const ConversionReport::Line& line : report.lines()) {
            QCOMPARE(line.tone, ConversionReport::Error);
            reported << line.text;
        }
        QCOMPARE(reported, lines);
        QCOMPARE(report.failed, QStringList{QStringLiteral("begin")});
        QCOMPARE(tables.param("begin"), nullptr);
        QVERIFY(tables.param("other")); // the run goes on
    }

    void anUnreadableDateWithoutANameIsAnErrorToo()
    {
        EarlierTables tables;
        tables.add(tables.oldParams, "P", {{"param", "DateTimeFormat=Century"}});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QCOMPARE(report.lines().size(), 4);
        QCOMPARE(report.lines()[1].text, QStringLiteral("Поле param: DateTimeFormat=Century"));
        QCOMPARE(report.failed, QStringList{QString()}); // which prevents saving the conversion
    }

    void reportsAndSkipsARowWithoutAName_data()
    {
        QTest::addColumn<QVariant>("param");
        QTest::newRow("a text") << QVariant();
        QTest::newRow("an enumeration") << QVariant(QStringLiteral("Enum=1=a"));
        QTest::newRow("a date") << QVariant(QStringLiteral("DateTimeFormat=Date"));
    }
    void reportsAndSkipsARowWithoutAName()
    {
        QFETCH(QVariant, param);
        EarlierTables tables;
        tables.add(tables.oldParams, "P", {{"nameLoc", "Номер"}, {"param", param}});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QCOMPARE(tables.params.data.RecCount(), 0);
        QCOMPARE(report.lines().size(), 1);
        QCOMPARE(report.lines()[0].tone, ConversionReport::Warning);
        QCOMPARE(report.lines()[0].text, QStringLiteral("Параметр без латинского имени пропущен: 'Номер'"));
        QCOMPARE(report.failed, QStringList());
        QCOMPARE(report.missing, QStringList());
    }

    void ignoresAReferenceWithoutAName()
    {
        EarlierTables tables;
        tables.add(tables.oldParams, "P", {{"TableKey", "Tbl_X"}});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QCOMPARE(report.lines().size(), 0);
        QCOMPARE(tables.params.data.RecCount(), 0);
    }

    void createsTheCategoryOnce()
    {
        EarlierTables tables;
        ConversionReport report;
        ParamRules rules(&tables, &report);
        rules.createParamCategory();
        rules.createParamCategory();
        QCOMPARE(tables.paramCategories.data.RecCount(), 1);
        MDRData* made = MDARec(tables.paramCategories.data.array, 0, 0);
        QCOMPARE(int(made->flags), int(ROW_INSERT));
        QCOMPARE(tables.field(made, "KeyLink"), QStringLiteral("$AutoConvertFromDelphi"));
        QCOMPARE(tables.field(made, "nameLoc"), QStringLiteral("Параметры"));
        QVERIFY(Row(made).value("ParentKey").isNull);
    }

    void keepsTheCategoryOfAnEarlierRun()
    {
        EarlierTables tables;
        MDRData* old = tables.add(tables.paramCategories, "$AutoConvertFromDelphi", {{"nameLoc", "Прежние"}});
        ConversionReport report;
        ParamRules(&tables, &report).createParamCategory();
        QCOMPARE(tables.paramCategories.data.RecCount(), 1);
        QCOMPARE(int(old->flags), 0);
        QCOMPARE(tables.field(old, "nameLoc"), QStringLiteral("Прежние"));
    }

    void changesTheRowOfAnEarlierRun()
    {
        EarlierTables tables;
        MDRData* old = tables.add(tables.params, "nomer", {{"nameLoc", "Прежний"}, {"CategoryKey", "OTHER"}});
        ConversionReport report;
        ParamRules rules(&tables, &report);
        rules.createParameter(QStringLiteral("nomer"), QStringLiteral("Номер"), "<b>1</b>");
        QCOMPARE(tables.params.data.RecCount(), 1);
        QCOMPARE(tables.param("nomer"), old);
        QCOMPARE(int(old->flags), int(ROW_UPDATE));
        QCOMPARE(tables.field(old, "nameLoc"), QStringLiteral("Номер"));
        QCOMPARE(tables.field(old, "CategoryKey"), QStringLiteral("$AutoConvertFromDelphi"));
        QCOMPARE(tables.field(old, "html"), QStringLiteral("<b>1</b>"));
    }

    void aDuplicateNameGivesOneRow()
    {
        EarlierTables tables;
        tables.add(tables.oldParams, "P1", {{"nameLat", "nomer"}, {"nameLoc", "Первый"}});
        tables.add(tables.oldParams, "P2", {{"nameLat", "nomer"}, {"nameLoc", "Второй"}});
        ConversionReport report;
        ParamRules(&tables, &report).processParameters();
        QCOMPARE(tables.params.data.RecCount(), 1);
        QCOMPARE(int(tables.param("nomer")->flags), int(ROW_INSERT));
        QCOMPARE(tables.field(tables.param("nomer"), "nameLoc"), QStringLiteral("Второй"));
    }

    void findsBaseParametersOfReferences_data()
    {
        QTest::addColumn<QVariantList>("old"); // param, TableKey, FieldTypeKey
        QTest::addColumn<QString>("base");
        const QVariant null;
        const auto row = [](const char* name, const QVariantList& old, const char* base) {
            QTest::newRow(name) << old << QString::fromUtf8(base);
        };
        row("substation", {QStringLiteral("Equipment=Substation;"), null, null}, "substation");
        row("equipment", {QStringLiteral("equipment;all"), null, null}, "equipmentName");
        row("equipment with its place", {QStringLiteral("Equipment;ALL;CaptionAndContainer"), null, null},
            "equipmentPath");
        row("equipment of no kind", {QStringLiteral("Equipment=Wire;"), null, null}, "");
        row("organization", {QStringLiteral("Organization;ALL"), null, null}, "organization");
        row("equipment wins over organization", {QStringLiteral("EquipmentOrganization;ALL"), null, null},
            "equipmentName");
        row("worker", {QStringLiteral("Organization;PARENTAL"), null, null}, "employee_fio");
        row("no rule", {QStringLiteral("Organization"), null, null}, "");
        row("voltage", {null, QStringLiteral("x Tbl_BaseVoltage"), QStringLiteral("FieldsTypeGUID_REF x")},
            "baseVoltage");
        row("voltage in other letters",
            {null, QStringLiteral("tbl_basevoltage"), QStringLiteral("fieldstypeguid_ref")}, "baseVoltage");
        row("voltage without a type", {null, QStringLiteral("Tbl_BaseVoltage"), null}, "");
        row("another table", {null, QStringLiteral("Tbl_Other"), QStringLiteral("FieldsTypeGUID_REF")}, "");
        row("voltage with an empty description",
            {QStringLiteral(""), QStringLiteral("Tbl_BaseVoltage"), QStringLiteral("FieldsTypeGUID_REF")},
            "");
        row("unknown description",
            {QStringLiteral("Formula"), QStringLiteral("Tbl_BaseVoltage"),
             QStringLiteral("FieldsTypeGUID_REF")},
            "");
    }
    void findsBaseParametersOfReferences()
    {
        QFETCH(QVariantList, old);
        QFETCH(QString, base);
        EarlierTables tables;
        for (const char* name :
             {"substation", "equipmentName", "equipmentPath", "organization", "employee_fio", "baseVoltage"})
            tables.addBase(name, name);
        tables.addParam("x", {{"param", old[0]}, {"TableKey", old[1]}, {"FieldTypeKey", old[2]}});
        ConversionReport report;
        ParamRules rules(&tables, &report);
        const MDRData* found = rules.findBaseParam(QStringLiteral("x"));
        QCOMPARE(found ? QString::fromStdString(tables.parsed(found).propertyNameValue(0)) : QString(), base);
        QCOMPARE(rules.toHtmlParameter(QStringLiteral("<x>"), false), tables.field(found, "html"));
        QCOMPARE(rules.findBaseParam(QStringLiteral("y")), nullptr);
    }

    void findsShiftParametersByName_data()
    {
        QTest::addColumn<QString>("base");
        QTest::newRow("shift_interval") << QStringLiteral("interval");
        QTest::newRow("shift_workers") << QStringLiteral("shift_workers");
        QTest::newRow("shift_workers2") << QStringLiteral("shift_workers_groups");
        QTest::newRow("shift_workers9") << QString();
    }
    void findsShiftParametersByName()
    {
        QFETCH(QString, base);
        EarlierTables tables;
        for (const char* name : {"interval", "shift_workers", "shift_workers_groups"})
            tables.addBase(name, name);
        tables.addParam(QTest::currentDataTag(), {});
        ConversionReport report;
        ParamRules rules(&tables, &report);
        const MDRData* found = rules.findBaseParam(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(found ? QString::fromStdString(tables.parsed(found).propertyNameValue(0)) : QString(), base);
    }

    void theFirstRowOfABaseNameCounts()
    {
        EarlierTables tables;
        tables.addBase("line", "Линия");
        tables.addParam("vl", {{"param", "Equipment=Line;"}});
        ConversionReport report;
        ParamRules rules(&tables, &report);
        QCOMPARE(rules.findBaseParam(QStringLiteral("vl")), tables.param("$base.line"));
        rules.createParameter(QStringLiteral("zline"), QStringLiteral("z"),
                              HtmlParser::createParameter({{"name", "Line"}}, "z"));
        QCOMPARE(rules.findBaseParam(QStringLiteral("vl")), tables.param("$base.line"));
        rules.createParameter(QStringLiteral("#line"), QStringLiteral("first by key"),
                              HtmlParser::createParameter({{"name", "LINE"}}, "first"));
        QCOMPARE(rules.findBaseParam(QStringLiteral("vl")), tables.param("#line"));
    }

    void anOwnRowPrecedesTheBaseParameter()
    {
        EarlierTables tables;
        tables.addBase("line", "Линия");
        tables.addParam("vl", {{"param", "Equipment=Line;"}});
        tables.add(tables.params, "vl", {{"html", "<a href=\"parameter:name=text\">ВЛ</a>"}});
        ConversionReport report;
        ParamRules rules(&tables, &report);
        QCOMPARE(rules.toHtmlParameter(QStringLiteral("<vl>"), false),
                 QStringLiteral("<a href=\"parameter:name=text\">ВЛ</a>"));
    }

    void aRowWithoutHtmlIsNoParameter()
    {
        EarlierTables tables;
        tables.add(tables.params, "x", {});
        ConversionReport report;
        QCOMPARE(ParamRules(&tables, &report).toHtmlParameter(QStringLiteral("<x>"), true), QString());
    }

    void aStrikeOutIsInsideTheAnchor()
    {
        EarlierTables tables;
        tables.add(tables.params, "x", {{"html", "<a href=\"parameter:name=text\">Номер</a>"}});
        ConversionReport report;
        ParamRules rules(&tables, &report);
        QCOMPARE(rules.toHtmlParameter(QStringLiteral("x"), true),
                 QStringLiteral("<a href=\"parameter:name=text\"><span style=\" text-decoration: "
                                "line-through;\">Номер</span></a>"));
        QCOMPARE(rules.toHtmlParameter(QStringLiteral("<unknown>"), true), QString());
    }

    void theOldJournalKnowsItsNames()
    {
        EarlierTables tables;
        tables.addParam("x", {});
        ConversionReport report;
        const ParamRules rules(&tables, &report);
        QVERIFY(rules.isExistParameterDelphi(QStringLiteral("<x>")));
        QVERIFY(rules.isExistParameterDelphi(QStringLiteral("x")));
        QVERIFY(!rules.isExistParameterDelphi(QStringLiteral("<y>")));
    }

private:
    static QString propertiesOf(const EarlierTables& tables, const MDRData* record)
    {
        QStringList list;
        for (const auto& [name, value] : tables.parsed(record).properties(0)) {
            std::string shown = value;
            if (name == "list") {
                QStringList values;
                for (const std::string& item : HtmlParser::listValues(value))
                    values << QString::fromStdString(item);
                shown = values.join(QLatin1Char(';')).toStdString();
            }
            list << QString::fromStdString(name + "=" + shown);
        }
        return list.join(QLatin1Char('|'));
    }
};

QTEST_MAIN(ParamRules_test)
#include "ParamRules_test.moc"
