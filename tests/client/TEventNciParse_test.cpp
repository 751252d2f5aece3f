#include "LogbookFields.h"
#include "MDRValues.h"
#include "TEventNciParse.h"

#include <QTest>

class TEventNciParseTest : public QObject
{
    Q_OBJECT

private slots:
    void an_event_is_taken_apart();
    void a_deletion_carries_no_row();
    void without_a_comma_there_is_no_table();
    void the_prefix_is_never_read();
    void a_damaged_row_is_no_row();
    void the_parse_knows_631();
    void other_numbers_are_not_taken_apart_data();
    void other_numbers_are_not_taken_apart();
    void no_block_is_harmless();

private:
    static QByteArray packedRecord()
    {
        CRowBatch batch(LogbookRecordFields, 15);
        MDRData* row = batch.newRow(ROW_UPDATE, "REC_1");
        batch.SetValF(row, "status", MDRValue::number(StatusDeleted));
        batch.RecPost(row);
        return MDRRecPack(row);
    }
    static std::unique_ptr<HFNCliParam> event(int number, const QByteArray& source,
                                              const QByteArray& row = packedRecord())
    {
        return std::unique_ptr<HFNCliParam>(HFNCliParam::event(number, "REC_1", source, row));
    }
};

void TEventNciParseTest::an_event_is_taken_apart()
{
    const auto block = event(602, "NCI:LogbookRecords,17");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.parameterBlock, block.get());
    QCOMPARE(parse.eventNumber, 602);
    QVERIFY(parse.isChange());
    QCOMPARE(parse.recordKey, "REC_1");
    QCOMPARE(parse.sourceText, "NCI:LogbookRecords,17");
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordType.count, 15);

    const MDRField* status = MDRFldByName(&parse.recordType, "status");
    MDRVar value;
    bool marked = false;
    QCOMPARE(MDRGetVal(status, &parse.recordData, &value), 0);
    QCOMPARE(value.value.number, 2);
    QCOMPARE(MDRIsUser(status, &parse.recordData, &marked), 0);
    QVERIFY(marked);
    MDRIsUser(MDRFldByName(&parse.recordType, "direction"), &parse.recordData, &marked);
    QVERIFY(!marked);
}

void TEventNciParseTest::a_deletion_carries_no_row()
{
    const auto block = event(603, "NCI:LogbookRecords,17");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordKey, "REC_1");
    QCOMPARE(parse.recordType.count, 0);
    QVERIFY(!parse.recordData.body);
}

void TEventNciParseTest::without_a_comma_there_is_no_table()
{
    const auto block = event(602, "NCI:LogbookRecords");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QString());
    QCOMPARE(parse.sourceText, "NCI:LogbookRecords");
    QCOMPARE(parse.recordType.count, 15);
}

void TEventNciParseTest::the_prefix_is_never_read()
{
    QCOMPARE(TEventNciParse(event(602, "1234Workers,1,2").get()).tableName, QStringLiteral("Workers"));
    QCOMPARE(TEventNciParse(event(602, "NCI:,1").get()).tableName, QString());
    QCOMPARE(TEventNciParse(event(602, "N,1").get()).tableName, QString());
    QCOMPARE(TEventNciParse(event(602, "").get()).tableName, QString());
}

void TEventNciParseTest::a_damaged_row_is_no_row()
{
    const auto block = event(601, "NCI:LogbookRecords,1", packedRecord().left(20));
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordType.count, 0);
}

void TEventNciParseTest::the_parse_knows_631()
{
    const auto block = event(631, "NCI:LogbookRecords,1");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordType.count, 15);
    QVERIFY(!parse.isChange()); // but no module lets it through
}

void TEventNciParseTest::other_numbers_are_not_taken_apart_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {0, 569, 600, 604, 630, 632, 633, 634, 665, -1})
        QTest::newRow(QByteArray::number(number).constData()) << number;
}

void TEventNciParseTest::other_numbers_are_not_taken_apart()
{
    QFETCH(int, number);
    const auto block = event(number, "NCI:LogbookRecords,1");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.eventNumber, number);
    QVERIFY(!parse.isChange());
    QCOMPARE(parse.tableName, QString());
    QVERIFY(!parse.recordKey);
    QCOMPARE(parse.recordType.count, 0);
}

void TEventNciParseTest::no_block_is_harmless()
{
    const TEventNciParse parse(nullptr);
    QCOMPARE(parse.eventNumber, 0);
    QVERIFY(!parse.isChange());
    QCOMPARE(parse.tableName, QString());
}

QTEST_APPLESS_MAIN(TEventNciParseTest)
#include "TEventNciParse_test.moc"
