#include "ArrayTools.h"

#include <ctime>
#include <limits>
#include <map>
#include <QTest>

/// Keys of record arrays: ordering, seeking and positions.
class RecordOrder_test : public QObject
{
    Q_OBJECT

private slots:
    void withoutAKeyThereAreNoRecords();
    void theEmptyKeyIsTheOrderOfEntry();
    void textsStandByTheirBytesAsUnsigned();
    void numbersStandByValue();
    void doublesStandByValueAndWhatIsNoNumberFirst();
    void nullIsTheLeastValue();
    void fallingTurnsTheWholeOrderAround();
    void severalFieldsDecideInTheirOrder();
    void equalOnesStandInOrderOfEntry();
    void everyKeySeesAllRecords();
    void aKeyAddedLaterOrdersWhatIsThere();
    void keysMoveDownWhenOneIsRemoved();
    void theDefaultKeyOfAModelTableRemainsAlone();
    void seekFindsTheFirstOfEqualOnes();
    void seekWantsExactlyTheKeysValues();
    void seekTakesNumbersOfAnyKind();
    void seekOfWhatCannotBeFoundGivesNull();
    void seekOverSeveralFieldsTakesValuesSideBySide();
    void positionsFollowTheKey();
    void insertionStaysNearThatOfABalancedTree();
    void positionsOutOfRangeGiveNull();
    void malformedKeysAreRefused_data();
    void malformedKeysAreRefused();
    void moreThan255KeysAreRefused();
};

void RecordOrder_test::withoutAKeyThereAreNoRecords()
{
    MixedArray array({});
    QVERIFY(array.add("a") != nullptr);
    QCOMPARE(array.RecCount(), 0);
    QCOMPARE(MDAKeyCount(array.array), 0);
    QVERIFY(MDARec(array.array, 0, 0) == nullptr);
    QCOMPARE(MDAKeyRecCount(array.array, 0), 0);
    QCOMPARE(MDAKeyRecCount(array.array, -1), 0);
    QCOMPARE(MDAKeyRecCount(nullptr, 0), 0);
    // The record is still in the array, and a key shows it.
    QCOMPARE(MDARecsByEntry(array.array).size(), std::size_t(1));
    array.KeyAdd("", 0);
    QCOMPARE(array.RecCount(), 1);
}

void RecordOrder_test::theEmptyKeyIsTheOrderOfEntry()
{
    MixedArray array({""});
    for (const char* key : {"c", "a", "b", "a"})
        array.add(key);
    QCOMPARE(array.order(), QByteArray("c a b a"));
}

void RecordOrder_test::textsStandByTheirBytesAsUnsigned()
{
    MixedArray array({"KeyLink"});
    for (const char* key : {"b", "\xff", "a", "\x80", "ab", "B", "a\x7f", "1"})
        array.add(key);
    QCOMPARE(array.order(), QByteArray("1 B a ab a\x7f b \x80 \xff"));
    MixedArray nuls({"text_"});
    nuls.add("long", "text_", MDRValue::text("a\0b", 3));
    nuls.add("short", "text_", MDRValue::text("a\0", 2));
    nuls.add("bare", "text_", MDRValue::text("a", 1));
    nuls.add("empty", "text_", MDRValue::text("", 0));
    QCOMPARE(nuls.order(), QByteArray("empty bare short long"));
}

void RecordOrder_test::numbersStandByValue()
{
    MixedArray array({"number"});
    for (int number : {10, -1, 9, std::numeric_limits<int>::min(), 0, std::numeric_limits<int>::max()})
        array.add(QByteArray::number(number), "number", MDRValue::number(number));
    QCOMPARE(array.order(), QByteArray("-2147483648 -1 0 9 10 2147483647"));
}

void RecordOrder_test::doublesStandByValueAndWhatIsNoNumberFirst()
{
    MixedArray array({"time"});
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    array.add("ten", "time", MDRValue::real(10));
    array.add("nan1", "time", MDRValue::real(nan));
    array.add("inf", "time", MDRValue::real(infinity));
    array.add("half", "time", MDRValue::real(0.5));
    array.add("-inf", "time", MDRValue::real(-infinity));
    array.add("nan2", "time", MDRValue::real(-nan));
    array.add("zero", "time", MDRValue::real(0.0));
    array.add("-zero", "time", MDRValue::real(-0.0));
    QCOMPARE(array.order(), QByteArray("nan1 nan2 -inf zero -zero half ten inf"));
}

void RecordOrder_test::nullIsTheLeastValue()
{
    for (const char* name : {"text_", "number", "time"}) {
        MixedArray array({name});
        const MDRVar least = qstrcmp(name, "text_") == 0 ? MDRValue::text("", 0)
                             : qstrcmp(name, "number") == 0
                                 ? MDRValue::number(std::numeric_limits<int>::min())
                                 : MDRValue::real(-1e300);
        array.add("least", name, least);
        array.add("null");
        array.add("marked");
        QCOMPARE(array.order(), QByteArray("null marked least"));
    }
    // A record without any value at all.
    MixedArray array({"KeyLink"});
    array.add("a");
    MDRData* bare = array.post(MDARecNew(array.array));
    QCOMPARE(MDARec(array.array, 0, 0), bare);
}

void RecordOrder_test::fallingTurnsTheWholeOrderAround()
{
    MixedArray array({"number:0x4"});
    array.add("two", "number", MDRValue::number(2));
    array.add("null");
    array.add("three", "number", MDRValue::number(3));
    array.add("deux", "number", MDRValue::number(2));
    QCOMPARE(array.order(), QByteArray("three two deux null")); // equal ones keep the order of entry
    MixedArray decimal({"number:4"});
    decimal.add("1", "number", MDRValue::number(1));
    decimal.add("2", "number", MDRValue::number(2));
    QCOMPARE(decimal.order(), QByteArray("2 1"));
    MixedArray rising({"number:0x0"});
    rising.add("2", "number", MDRValue::number(2));
    rising.add("1", "number", MDRValue::number(1));
    QCOMPARE(rising.order(), QByteArray("1 2"));
}

void RecordOrder_test::severalFieldsDecideInTheirOrder()
{
    MixedArray array({"text_;time:0x4", "time;text_"});
    const auto add = [&](const char* key, const char* text, double time) {
        MDRData* record = array.fresh(key);
        array.set(record, "text_", MDRValue::text(text));
        array.set(record, "time", MDRValue::real(time));
        array.post(record);
    };
    add("b1", "b", 1);
    add("a1", "a", 1);
    add("a3", "a", 3);
    add("b2", "b", 2);
    add("a2", "a", 2);
    QCOMPARE(array.order(0), QByteArray("a3 a2 a1 b2 b1"));
    QCOMPARE(array.order(1), QByteArray("a1 b1 a2 b2 a3"));
}

void RecordOrder_test::equalOnesStandInOrderOfEntry()
{
    MixedArray array({"number"});
    for (const char* key : {"d", "a", "c", "b"})
        array.add(key, "number", MDRValue::number(5));
    QCOMPARE(array.order(), QByteArray("d a c b"));
    // Editing keeps the place in the order of entry.
    MDRData* edited = MDARecEdit(MDARec(array.array, 0, 1));
    array.set(edited, "text_", MDRValue::text("changed"));
    array.post(edited);
    QCOMPARE(array.order(), QByteArray("d a c b"));
}

void RecordOrder_test::everyKeySeesAllRecords()
{
    MixedArray array({"KeyLink", "number", ""});
    array.add("b");
    array.add("a");
    for (int key = 0; key < 3; ++key)
        QCOMPARE(MDAKeyRecCount(array.array, key), 2);
    MDARecDel(array.seek(0, "b"));
    for (int key = 0; key < 3; ++key)
        QCOMPARE(array.order(key), QByteArray("a"));
}

void RecordOrder_test::aKeyAddedLaterOrdersWhatIsThere()
{
    MixedArray array({});
    for (const char* key : {"c", "a", "d", "b"})
        array.add(key);
    QCOMPARE(array.KeyAdd("KeyLink:0x4", 0), int(mdr_Ok));
    QCOMPARE(array.order(0), QByteArray("d c b a"));
    QCOMPARE(array.KeyAdd("", 0), int(mdr_Ok));
    QCOMPARE(array.order(1), QByteArray("c a d b"));
    array.add("aa");
    QCOMPARE(array.order(0), QByteArray("d c b aa a"));
    QCOMPARE(array.order(1), QByteArray("c a d b aa"));
}

void RecordOrder_test::keysMoveDownWhenOneIsRemoved()
{
    MixedArray array({"", "KeyLink", "KeyLink:0x4"});
    for (const char* key : {"b", "a", "c"})
        array.add(key);
    QCOMPARE(MDAKeyDel(array.array, 3), int(mdr_Invalid));
    QCOMPARE(MDAKeyDel(array.array, -1), int(mdr_Invalid));
    QCOMPARE(MDAKeyDel(nullptr, 0), int(mdr_Invalid));
    QCOMPARE(MDAKeyDel(array.array, 1), int(mdr_Ok));
    QCOMPARE(MDAKeyCount(array.array), 2);
    QCOMPARE(array.order(0), QByteArray("b a c"));
    QCOMPARE(array.order(1), QByteArray("c b a"));
    QCOMPARE(MDAKeyDel(array.array, 0), int(mdr_Ok));
    QCOMPARE(array.order(0), QByteArray("c b a"));
    QCOMPARE(MDAKeyDel(array.array, 0), int(mdr_Ok));
    QCOMPARE(array.RecCount(), 0);
}

void RecordOrder_test::theDefaultKeyOfAModelTableRemainsAlone()
{
    MixedArray array({"", "time:0x4"});
    array.add("b");
    array.add("a");
    QCOMPARE(array.KeyAdd("KeyLink", 0), int(mdr_Ok));
    while (MDAKeyCount(array.array) > 1)
        QCOMPARE(MDAKeyDel(array.array, 0), int(mdr_Ok));
    QCOMPARE(array.order(), QByteArray("a b"));
    QVERIFY(array.seek(0, "b") != nullptr);
}

void RecordOrder_test::seekFindsTheFirstOfEqualOnes()
{
    MixedArray array({"text_"});
    for (const char* key : {"1", "2", "3"})
        array.add(key, "text_", MDRValue::text("same"));
    array.add("0", "text_", MDRValue::text("other"));
    QCOMPARE(array.text(array.seek(0, "same")), QByteArray("1"));
    MDARecDel(array.seek(0, "same"));
    QCOMPARE(array.text(array.seek(0, "same")), QByteArray("2"));
}

void RecordOrder_test::seekWantsExactlyTheKeysValues()
{
    MixedArray array({"KeyLink"});
    array.add("abc");
    QVERIFY(array.seek(0, "ab") == nullptr);
    QVERIFY(array.seek(0, "abcd") == nullptr);
    QVERIFY(array.seek(0, "ABC") == nullptr);
    QVERIFY(array.seek(0, "abc") != nullptr);
    for (MDRType type : {mdr_TChar, mdr_TMemo, mdr_TBlob}) {
        const MDRVar value = MDRValue::text("abc", 3, type);
        QVERIFY(MDARecSeekV(array.array, 0, &value, 0) != nullptr);
    }
    array.add("");
    QVERIFY(array.seek(0, "") != nullptr);
}

void RecordOrder_test::seekTakesNumbersOfAnyKind()
{
    MixedArray array({"number", "time"});
    MDRData* record = array.fresh("x");
    array.set(record, "number", MDRValue::number(1));
    array.set(record, "time", MDRValue::real(1.5));
    array.post(record);
    const auto found = [&](int key, const MDRVar& value) { return MDARecSeekV(array.array, key, &value, 0); };
    for (MDRType type : {mdr_TBool, mdr_TByte, mdr_TInt32})
        QCOMPARE(found(0, MDRValue::number(1, type)), record);
    QCOMPARE(found(0, MDRValue::real(1.0)), record);
    QVERIFY(found(0, MDRValue::real(1.5)) == nullptr);
    QCOMPARE(found(1, MDRValue::real(1.5)), record);
    QVERIFY(found(1, MDRValue::number(1)) == nullptr);
}

void RecordOrder_test::seekOfWhatCannotBeFoundGivesNull()
{
    MixedArray array({"KeyLink", "", "number"});
    array.add("a");
    array.post(MDARecNew(array.array)); // its KeyLink is null
    const MDRVar text = MDRValue::text("a");
    MDRVar value = text;
    QVERIFY(MDARecSeekV(array.array, 0, &value, 0) != nullptr);
    QVERIFY(MDARecSeekV(array.array, 1, &value, 0) == nullptr); // a key without fields
    QVERIFY(MDARecSeekV(array.array, 3, &value, 0) == nullptr); // no such key
    QVERIFY(MDARecSeekV(array.array, -1, &value, 0) == nullptr);
    QVERIFY(MDARecSeekV(array.array, 2, &value, 0) == nullptr); // a text for a number
    QVERIFY(MDARecSeekV(array.array, 0, nullptr, 0) == nullptr);
    QVERIFY(MDARecSeekV(nullptr, 0, &value, 0) == nullptr);
    value.isNull = 1;
    QVERIFY(MDARecSeekV(array.array, 0, &value, 0) == nullptr);
    value = MDRValue::null();
    QVERIFY(MDARecSeekV(array.array, 0, &value, 0) == nullptr);
    value = MDRValue::number(1);
    QVERIFY(MDARecSeekV(array.array, 0, &value, 0) == nullptr); // a number for a text
    value = MDRValue::number(1, mdr_TNone);
    QVERIFY(MDARecSeekV(array.array, 2, &value, 0) == nullptr);
    value = MDRValue::text("a", -1);
    QVERIFY(MDARecSeekV(array.array, 0, &value, 0) == nullptr);
    value = MDRValue::text(nullptr, 1);
    QVERIFY(MDARecSeekV(array.array, 0, &value, 0) == nullptr);
    MixedArray empty({"KeyLink"});
    QVERIFY(empty.seek(0, "a") == nullptr);
}

void RecordOrder_test::seekOverSeveralFieldsTakesValuesSideBySide()
{
    MixedArray array({"text_;time:0x4"});
    for (int i = 0; i < 30; ++i) {
        MDRData* record = array.fresh(QByteArray::number(i));
        const QByteArray text(1, static_cast<char>('a' + i % 3));
        array.set(record, "text_", MDRValue::text(text));
        array.set(record, "time", MDRValue::real(i / 3));
        array.post(record);
    }
    for (int i = 0; i < 30; ++i) {
        const QByteArray text(1, static_cast<char>('a' + i % 3));
        const MDRVar values[2] = {MDRValue::text(text), MDRValue::real(i / 3)};
        QCOMPARE(array.text(MDARecSeekV(array.array, 0, values, 0)), QByteArray::number(i));
    }
    const MDRVar missing[2] = {MDRValue::text("a"), MDRValue::real(10)};
    QVERIFY(MDARecSeekV(array.array, 0, missing, 0) == nullptr);
    const MDRVar half[2] = {MDRValue::text("a"), MDRValue::null()};
    QVERIFY(MDARecSeekV(array.array, 0, half, 0) == nullptr);
}

void RecordOrder_test::positionsFollowTheKey()
{
    MixedArray array({"number", "number:0x4"});
    constexpr int count = 3000;
    QVector<MDRData*> records(count);
    for (int i = 0; i < count; ++i) {
        const int number = i * 1009 % count; // each once, in no order
        records[number] = array.add(QByteArray::number(number), "number", MDRValue::number(number));
    }
    for (int i = 0; i < count; ++i) {
        QCOMPARE(MDARec(array.array, 0, i), records[i]);
        QCOMPARE(MDARecPos(array.array, 0, records[i]), i);
        QCOMPARE(MDARecPos(array.array, 1, records[i]), count - 1 - i);
    }
    for (int step : {-1, 7, 511, 512, 513, 1024, 2111}) {
        for (int i = 0, at = 0; i < count; ++i, at = (at + step + count) % count)
            QCOMPARE(MDARec(array.array, 0, at), records[at]);
    }
    QCOMPARE(MDARecPos(array.array, 2, records[0]), -1);
    QCOMPARE(MDARecPos(array.array, 0, nullptr), -1);
    QCOMPARE(MDARecPos(nullptr, 0, records[0]), -1);
    QCOMPARE(MDARecPos(array.array, 0, array.fresh("new")), -1);
    QCOMPARE(MDARecPos(array.array, 0, MDARecEdit(records[0])), -1);
    MixedArray other({"number"});
    QCOMPARE(MDARecPos(array.array, 0, other.add("foreign")), -1);
    MDARecDel(records[5]);
    QCOMPARE(MDARecPos(array.array, 0, records[5]), -1);
    QCOMPARE(MDARecPos(array.array, 0, records[6]), 5);
}

void RecordOrder_test::insertionStaysNearThatOfABalancedTree()
{
    // Sorting again or moving all others at each insertion would cost a hundred times as much.
    constexpr int count = 40000;
    const auto numberOf = [](int i) { return int(i * 7919LL % count); };
    std::clock_t start = std::clock(); // of this process: other processes do not count
    std::map<int, QByteArray> tree;
    for (int i = 0; i < count; ++i)
        tree.emplace(numberOf(i), "key");
    const std::clock_t ofTree = std::clock() - start;
    start = std::clock();
    MixedArray array({"number"});
    for (int i = 0; i < count; ++i)
        array.add("key", "number", MDRValue::number(numberOf(i)));
    const std::clock_t ofArray = std::clock() - start;
    QCOMPARE(array.RecCount(), count);
    if (ofArray > 25 * ofTree)
        QFAIL(qPrintable(QStringLiteral("%1 times a map").arg(ofArray / ofTree)));
}

void RecordOrder_test::positionsOutOfRangeGiveNull()
{
    MixedArray array;
    QVERIFY(MDARec(array.array, 0, 0) == nullptr);
    array.add("a");
    QVERIFY(MDARec(array.array, 0, 0) != nullptr);
    QVERIFY(MDARec(array.array, 0, 1) == nullptr);
    QVERIFY(MDARec(array.array, 0, -1) == nullptr);
    QVERIFY(MDARec(array.array, 1, 0) == nullptr);
    QVERIFY(MDARec(nullptr, 0, 0) == nullptr);
}

void RecordOrder_test::malformedKeysAreRefused_data()
{
    QTest::addColumn<QByteArray>("key");
    for (const char* key : {"nowhere", "KeyLink;", ";KeyLink", "KeyLink;;number", "KeyLink:", "KeyLink:x",
                            "KeyLink:0x4x", "KeyLink:0x8", "KeyLink:0x5", "data", " KeyLink", ":0x4", ";"})
        QTest::newRow(key) << QByteArray(key);
    QTest::newRow("too long") << QByteArray(384, 'k');
}

void RecordOrder_test::malformedKeysAreRefused()
{
    QFETCH(QByteArray, key);
    MixedArray array({""});
    array.add("a");
    QCOMPARE(array.KeyAdd(key.constData(), 0), int(mdr_Invalid));
    QCOMPARE(array.lastError, int(mdr_Invalid));
    QCOMPARE(MDAKeyCount(array.array), 1);
    MDRKeyDescr unended = {};
    std::memset(unended.fields, ';', sizeof unended.fields);
    QCOMPARE(MDAKeyAdd(array.array, 1, &unended), int(mdr_Invalid));
    const MDRKeyDescr good = {"KeyLink", 0};
    QCOMPARE(MDAKeyAdd(array.array, 2, &good), int(mdr_Invalid));
    QCOMPARE(MDAKeyAdd(array.array, 0, &good), int(mdr_Invalid));
    QCOMPARE(MDAKeyAdd(array.array, 1, nullptr), int(mdr_Invalid));
    QCOMPARE(MDAKeyAdd(nullptr, 1, &good), int(mdr_Invalid));
    QCOMPARE(MDAKeyAdd(array.array, 1, &good), int(mdr_Ok));
}

void RecordOrder_test::moreThan255KeysAreRefused()
{
    MixedArray array({});
    for (int i = 0; i < 255; ++i)
        QCOMPARE(array.KeyAdd("keylink", 0), int(mdr_Ok));
    QCOMPARE(array.KeyAdd("KeyLink", 0), int(mdr_Full));
    array.add("b");
    array.add("a");
    QCOMPARE(array.order(254), QByteArray("a b"));
}

QTEST_APPLESS_MAIN(RecordOrder_test)
#include "RecordOrder_test.moc"
