#include "CModelTable.h"
#include "LogbookFields.h"
#include "Row.h"

#include <QTest>

/// A row of the journal's records reads its fields by their constants.
class Row_test : public QObject
{
    Q_OBJECT

private slots:
    void valuesReadByTheirType()
    {
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        MDRData* record = batch.newRow(ROW_INSERT, "REC_1");
        batch.SetValF(record, Field::html, MDRValue::text("text", 4, mdr_TMemo));
        batch.SetValF(record, Field::recordTime, MDRValue::real(5.5));
        batch.SetValF(record, Field::status, MDRValue::number(StatusDeleted));
        record = batch.RecPost(record);
        const Row row(record);
        QCOMPARE(row.key(), QByteArray("REC_1"));
        QVERIFY(row.has(Field::html));
        QCOMPARE(row.bytes(Field::html), QByteArray("text"));
        QCOMPARE(row.text(Field::html, QTextCodec::codecForName("UTF-8")), QStringLiteral("text"));
        QVERIFY(row.has(Field::recordTime));
        QCOMPARE(row.time(Field::recordTime), 5.5);
        QCOMPARE(row.number(Field::status, -1), int(StatusDeleted));
    }

    void missingFieldsReadAsAbsent()
    {
        CRowBatch batch(LogbookWorkersWorkshiftFields, fieldCount(LogbookWorkersWorkshiftFields));
        const MDRData* record = batch.RecPost(batch.newRow(ROW_INSERT, "CREW_1"));
        for (const Row& row : {Row(record), Row(nullptr)}) {
            QVERIFY(!row.has(Field::WorkerKey)); // null
            QVERIFY(!row.isSet(Field::opening));
            QVERIFY(row.bytes(Field::html).isEmpty()); // no field of this table
            QCOMPARE(row.time(Field::recordTime), 0.0);
            QCOMPARE(row.number(Field::status, -1), -1);
        }
        QCOMPARE(int(Row(record).value(Field::html).type), int(mdr_TNone));
        QVERIFY(Row(nullptr).key().isEmpty());
    }

    void aSetFlagIsSet()
    {
        CRowBatch batch(LogbookWorkersWorkshiftFields, fieldCount(LogbookWorkersWorkshiftFields));
        for (const bool flag : {true, false}) {
            MDRData* record = batch.newRow(ROW_INSERT, "CREW_1");
            batch.SetValF(record, Field::opening, MDRValue::boolean(flag));
            QCOMPARE(Row(batch.RecPost(record)).isSet(Field::opening), flag);
        }
    }

    void theFirstRecordWithAKeyIsFound()
    {
        CModelTable table("LogbookWorkersWorkshift");
        MDAFldAdd(table.data.array, fieldCount(LogbookWorkersWorkshiftFields), LogbookWorkersWorkshiftFields);
        QVERIFY(!recordByKeyLink(&table, "CREW_1"));
        const MDRVar key = MDRValue::text("CREW_1");
        MDRData* records[2] = {};
        for (MDRData*& record : records) {
            record = MDARecNew(table.data.array);
            table.data.SetValF(record, Field::KeyLink, key);
            record = table.data.RecPost(record);
        }
        QCOMPARE(recordByKeyLink(&table, "CREW_1"), records[0]);
        QCOMPARE(recordByKeyLink(table.data, "CREW_1"), records[0]);
        QVERIFY(!recordByKeyLink(&table, "CREW_2"));
        MDRData* nameless = MDARecNew(table.data.array);
        table.data.SetValF(nameless, Field::KeyLink, MDRValue::text(""));
        table.data.RecPost(nameless);
        QVERIFY(!recordByKeyLink(&table, ""));
        QVERIFY(!recordByKeyLink(&table, nullptr));
        QVERIFY(!recordByKeyLink(nullptr, "CREW_1"));
    }
};

QTEST_APPLESS_MAIN(Row_test)
#include "Row_test.moc"
