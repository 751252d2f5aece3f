#include "CModelTable.h"
#include "DemoTemplates.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "ParametersBase.h"
#include "SourceFile.h"
#include "TestClient.h"

#include <QFile>
#include <QTest>
#include <QTextCodec>

namespace
{
constexpr MDRFieldDescr categoryFields[] = {
    {"KeyLink", 32, mdr_TChar}, {"ParentKey", 32, mdr_TChar}, {"nameLoc", 100, mdr_TChar}};
constexpr MDRFieldDescr parameterFields[] = {{"KeyLink", 32, mdr_TChar},
                                             {"CategoryKey", 32, mdr_TChar},
                                             {"nameLoc", 100, mdr_TChar},
                                             {"html", 0, mdr_TMemo}};

/// The two tables as a module loads them: with KeyLink as key 0.
struct Tables {
    Tables()
    {
        MDAFldAdd(categories.data.array, 3, categoryFields);
        MDAFldAdd(parameters.data.array, 4, parameterFields);
        categories.data.KeyAdd("KeyLink", 0);
        parameters.data.KeyAdd("KeyLink", 0);
    }

    CModelTable categories{"TemplateParamCategories"};
    CModelTable parameters{"TemplateParams"};
};

QByteArray text(const CModelTable& table, const MDRData* record, const char* field)
{
    MDRVar value;
    table.data.GetVal(record, field, value);
    return MDRValue::copy(value);
}

QStringList names(const CModelTable& table)
{
    QStringList list;
    for (int i = 0; i < table.data.RecCount(); ++i) {
        const HtmlParser parser(text(table, MDARec(table.data.array, 0, i), "html").toStdString());
        if (parser.countParameters() == 1)
            list << QString::fromStdString(parser.propertyNameValue(0));
    }
    return list;
}
} // namespace

class ParametersBase_test : public QObject
{
    Q_OBJECT

private slots:
    void everyBaseNameHasAParameter();
    void rowsCarryNoFlagAndNoMarks();
    void keysLabelsAndGroupsFitTogether();
    void textsAreInTheCodePageOfTheStore();
    void equipmentIsLeftOutWhenAsked();
    void rowsThatAreThereStayAsTheyAre();
    void aTableWithoutFieldsTakesTheParametersOfEquipment();
    void thePageNamesThemAll();
    void theNotationAndTheGuideKnowThemAll();
};

void ParametersBase_test::everyBaseNameHasAParameter()
{
    Tables tables;
    ParametersBase(nullptr).createBaseParameters(&tables.categories, &tables.parameters, true);
    const QStringList expected{QStringLiteral("datetime"),
                               QStringLiteral("text"),
                               QStringLiteral("list"),
                               QStringLiteral("signalName"),
                               QStringLiteral("signalNum"),
                               QStringLiteral("baseVoltage"),
                               QStringLiteral("organization"),
                               QStringLiteral("department"),
                               QStringLiteral("employee_fio"),
                               QStringLiteral("employee_fio_role"),
                               QStringLiteral("employee_fio_group"),
                               QStringLiteral("employee_fio_dep_org"),
                               QStringLiteral("equipmentName"),
                               QStringLiteral("equipmentPath"),
                               QStringLiteral("interval"),
                               QStringLiteral("shift_workers"),
                               QStringLiteral("shift_workers_groups"),
                               QStringLiteral("substation"),
                               QStringLiteral("line")};
    const QStringList found = names(tables.parameters);
    for (const QString& name : expected)
        QCOMPARE(found.count(name), 1);
}

void ParametersBase_test::rowsCarryNoFlagAndNoMarks()
{
    Tables tables;
    ParametersBase(nullptr).createBaseParameters(&tables.categories, &tables.parameters, true);
    for (const CModelTable* table : {&tables.categories, &tables.parameters}) {
        QVERIFY(table->data.RecCount() > 0);
        for (int i = 0; i < table->data.RecCount(); ++i) {
            const MDRData* record = MDARec(table->data.array, 0, i);
            QCOMPARE(int(record->flags), 0);
            for (int field = 0; field < MDAFldCount(table->data.array); ++field) {
                bool marked = true;
                MDRIsUser(MDRFldByNum(table->data.array, field), record, &marked);
                QVERIFY(!marked);
            }
        }
    }
}

void ParametersBase_test::keysLabelsAndGroupsFitTogether()
{
    Tables tables;
    ParametersBase(nullptr).createBaseParameters(&tables.categories, &tables.parameters, true);
    const CMDArray& rows = tables.parameters;
    for (int i = 0; i < rows.RecCount(); ++i) {
        const MDRData* record = MDARec(rows.array, 0, i);
        const HtmlParser parser(text(tables.parameters, record, "html").toStdString());
        QCOMPARE(text(tables.parameters, record, "KeyLink").toStdString(),
                 "$base." + parser.propertyNameValue(0));
        QCOMPARE(parser.properties(0).front().first, std::string("name"));
        const std::string label = text(tables.parameters, record, "nameLoc").toStdString();
        QVERIFY(!label.empty());
        QCOMPARE(parser.propertyValue(0, "locname"), label);
        QCOMPARE(parser.displayText(0), label);
        const QByteArray group = text(tables.parameters, record, "CategoryKey");
        const MDRVar key = MDRValue::text(group);
        const MDRData* category = MDARecSeekV(tables.categories.data.array, 0, &key, 0);
        QVERIFY2(category, group.constData());
        QVERIFY(!text(tables.categories, category, "nameLoc").isEmpty());
    }
}

void ParametersBase_test::textsAreInTheCodePageOfTheStore()
{
    const TestStore store(TestStore::Empty);
    TestClient client(store.openLoader());
    CVrkCliMod module(&client.app());
    Tables tables;
    ParametersBase(&module).createBaseParameters(&tables.categories, &tables.parameters, true);
    const MDRVar key = MDRValue::text("$base.datetime");
    const MDRData* record = MDARecSeekV(tables.parameters.data.array, 0, &key, 0);
    QVERIFY(record);
    const QString label = QStringLiteral("Дата и время");
    QCOMPARE(text(tables.parameters, record, "nameLoc"), TestStore::bytes(label));
    QVERIFY(text(tables.parameters, record, "html").contains(TestStore::bytes(label)));
    const MDRVar group = MDRValue::text("$base.group.common");
    record = MDARecSeekV(tables.categories.data.array, 0, &group, 0);
    QVERIFY(record);
    QCOMPARE(text(tables.categories, record, "nameLoc"), TestStore::bytes(QStringLiteral("Общие")));
}

void ParametersBase_test::equipmentIsLeftOutWhenAsked()
{
    Tables tables;
    ParametersBase(nullptr).createBaseParameters(&tables.categories, &tables.parameters, false);
    QVERIFY(names(tables.parameters).contains(QStringLiteral("equipmentName")));
    QVERIFY(!names(tables.parameters).contains(QStringLiteral("substation")));
}

void ParametersBase_test::rowsThatAreThereStayAsTheyAre()
{
    Tables tables;
    CMDArray& rows = tables.parameters;
    MDRData* own = MDARecNew(rows.array);
    rows.SetValF(own, "KeyLink", MDRValue::text("$base.text"));
    rows.SetValF(own, "nameLoc", MDRValue::text("own"));
    own = rows.RecPost(own);
    ParametersBase base(nullptr);
    base.createBaseParameters(&tables.categories, &tables.parameters, true);
    const int count = rows.RecCount();
    base.createBaseParameters(&tables.categories, &tables.parameters, true);
    QCOMPARE(rows.RecCount(), count);
    QCOMPARE(text(tables.parameters, own, "nameLoc"), QByteArray("own"));
    QVERIFY(text(tables.parameters, own, "html").isEmpty());
}

void ParametersBase_test::aTableWithoutFieldsTakesTheParametersOfEquipment()
{
    CModelTable table{""};
    ParametersBase(nullptr).createBaseEquipmentsParameter(&table, QByteArray());
    const QStringList found = names(table);
    QVERIFY(found.contains(QStringLiteral("substation")));
    QVERIFY(found.contains(QStringLiteral("line")));
    QVERIFY(!found.contains(QStringLiteral("text")));

    CModelTable grouped{""};
    ParametersBase(nullptr).createBaseEquipmentsParameter(&grouped, "GROUP");
    QCOMPARE(text(grouped, MDARec(grouped.data.array, 0, 0), "CategoryKey"), QByteArray("GROUP"));
    ParametersBase(nullptr).createBaseEquipmentsParameter(nullptr, QByteArray());
}

void ParametersBase_test::thePageNamesThemAll()
{
    QFile page(sourceFile("docs/template-parameters.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    QStringList reported;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(QLatin1Char('\n')))
        if (line.startsWith(QLatin1String("| `")))
            reported << line.split(QStringLiteral(" | ")).mid(0, 3).join(QLatin1Char('|'));
    Tables tables;
    ParametersBase(nullptr).createBaseParameters(&tables.categories, &tables.parameters, true);
    QStringList made;
    for (int i = 0; i < tables.parameters.data.RecCount(); ++i) {
        const MDRData* parameter = MDARec(tables.parameters.data.array, 0, i);
        const QByteArray group = text(tables.parameters, parameter, "CategoryKey");
        const MDRVar key = MDRValue::text(group);
        const MDRData* category = MDARecSeekV(tables.categories.data.array, 0, &key, 0);
        made << QStringLiteral("| `%1`|%2|%3")
                    .arg(names(tables.parameters).at(i),
                         QString::fromUtf8(text(tables.parameters, parameter, "nameLoc")),
                         QString::fromUtf8(text(tables.categories, category, "nameLoc")));
    }
    reported.sort();
    made.sort();
    QCOMPARE(reported, made);
}

void ParametersBase_test::theNotationAndTheGuideKnowThemAll()
{
    Tables tables;
    ParametersBase(nullptr).createBaseParameters(&tables.categories, &tables.parameters, true);
    QStringList made = names(tables.parameters);
    QStringList known = DemoTemplates::parameterKinds();
    made.sort();
    known.sort();
    QCOMPARE(known, made);
    QFile page(sourceFile("docs/admin-guide.ru.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    for (const QString& kind : qAsConst(known))
        QVERIFY2(text.contains(QStringLiteral("| `%1` |").arg(kind)), qPrintable(kind));
    for (const QString& marker : DemoTemplates::markerLabels())
        QVERIFY2(text.contains(marker), qPrintable(marker));
}

QTEST_MAIN(ParametersBase_test)
#include "ParametersBase_test.moc"
