#include "ArrayTools.h"
#include "RecordBody.h"

#include <cmath>
#include <limits>
#include <QTest>

class MDRData_test : public QObject
{
    Q_OBJECT

private slots:
    void aFreshRecordIsAllNullAndUnmarked();
    void valuesOfEveryKindComeBack();
    void textIsCopiedAndEndsWithNul();
    void textMayHoldNulsAndBeEmpty();
    void aNullWithAnyTypeStoresNull();
    void textKindsConvertAmongThemselves();
    void numbersConvertAmongThemselves_data();
    void numbersConvertAmongThemselves();
    void anInvalidConversionIsRefusedAndChangesNothing_data();
    void anInvalidConversionIsRefusedAndChangesNothing();
    void malformedTextsAreRefused();
    void widthsAdviseOnly();
    void textsOfTheSameRecordMayBeCopiedWithinIt();
    void manyChangesOfTextsKeepAllTheOthers();
    void postedRecordsKeepLittleIdleRoom();
    void marksAreIndependentOfValues();
    void flagsAreReplacedNotAdded();
    void handlesWorkOnRecordsOfOtherArraysByPlaceAndType();
    void badHandlesAreAnsweredByCodes();
    void readingAMissingFieldOnlyClearsTheType();
};

void MDRData_test::aFreshRecordIsAllNullAndUnmarked()
{
    MixedArray array;
    const MDRData* record = MDARecNew(array.array);
    QCOMPARE(int(record->flags), 0);
    for (int i = 0; i < mixedCount; ++i) {
        MDRVar value;
        QCOMPARE(MDRGetVal(MDRFldByNum(array.array, i), record, &value), int(mdr_Ok));
        QCOMPARE(value.type, mixedFields[i].type);
        QVERIFY(value.isNull != 0);
        QVERIFY(array.isNull(record, mixedFields[i].name));
        QVERIFY(!array.isMarked(record, mixedFields[i].name));
        if (MDRValue::isText(value)) {
            QCOMPARE(value.value.text.length, 0);
            QCOMPARE(value.value.text.data[0], char(0));
        }
    }
}

void MDRData_test::valuesOfEveryKindComeBack()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    QCOMPARE(array.set(record, "flag", MDRValue::boolean(true)), int(mdr_Ok));
    QCOMPARE(array.set(record, "small", MDRValue::number(255, mdr_TByte)), int(mdr_Ok));
    QCOMPARE(array.set(record, "number", MDRValue::number(std::numeric_limits<int>::min())), int(mdr_Ok));
    QCOMPARE(array.set(record, "time", MDRValue::real(1795000000.25)), int(mdr_Ok));
    QCOMPARE(array.set(record, "text_", MDRValue::text("memo")), int(mdr_Ok));
    QCOMPARE(array.set(record, "data", MDRValue::text("a\0b", 3, mdr_TBlob)), int(mdr_Ok));
    for (const MDRData* r : {array.post(record), MDARecEdit(record)}) {
        QCOMPARE(array.text(r), QByteArray("key"));
        QCOMPARE(array.get(r, "flag").value.number, 1);
        QCOMPARE(array.get(r, "small").value.number, 255);
        QCOMPARE(array.get(r, "number").value.number, std::numeric_limits<int>::min());
        QCOMPARE(array.get(r, "time").value.real, 1795000000.25);
        QCOMPARE(array.text(r, "text_"), QByteArray("memo"));
        QCOMPARE(array.text(r, "data"), QByteArray("a\0b", 3));
        for (const MDRFieldDescr& field : mixedFields) {
            QVERIFY(!array.isNull(r, field.name));
            QCOMPARE(int(array.get(r, field.name).isNull), 0);
        }
    }
}

void MDRData_test::textIsCopiedAndEndsWithNul()
{
    MixedArray array;
    QByteArray source = "first";
    MDRData* record = array.fresh(source);
    source.fill('x');
    const MDRVar value = array.get(record, "KeyLink");
    QCOMPARE(value.value.text.length, 5);
    QCOMPARE(std::strcmp(value.value.text.data, "first"), 0);
    // Shorter over longer, longer over shorter.
    array.set(record, "KeyLink", MDRValue::text("ab"));
    QCOMPARE(std::strcmp(array.get(record, "KeyLink").value.text.data, "ab"), 0);
    const QByteArray longText(100000, 'y');
    array.set(record, "KeyLink", MDRValue::text(longText));
    QCOMPARE(std::strcmp(array.get(record, "KeyLink").value.text.data, longText.constData()), 0);
}

void MDRData_test::textMayHoldNulsAndBeEmpty()
{
    MixedArray array;
    MDRData* record = array.fresh("");
    QVERIFY(!array.isNull(record, "KeyLink"));
    const MDRVar empty = array.get(record, "KeyLink");
    QCOMPARE(int(empty.isNull), 0);
    QCOMPARE(empty.value.text.length, 0);
    QVERIFY(!MDRValue::hasText(empty)); // empty is absent, though not null
    MDRVar bare = MDRValue::text("", 0);
    bare.value.text.data = nullptr;
    QCOMPARE(array.set(record, "text_", bare), int(mdr_Ok));
    QVERIFY(!array.isNull(record, "text_"));
    array.set(record, "text_", MDRValue::text("a\0b", 3));
    QCOMPARE(array.text(record, "text_"), QByteArray("a\0b", 3));
}

void MDRData_test::aNullWithAnyTypeStoresNull()
{
    MixedArray array;
    for (int type : {0, 1, 2, 5, 8, 9, 10, 11, 200}) {
        MDRData* record = array.fresh("key");
        array.set(record, "number", MDRValue::number(4));
        array.set(record, "data", MDRValue::text("blob"));
        for (const char* name : {"KeyLink", "number", "data", "flag"}) {
            MDRVar value = MDRValue::null();
            value.type = static_cast<std::uint8_t>(type);
            QCOMPARE(array.set(record, name, value), int(mdr_Ok));
            QVERIFY(array.isNull(record, name));
        }
    }
    // A value after the null is a value again.
    MDRData* record = array.fresh("key");
    array.set(record, "KeyLink", MDRValue::null());
    array.set(record, "KeyLink", MDRValue::text("k"));
    QCOMPARE(array.text(record), QByteArray("k"));
}

void MDRData_test::textKindsConvertAmongThemselves()
{
    MixedArray array;
    MDRData* record = MDARecNew(array.array);
    for (MDRType type : {mdr_TChar, mdr_TMemo, mdr_TBlob}) {
        for (const char* name : {"KeyLink", "text_", "data"}) {
            const QByteArray bytes = QByteArray(name) + QByteArray::number(type);
            QCOMPARE(array.set(record, name, MDRValue::text(bytes, type)), int(mdr_Ok));
            QCOMPARE(array.text(record, name), bytes);
            QCOMPARE(array.get(record, name).type, array.field(name)->type);
        }
    }
}

void MDRData_test::numbersConvertAmongThemselves_data()
{
    QTest::addColumn<double>("given");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<double>("stored");
    const auto row = [](double given, const char* field, double stored) {
        QTest::addRow("%g to %s", given, field) << given << QByteArray(field) << stored;
    };
    row(3, "flag", 1);
    row(-1, "flag", 1);
    row(0, "flag", 0);
    row(0, "small", 0);
    row(255, "small", 255);
    row(7, "number", 7);
    row(-2147483648.0, "number", -2147483648.0);
    row(2147483647.0, "number", 2147483647.0);
    row(-5, "time", -5);
}

void MDRData_test::numbersConvertAmongThemselves()
{
    QFETCH(double, given);
    QFETCH(QByteArray, field);
    QFETCH(double, stored);
    MixedArray array;
    MDRData* record = MDARecNew(array.array);
    const auto storedNow = [&] {
        const MDRVar value = array.get(record, field.constData());
        return value.type == mdr_TDouble ? value.value.real : value.value.number;
    };
    QCOMPARE(array.set(record, field.constData(), MDRValue::real(given)), int(mdr_Ok));
    QCOMPARE(storedNow(), stored);
    for (MDRType type : {mdr_TBool, mdr_TByte, mdr_TInt32}) {
        array.set(record, field.constData(), MDRValue::null());
        QCOMPARE(array.set(record, field.constData(), MDRValue::number(static_cast<int>(given), type)),
                 int(mdr_Ok));
        QCOMPARE(storedNow(), stored);
    }
}

void MDRData_test::anInvalidConversionIsRefusedAndChangesNothing_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("given");
    const auto row = [](const char* field, int type, double given) {
        QTest::addRow("%g of type %d to %s", given, type, field) << QByteArray(field) << type << given;
    };
    row("small", mdr_TInt32, 256);
    row("small", mdr_TInt32, -1);
    row("small", mdr_TDouble, 256);
    row("small", mdr_TDouble, -1);
    row("number", mdr_TDouble, 2147483648.0);
    row("number", mdr_TDouble, -2147483649.0);
    row("number", mdr_TDouble, std::numeric_limits<double>::quiet_NaN());
    row("number", mdr_TDouble, std::numeric_limits<double>::infinity());
    row("flag", mdr_TDouble, std::numeric_limits<double>::quiet_NaN());
    row("number", mdr_TNone, 1); // a value without a type is not a value
    row("time", mdr_TNone, 1);
    row("text_", mdr_TNone, 1);
    row("text_", mdr_TInt32, 1);
    row("text_", mdr_TDouble, 1);
    row("data", mdr_TBool, 1);
    row("number", mdr_TChar, 1);
    row("time", mdr_TMemo, 1);
    row("flag", mdr_TBlob, 1);
    row("number", 77, 1);
}

void MDRData_test::anInvalidConversionIsRefusedAndChangesNothing()
{
    QFETCH(QByteArray, field);
    QFETCH(int, type);
    QFETCH(double, given);
    MDRVar value =
        MDRValue::number(static_cast<int>(type == mdr_TDouble ? 0 : given), static_cast<MDRType>(type));
    if (type == mdr_TDouble)
        value = MDRValue::real(given);
    else if (MDRValue::isText(value))
        value = MDRValue::text("1", 1, static_cast<MDRType>(type));

    MixedArray array;
    MDRData* record = MDARecNew(array.array);
    array.set(record, "small", MDRValue::number(9));
    array.set(record, "number", MDRValue::number(9));
    array.set(record, "time", MDRValue::real(9));
    array.set(record, "flag", MDRValue::boolean(true));
    array.set(record, "text_", MDRValue::text("9"));
    array.set(record, "data", MDRValue::text("9"));
    QCOMPARE(array.set(record, field.constData(), value), int(mdr_TypeMismatch));
    const MDRVar now = array.get(record, field.constData());
    QCOMPARE(int(now.isNull), 0);
    if (MDRValue::isText(now))
        QCOMPARE(MDRValue::copy(now), QByteArray("9"));
    else if (now.type == mdr_TDouble)
        QCOMPARE(now.value.real, 9.0);
    else
        QCOMPARE(now.value.number, now.type == mdr_TBool ? 1 : 9);
}

void MDRData_test::malformedTextsAreRefused()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    QCOMPARE(array.set(record, "KeyLink", MDRValue::text("x", -1)), int(mdr_Invalid));
    MDRVar value = MDRValue::text("x", 1);
    value.value.text.data = nullptr;
    QCOMPARE(array.set(record, "KeyLink", value), int(mdr_Invalid));
    QCOMPARE(array.text(record), QByteArray("key"));
}

void MDRData_test::widthsAdviseOnly()
{
    MixedArray array;
    const QByteArray wide(500, 'w');
    QCOMPARE(array.text(array.fresh(wide)), wide);
}

void MDRData_test::textsOfTheSameRecordMayBeCopiedWithinIt()
{
    MixedArray array;
    MDRData* record = array.fresh("0123456789");
    // A pointer into the record as the source: of the same field, of a field that fits, of one that must
    // move.
    MDRVar inside = array.get(record, "KeyLink");
    inside.value.text = {4, inside.value.text.data + 3};
    array.set(record, "KeyLink", inside);
    QCOMPARE(array.text(record), QByteArray("3456"));
    const QByteArray large(5000, 'a');
    array.set(record, "KeyLink", MDRValue::text(large));
    array.set(record, "text_", array.get(record, "KeyLink"));
    QCOMPARE(array.text(record, "text_"), large);
    array.set(record, "data", array.get(record, "text_"));
    QCOMPARE(array.text(record, "data"), large);
    QCOMPARE(array.text(record, "KeyLink"), large);
}

void MDRData_test::manyChangesOfTextsKeepAllTheOthers()
{
    MixedArray array;
    MDRData* record = array.add("constant");
    array.set(record, "number", MDRValue::number(11));
    QByteArray memo;
    for (int i = 0; i < 2000; ++i) {
        memo = QByteArray((i * 37) % 301, static_cast<char>('a' + i % 26));
        array.set(record, "text_", MDRValue::text(memo));
        const QByteArray blob((i * 53) % 199, static_cast<char>('A' + i % 26));
        if (i % 5 == 0)
            array.set(record, "data", MDRValue::null());
        else
            array.set(record, "data", MDRValue::text(blob, mdr_TBlob));
        QCOMPARE(array.text(record, "text_"), memo);
        QCOMPARE(array.text(record, "data"), i % 5 == 0 ? QByteArray() : blob);
        QCOMPARE(array.text(record), QByteArray("constant"));
        QCOMPARE(array.get(record, "number").value.number, 11);
    }
}

void MDRData_test::postedRecordsKeepLittleIdleRoom()
{
    MixedArray array;
    const auto idle = [](const MDRData* record) {
        return record->body->textCapacity - record->body->textUsed;
    };
    const QByteArray large(50000, 'l');
    for (int i = 0; i < 20; ++i) {
        const MDRData* record = array.add("key", "text_", MDRValue::text(large));
        QVERIFY(idle(record) <= 64 + 4096);
    }
    // A small one after many large ones: it was allocated for a large one, and releases the excess.
    MDRData* small = array.fresh("key");
    QVERIFY(idle(small) > 10000);
    array.post(small);
    QVERIFY(idle(small) <= 64 + 4);
    MDRData* edited = MDARecEdit(small);
    QCOMPARE(idle(edited), 0U);
    array.set(edited, "text_", MDRValue::text(large));
    array.post(edited);
    QVERIFY(idle(small) <= 64 + 4096);
    // Space of replaced texts is released at the next edit.
    array.set(small, "text_", MDRValue::text("s"));
    array.post(MDARecEdit(small));
    QVERIFY(small->body->textCapacity < 100);
    // Texts that grow gradually do not move at each step.
    int moves = 0;
    MDRData* growing = array.add("grows");
    for (int length = 1; length < 2000; ++length) {
        const MDRData::Body* before = growing->body;
        const QByteArray text(length, 'g');
        array.set(growing, "text_", MDRValue::text(text));
        moves += growing->body != before ? 1 : 0;
    }
    QVERIFY(moves > 0 && moves < 2000);
}

void MDRData_test::marksAreIndependentOfValues()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    QVERIFY(!array.isMarked(record, "KeyLink")); // a value alone is not marked
    QCOMPARE(MDRSetUser(array.field("number"), record, 1), int(mdr_Ok));
    QVERIFY(array.isMarked(record, "number"));
    QVERIFY(array.isNull(record, "number"));
    array.set(record, "number", MDRValue::number(3));
    array.set(record, "number", MDRValue::null());
    QVERIFY(array.isMarked(record, "number"));
    QCOMPARE(MDRSetUser(array.field("number"), record, 0), int(mdr_Ok));
    QVERIFY(!array.isMarked(record, "number"));
    // A record without any value takes marks too.
    MDRData* bare = MDARecNew(array.array);
    QCOMPARE(MDRSetUser(array.field("text_"), bare, 1), int(mdr_Ok));
    QVERIFY(array.isMarked(bare, "text_"));
    QVERIFY(!array.isMarked(bare, "KeyLink"));
}

void MDRData_test::flagsAreReplacedNotAdded()
{
    MixedArray array;
    MDRData* record = MDARecNew(array.array);
    QCOMPARE(MDRSetFlags(record, ROW_INSERT), int(mdr_Ok));
    QCOMPARE(MDRSetFlags(record, ROW_DELETE), int(mdr_Ok));
    QCOMPARE(int(record->flags), int(ROW_DELETE));
    QCOMPARE(MDRSetFlags(record, 0), int(mdr_Ok));
    QCOMPARE(int(record->flags), 0);
    QCOMPARE(MDRSetFlags(nullptr, 1), int(mdr_Invalid));
}

void MDRData_test::handlesWorkOnRecordsOfOtherArraysByPlaceAndType()
{
    const MDRFieldDescr fields[] = {{"Other", 0, mdr_TChar}, {"flag", 0, mdr_TInt32}};
    CMDArray other;
    MDACreate(&other.array, 0);
    MDAFldAdd(other.array, 2, fields);
    MDRData* record = MDARecNew(other.array);

    MixedArray array;
    const MDRVar value = MDRValue::text("by place");
    QCOMPARE(MDRSetVal(array.field("KeyLink"), record, &value), int(mdr_Ok)); // the same ordinal and type
    MDRVar read;
    QCOMPARE(MDRGetVal(MDRFldByNum(other.array, 0), record, &read), int(mdr_Ok));
    QCOMPARE(MDRValue::copy(read), QByteArray("by place"));

    bool answer = true;
    QCOMPARE(MDRGetVal(array.field("flag"), record, &read), int(mdr_TypeMismatch)); // of another type
    QCOMPARE(int(read.type), int(mdr_TNone));
    QCOMPARE(MDRSetVal(array.field("flag"), record, &value), int(mdr_TypeMismatch));
    QCOMPARE(MDRSetUser(array.field("flag"), record, 1), int(mdr_TypeMismatch));
    QCOMPARE(MDRGetVal(array.field("time"), record, &read), int(mdr_Invalid)); // beyond its fields
    QCOMPARE(MDRIsUser(array.field("time"), record, &answer), int(mdr_Invalid));
    QVERIFY(!answer);
    QCOMPARE(MDRIsNull(array.field("time"), record, &answer), int(mdr_Invalid));
    QVERIFY(answer);
}

void MDRData_test::badHandlesAreAnsweredByCodes()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    const MDRField* field = array.field("KeyLink");
    MDRVar value = MDRValue::text("x");
    bool answer = false;
    QCOMPARE(MDRSetVal(nullptr, record, &value), int(mdr_Invalid));
    QCOMPARE(MDRSetVal(field, nullptr, &value), int(mdr_Invalid));
    QCOMPARE(MDRSetVal(field, record, nullptr), int(mdr_Invalid));
    QCOMPARE(MDRGetVal(field, record, nullptr), int(mdr_Invalid));
    QCOMPARE(MDRGetVal(field, nullptr, &value), int(mdr_Invalid));
    QCOMPARE(MDRSetUser(nullptr, record, 1), int(mdr_Invalid));
    QCOMPARE(MDRIsUser(field, record, nullptr), int(mdr_Invalid));
    QCOMPARE(MDRIsNull(field, record, nullptr), int(mdr_Invalid));
    QCOMPARE(MDRIsNull(nullptr, record, &answer), int(mdr_Invalid));
    // A deleted record and one that was never filled have no fields at all.
    MDRData alone;
    QCOMPARE(MDRSetVal(field, &alone, &value), int(mdr_Invalid));
    MDARecDel(record);
    QCOMPARE(MDRGetVal(field, record, &value), int(mdr_Invalid));
    QCOMPARE(MDRSetVal(field, record, &value), int(mdr_Invalid));
}

void MDRData_test::readingAMissingFieldOnlyClearsTheType()
{
    MixedArray array;
    MDRData* record = array.add("key");
    MDRVar value = MDRValue::number(1234);
    value.isNull = 7;
    array.GetVal(record, "nowhere", value);
    QCOMPARE(int(value.type), 0);
    QCOMPARE(int(value.isNull), 7);
    QCOMPARE(value.value.number, 1234);
    value.type = mdr_TInt32;
    QCOMPARE(MDRGetVal(nullptr, record, &value), int(mdr_Invalid));
    QCOMPARE(int(value.type), 0);
    QCOMPARE(int(value.isNull), 7);
    QCOMPARE(value.value.number, 1234);
}

QTEST_APPLESS_MAIN(MDRData_test)
#include "MDRData_test.moc"
