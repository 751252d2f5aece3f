#include "SchemaScript.h"
#include "TableCatalog.h"

#include <QTest>

class SchemaScript_test : public QObject
{
    Q_OBJECT

    const SchemaScript::Dialect m_dialect{"engine",          "<%name|%operation|%table|%row%condition>",
                                          "</%name>",        "STOP(%text)",
                                          "%values[%place]", nullptr};

private slots:
    void everyRuleIsTranslatedWhole()
    {
        const QByteArray notation = SchemaScript::file("rules.sql");
        const QByteArray rules = SchemaScript::rules(m_dialect);
        QVERIFY(notation.count("\nRULE ") > 20);
        QCOMPARE(rules.count("\nRULE "), 0);
        QCOMPARE(rules.count("CHANGED("), 0);
        QCOMPARE(rules.count("LOGGED("), 0);
        QCOMPARE(rules.count("REFUSE '"), 1); // in the head, which explains the notation
        int closed = 0;
        for (const CatalogTable& table : TableCatalog::tables())
            closed += table.name.startsWith("Logbook") ? 0 : 3;
        QCOMPARE(rules.count("</Rule_"), notation.count("\nRULE ") + closed);
    }

    void ruleIsWrittenInTheWordsOfTheEngine_data()
    {
        QTest::addColumn<QByteArray>("rule");
        QTest::newRow("refusal without a condition, for a deletion") << QByteArray(
            "<Rule_Roles_delete|DELETE|Roles|OLD>    STOP('Справочники изменяются только средствами "
            "администратора.');\n</Rule_Roles_delete>");
        QTest::newRow("condition of the rule") << QByteArray(
            "<Rule_TemplateParams_insert|INSERT|TemplateParams|NEW AND (NOT EXISTS (SELECT 1 FROM "
            "CurrentRights WHERE rightName = 'ADMINISTRATOR'))>");
        QTest::newRow("operation on fields")
            << QByteArray("<Rule_Records_visa|UPDATE OF VisaWorkerKey|LogbookRecords|NEW AND "
                          "((NEW.VisaWorkerKey IS DISTINCT FROM OLD.VisaWorkerKey))>");
        QTest::newRow("several changed fields") << QByteArray(
            "WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM "
            "OLD.RecordKey);");
        QTest::newRow("a field of a row of the log") << QByteArray("AND L.newRow[13] = 2");
        QTest::newRow("what is no rule stays as it is") << QByteArray("CREATE VIEW CurrentRights AS\n");
    }
    void ruleIsWrittenInTheWordsOfTheEngine()
    {
        QFETCH(QByteArray, rule);
        QVERIFY2(SchemaScript::rules(m_dialect).contains(rule), rule.constData());
    }
};

QTEST_GUILESS_MAIN(SchemaScript_test)
#include "SchemaScript_test.moc"
