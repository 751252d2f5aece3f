#include "SchemaScript.h"
#include "TableCatalog.h"

#include <QRegularExpression>
#include <QTest>

class SchemaScript_test : public QObject
{
    Q_OBJECT

    const SchemaScript::Dialect m_dialect{
        "engine",          "<%name|%operation|%table|%row%condition>",      "</%name>", "STOP(%text)",
        "%values[%place]", [](const CatalogTable&) { return QByteArray(); }};

private slots:
    void everyRuleIsTranslatedWhole()
    {
        const QByteArray notation = SchemaScript::file("rules.sql");
        const QByteArray rules = SchemaScript::definitions(m_dialect);
        QVERIFY(notation.count("\nRULE ") > 20);
        QCOMPARE(rules.count("\nRULE "), 0);
        QCOMPARE(rules.count("CHANGED("), 0);
        QCOMPARE(rules.count("LOGGED("), 0);
        QCOMPARE(rules.count("EACH("), 0);
        QCOMPARE(rules.count("\nFIELDS "), 0);
        QCOMPARE(rules.count('{'), 1);        // in the head, too
        QCOMPARE(rules.count("REFUSE '"), 1); // in the head, which explains the notation
        int closed = 0;
        for (const CatalogTable& table : TableCatalog::tables())
            closed += table.name.startsWith("Logbook") ? 0 : 3;
        QCOMPARE(rules.count("</Rule_"), notation.count("\nRULE ") + closed);
    }

    void everyVersionHasAStepOnEachEngine()
    {
        for (const QByteArray engine : {"sqlite", "postgresql"}) {
            const QByteArray all = SchemaScript::steps(engine, 0);
            for (int step = 1; step <= SchemaScript::version; ++step)
                QVERIFY(all.contains("-- Step " + QByteArray::number(step)));
            QVERIFY(!all.contains("-- Step " + QByteArray::number(SchemaScript::version + 1)));
            QCOMPARE(SchemaScript::steps(engine, SchemaScript::version), QByteArray());
        }
    }

    void freeFieldsAreFieldsOfTheirTable()
    {
        const QString notation = QString::fromUtf8(SchemaScript::file("rules.sql"));
        const QRegularExpression statement(QStringLiteral("\nFIELDS \\w+ OF (\\w+) BUT([\\w,\\s]*);"));
        int count = 0;
        for (auto all = statement.globalMatch(notation); all.hasNext(); ++count) {
            const QRegularExpressionMatch one = all.next();
            const CatalogTable* table = TableCatalog::table(one.captured(1).toLatin1());
            QVERIFY2(table, qPrintable(one.captured()));
            for (const QString& field : one.captured(2).split(QLatin1Char(','), Qt::SkipEmptyParts))
                QVERIFY2(table->fieldIndex(field.trimmed().toLatin1()) > 0, qPrintable(field));
        }
        QCOMPARE(count, 6);
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
        QTest::newRow("all fields but the free ones") << QByteArray(
            "WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM "
            "OLD.RecordKey);");
        QTest::newRow("a row of values, in lines") << QByteArray(
            "AND (R.ShiftKey, R.WorkerKey, R.ReceiverWorkerKey, R.SecondMarkWorkerKey, R.recordTime,\n"
            "                                 R.eventTime, R.firstMarkTime, R.secondMarkTime, "
            "R.html, R.direction)\n");
        QTest::newRow("a field of a row of the log") << QByteArray("AND L.newRow[13] = 2");
        QTest::newRow("what is no rule stays as it is") << QByteArray("CREATE VIEW CurrentRights AS\n");
    }
    void ruleIsWrittenInTheWordsOfTheEngine()
    {
        QFETCH(QByteArray, rule);
        QVERIFY2(SchemaScript::definitions(m_dialect).contains(rule), rule.constData());
    }
};

QTEST_GUILESS_MAIN(SchemaScript_test)
#include "SchemaScript_test.moc"
