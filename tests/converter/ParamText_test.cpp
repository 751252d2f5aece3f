#include "ParamText.h"

#include <QTest>

Q_DECLARE_METATYPE(std::vector<std::string>)

/// The words of the earlier journal's descriptions, rule by rule.
class ParamText_test : public QObject
{
    Q_OBJECT

private slots:
    void layouts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("layout");
        const auto row = [](const char* name, const char* layout) {
            QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(layout);
        };
        row("Date", "dd.MM.yyyy");
        row("ShortDateTime", "dd.MM.yyyy hh:mm:ss");
        row("ShortestDateTime", "dd.MM.yyyy hh:mm");
        row("LongDateTime", "dd.MM.yyyy hh:mm:ss.zzz");
        row("ShortTime", "hh:mm:ss");
        row("ShortestTime", "hh:mm");
        row("LongTime", "hh:mm:ss.zzz");
        row("ShortestDateTime_y2", "dd.MM.yy hh:mm");
        row("ShortestDateTime_y2r", "hh:mm dd.MM.yy");
        row("date", "");
        row("ShortestTime ", "");
        row("", "");
    }
    void layouts()
    {
        QFETCH(QString, name);
        QFETCH(QString, layout);
        QCOMPARE(ParamText::toQtDateTimeLayout(name), layout);
    }

    void enumerations_data()
    {
        QTest::addColumn<QString>("param");
        QTest::addColumn<std::vector<std::string>>("values");
        using Values = std::vector<std::string>;
        const auto row = [](const char* name, const char* param, const Values& values) {
            QTest::newRow(name) << QString::fromUtf8(param) << values;
        };
        row("numbers are dropped", "Enum=\"1=ясно,2=дождь\"", {"ясно", "дождь"});
        row("the order is that of the text", "Enum=\"3=в,1=а\"", {"в", "а"});
        row("capital letters", "ENUM=1=a,2=b", {"a", "b"});
        row("a prefix in small letters spoils the first item", "enum=\"1=a,2=b\"", {"", "b"});
        row("an item without a number is an empty value", "Enum=1=a,b,3=c", {"a", "", "c"});
        row("an item with two numbers is an empty value", "Enum=1=2=a", {""});
        row("a text between is an item", "Enum=1=a,,2=b", {"a", "", "b"});
        row("blanks stay", "Enum=1= a ,2=b", {" a ", "b"});
        row("nothing", "Enum=", {""});
    }
    void enumerations()
    {
        QFETCH(QString, param);
        QFETCH(std::vector<std::string>, values);
        QCOMPARE(ParamText::enumValues(param), values);
    }

    void equipment_data()
    {
        QTest::addColumn<QString>("param");
        QTest::addColumn<QString>("name");
        const auto row = [](const char* param, const char* name) {
            QTest::newRow(param) << QString::fromUtf8(param) << QString::fromUtf8(name);
        };
        row("Equipment;ALL", "equipmentname");
        row("Equipment;all", "equipmentname");
        row("Equipment;PARENTAL", "equipmentname");
        row("Equipment;ALL;CaptionAndContainer", "equipmentpath");
        row("Equipment;Parental;captionandcontainer", "equipmentpath");
        row("Equipment=Substation;", "substation");
        row("Equipment=Line", "line");
        row("Equipment=Bay;CaptionAndContainer", "bay");
        row("Equipment=Bay;a=b;", "bay");
        row("Equipment;rest", "equipment");
        row(";a=Line;", "line");
        row("Equipment", "equipment");
        row("Equipment=Wall;", "equipmentname"); // "wall" contains "all"
    }
    void equipment()
    {
        QFETCH(QString, param);
        QFETCH(QString, name);
        QCOMPARE(ParamText::equipmentParameter(param), name);
    }

    void organizations_data()
    {
        QTest::addColumn<QString>("param");
        QTest::addColumn<QString>("name");
        const auto row = [](const char* param, const char* name) {
            QTest::newRow(param) << QString::fromUtf8(param) << QString::fromUtf8(name);
        };
        row("Organization", "");
        row("Organization;PARENTAL", "employee_fio");
        row("Organization;Parental;DisplayFormat=NameAndRole", "employee_fio");
        row("Organization;ALL", "organization");
        row("Organization;all", "organization");
        row("Organization;ALL;PARENTAL", "organization");
        row("Organization;ALL;DisplayFormat=Name", "employee_fio");
        row("Organization;ALL;DisplayFormat=NameAndGroup", "employee_fio_group");
        row("Organization;ALL;DisplayFormat=NameAndRole", "employee_fio_role");
        row("Organization;ALL;DisplayFormat=NameAndDepartmentAndOrganization", "employee_fio_dep_org");
        row("Organization;ALL;DisplayFormat=Caption", "");
        row("Organization;ALL;DisplayFormat=Name;", "");
        row("Organization;ALL;DisplayFormat=name", "");
        row("Organization;ALL;displayformat=Name", "");
        row("Organization;ALL;DisplayFormat", "");
    }
    void organizations()
    {
        QFETCH(QString, param);
        QFETCH(QString, name);
        QCOMPARE(ParamText::organizationParameter(param), name);
    }
};

QTEST_MAIN(ParamText_test)
#include "ParamText_test.moc"
