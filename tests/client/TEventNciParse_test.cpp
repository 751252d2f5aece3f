#include "LogbookFields.h"
#include "MDRValues.h"
#include "TEventNciParse.h"

#include <QTest>

class TEventNciParseTest : public QObject
{
    Q_OBJECT

private slots:
    void parsesAnEvent();
    void aDeletionHasNoRow();
    void withoutACommaThereIsNoTable();
    void thePrefixIsNeverRead();
    void aDamagedRowIsNoRow();
    void theParseKnows631();
    void otherNumbersAreNotParsed_data();
    void otherNumbersAreNotParsed();
    void noBlockIsHarmless();

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

void TEventNciParseTest::parsesAnEvent()
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

void TEventNciParseTest::aDeletionHasNoRow()
{
    const auto block = event(603, "NCI:LogbookRecords,17");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordKey, "REC_1");
    QCOMPARE(parse.recordType.count, 0);
    QVERIFY(!parse.recordData.body);
}

void TEventNciParseTest::withoutACommaThereIsNoTable()
{
    const auto block = event(602, "NCI:LogbookRecords");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QString());
    QCOMPARE(parse.sourceText, "NCI:LogbookRecords");
    QCOMPARE(parse.recordType.count, 15);
}

void TEventNciParseTest::thePrefixIsNeverRead()
{
    QCOMPARE(TEventNciParse(event(602, "1234Workers,1,2").get()).tableName, QStringLiteral("Workers"));
    QCOMPARE(TEventNciParse(event(602, "NCI:,1").get()).tableName, QString());
    QCOMPARE(TEventNciParse(event(602, "N,1").get()).tableName, QString());
    QCOMPARE(TEventNciParse(event(602, "").get()).tableName, QString());
}

void TEventNciParseTest::aDamagedRowIsNoRow()
{
    const auto block = event(601, "NCI:LogbookRecords,1", packedRecord().left(20));
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordType.count, 0);
}

void TEventNciParseTest::theParseKnows631()
{
    const auto block = event(631, "NCI:LogbookRecords,1");
    const TEventNciParse parse(block.get());
    QCOMPARE(parse.tableName, QStringLiteral("LogbookRecords"));
    QCOMPARE(parse.recordType.count, 15);
    QVERIFY(!parse.isChange()); // but modules do not accept it
}

void TEventNciParseTest::otherNumbersAreNotParsed_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {0, 569, 600, 604, 630, 632, 633, 634, 665, -1})
        QTest::newRow(QByteArray::number(number).constData()) << number;
}

void TEventNciParseTest::otherNumbersAreNotParsed()
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

void TEventNciParseTest::noBlockIsHarmless()
{
    const TEventNciParse parse(nullptr);
    QCOMPARE(parse.eventNumber, 0);
    QVERIFY(!parse.isChange());
    QCOMPARE(parse.tableName, QString());
}

QTEST_APPLESS_MAIN(TEventNciParseTest)
#include "TEventNciParse_test.moc"
