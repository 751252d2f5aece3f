#include "EventParse.h"

#include "LogbookFields.h"
#include "MDRValues.h"

#include <QTest>

/// A change event out of the parameter block.
class EventParse_test : public QObject
{
    Q_OBJECT

private slots:
    void takesAnInsertedRowApart();
    void aDeletedRowIsKnownByItsKeyAlone();
    void withoutACommaThereIsNoTable();
    void thePrefixOfTheSourceIsNotRead();
    void otherNumbersAreNoEvents_data();
    void otherNumbersAreNoEvents();
    void aMissingBlockIsNoEvent();

private:
    static QByteArray packedComment();
};

QByteArray EventParse_test::packedComment()
{
    CRowBatch batch(LogbookCommentFields, fieldCount(LogbookCommentFields));
    MDRData* row = batch.newRow(ROW_INSERT, "COMMENT");
    batch.SetValF(row, "RecordKey", MDRValue::text("RECORD"));
    return MDRRecPack(row);
}

void EventParse_test::takesAnInsertedRowApart()
{
    HFNCliParam* block = HFNCliParam::event(601, "COMMENT", "NCI:LogbookComments,601", packedComment());
    TEventNciParse event;
    QVERIFY(parseChangeEvent(block, &event));
    QCOMPARE(event.parameterBlock, block);
    QCOMPARE(event.eventNumber, 601);
    QCOMPARE(QByteArray(event.recordKey), QByteArray("COMMENT"));
    QCOMPARE(QByteArray(event.sourceText), QByteArray("NCI:LogbookComments,601"));
    QCOMPARE(event.tableName, QStringLiteral("LogbookComments"));
    QCOMPARE(event.recordType.count, 6);

    const MDRField* field = MDRFldByName(&event.recordType, "RecordKey");
    MDRVar value;
    MDRGetVal(field, &event.recordData, &value);
    QCOMPARE(MDRValue::copy(value), QByteArray("RECORD"));
    bool marked = false;
    MDRIsUser(field, &event.recordData, &marked);
    QVERIFY(marked);
    delete block;
}

void EventParse_test::aDeletedRowIsKnownByItsKeyAlone()
{
    // Even bytes that came along are not looked at.
    HFNCliParam* block = HFNCliParam::event(603, "COMMENT", "NCI:LogbookComments,603", packedComment());
    TEventNciParse event;
    QVERIFY(parseChangeEvent(block, &event));
    QCOMPARE(event.tableName, QStringLiteral("LogbookComments"));
    QCOMPARE(event.recordType.count, 0);
    delete block;
}

void EventParse_test::withoutACommaThereIsNoTable()
{
    HFNCliParam* block = HFNCliParam::event(602, "COMMENT", "NCI:LogbookComments", packedComment());
    TEventNciParse event;
    QVERIFY(parseChangeEvent(block, &event));
    QVERIFY(event.tableName.isEmpty());
    delete block;
}

void EventParse_test::thePrefixOfTheSourceIsNotRead()
{
    HFNCliParam* block = HFNCliParam::event(602, "ROW", "ABC:Workers,1,2", packedComment());
    TEventNciParse event;
    QVERIFY(parseChangeEvent(block, &event));
    QCOMPARE(event.tableName, QStringLiteral("Workers"));
    delete block;
}

void EventParse_test::otherNumbersAreNoEvents_data()
{
    QTest::addColumn<int>("number");
    for (int number : {0, -601, 600, 604, 631, 1601})
        QTest::addRow("%d", number) << number;
}

void EventParse_test::otherNumbersAreNoEvents()
{
    QFETCH(int, number);
    HFNCliParam* block = HFNCliParam::event(number, "ROW", "NCI:Workers,1", QByteArray());
    TEventNciParse event;
    QVERIFY(!parseChangeEvent(block, &event));
    QVERIFY(!event.recordKey);
    delete block;
}

void EventParse_test::aMissingBlockIsNoEvent()
{
    TEventNciParse event;
    QVERIFY(!parseChangeEvent(nullptr, &event));
}

QTEST_GUILESS_MAIN(EventParse_test)
#include "EventParse_test.moc"
