#include "ArrayTools.h"

#include <QtTest>

class MDACopy_test : public QObject
{
    Q_OBJECT

private slots:
    void copiesFieldsAndRecordsInOrderOfEntry();
    void replacesWhatWasThere();
    void withFlag0OnlyFieldsCome();
    void aDestinationWithKeysKeepsThem();
    void aDestinationWithoutKeysTakesTheSources();
    void keyFieldsThatAreGoneDropOut();
    void valuesFlagsAndMarksComeAlong();
    void theCopyIsIndependent();
    void onlyPostedRecordsAreCopied();
    void recordsBroughtByAddedFieldsAreWide();
    void nullAndTheSameArrayAreRefused();
};

void MDACopy_test::copiesFieldsAndRecordsInOrderOfEntry()
{
    MixedArray source({"KeyLink"});
    for (const char* key : {"c", "a", "b"})
        source.add(key);
    CMDArray copy;
    MDACreate(&copy.array, 0);
    copy.KeyAdd("", 0);
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(MDAFldCount(copy.array), mixedCount);
    QCOMPARE(MixedArray::orderOf(copy.array), QByteArray("c a b"));
    QCOMPARE(MDAKeyCount(copy.array), 1);
    for (const MDRData* record : MDARecsByEntry(copy.array))
        QCOMPARE(MDARecArr(record), copy.array);
    // Records posted later stand behind them.
    MixedArray::orderOf(copy.array);
    MDRData* late = MDARecNew(copy.array);
    copy.SetValF(late, "KeyLink", MDRValue::text("0"));
    copy.RecPost(late);
    QCOMPARE(MixedArray::orderOf(copy.array), QByteArray("c a b 0"));
}

void MDACopy_test::replacesWhatWasThere()
{
    MixedArray source({"KeyLink"});
    source.add("new");
    MixedArray copy({"KeyLink"});
    MDRData* old = copy.add("old");
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(copy.order(), QByteArray("new"));
    QVERIFY(MDARecArr(old) == nullptr);
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok)); // again: not twice
    QCOMPARE(copy.order(), QByteArray("new"));
}

void MDACopy_test::withFlag0OnlyFieldsCome()
{
    MixedArray source({"KeyLink", ""});
    source.add("a");
    MixedArray copy({});
    MDRData* old = copy.add("old");
    const MDRFieldDescr extra = {"extra", 0, mdr_TInt32};
    MDAFldAdd(copy.array, 1, &extra);
    QCOMPARE(MDACopy(copy.array, source.array, 0), int(mdr_Ok));
    QCOMPARE(MDAFldCount(copy.array), mixedCount);
    QVERIFY(copy.field("extra") == nullptr);
    QCOMPARE(MDAKeyCount(copy.array), 2);
    QCOMPARE(copy.RecCount(), 0);
    QVERIFY(MDARecsByEntry(copy.array).empty());
    QVERIFY(MDARecArr(old) == nullptr);
}

void MDACopy_test::aDestinationWithKeysKeepsThem()
{
    MixedArray source({"KeyLink"});
    for (const char* key : {"c", "a", "b"})
        source.add(key);
    MixedArray copy({"KeyLink:0x4", ""});
    copy.add("old");
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(MDAKeyCount(copy.array), 2);
    QCOMPARE(copy.order(0), QByteArray("c b a"));
    QCOMPARE(copy.order(1), QByteArray("c a b"));
    copy.add("bb");
    QCOMPARE(copy.order(0), QByteArray("c bb b a"));
    // The fields of a key are looked up anew: here they stand elsewhere.
    const MDRFieldDescr fields[] = {{"text_", 0, mdr_TMemo}, {"KeyLink", 0, mdr_TChar}};
    CMDArray turned;
    MDACreate(&turned.array, 0);
    MDAFldAdd(turned.array, 2, fields);
    for (const char* key : {"1", "3", "2"}) {
        MDRData* record = MDARecNew(turned.array);
        turned.SetValF(record, "KeyLink", MDRValue::text(key));
        turned.RecPost(record);
    }
    QCOMPARE(MDACopy(copy.array, turned.array, 1), int(mdr_Ok));
    QCOMPARE(copy.order(0), QByteArray("3 2 1"));
    MDRData* moved = copy.seek(0, "1");
    QVERIFY(moved != nullptr);
    copy.set(moved, "KeyLink", MDRValue::text("4"));
    QCOMPARE(copy.order(0), QByteArray("4 3 2"));
}

void MDACopy_test::aDestinationWithoutKeysTakesTheSources()
{
    MixedArray source({"KeyLink:0x4", "number"});
    source.add("a", "number", MDRValue::number(2));
    source.add("b", "number", MDRValue::number(1));
    CMDArray copy;
    MDACreate(&copy.array, 0);
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(MDAKeyCount(copy.array), 2);
    QCOMPARE(MixedArray::orderOf(copy.array, 0), QByteArray("b a"));
    QCOMPARE(MixedArray::orderOf(copy.array, 1), QByteArray("b a"));
    MDRData* record = MDARec(copy.array, 1, 0);
    const MDRVar value = MDRValue::number(9);
    QCOMPARE(MDRSetVal(MDRFldByName(copy.array, "number"), record, &value), int(mdr_Ok));
    QCOMPARE(MixedArray::orderOf(copy.array, 1), QByteArray("a b"));
}

void MDACopy_test::keyFieldsThatAreGoneDropOut()
{
    const MDRFieldDescr fields[] = {{"KeyLink", 0, mdr_TChar}};
    CMDArray narrow;
    MDACreate(&narrow.array, 0);
    MDAFldAdd(narrow.array, 1, fields);
    for (const char* key : {"b", "c", "a"}) {
        MDRData* record = MDARecNew(narrow.array);
        narrow.SetValF(record, "KeyLink", MDRValue::text(key));
        narrow.RecPost(record);
    }
    MixedArray copy({"number;KeyLink", "number"});
    QCOMPARE(MDACopy(copy.array, narrow.array, 1), int(mdr_Ok));
    QCOMPARE(copy.order(0), QByteArray("a b c"));
    QCOMPARE(copy.order(1), QByteArray("b c a")); // nothing left but the order of entry
    const MDRVar value = MDRValue::number(1);
    QVERIFY(MDARecSeekV(copy.array, 1, &value, 0) == nullptr);
    // They come back with the field.
    MixedArray source;
    source.add("x", "number", MDRValue::number(2));
    source.add("y", "number", MDRValue::number(1));
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(copy.order(1), QByteArray("y x"));
}

void MDACopy_test::valuesFlagsAndMarksComeAlong()
{
    MixedArray source;
    MDRData* record = source.fresh("a");
    source.set(record, "text_", MDRValue::text("memo"));
    source.set(record, "time", MDRValue::real(1.5));
    source.set(record, "data", MDRValue::text("\0\1", 2, mdr_TBlob));
    MDRSetUser(source.field("time"), record, 1);
    MDRSetFlags(record, ROW_UPDATE);
    source.post(record);
    source.post(MDARecNew(source.array));

    MixedArray copy;
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    const MDRData* twin = MDARec(copy.array, 0, 0);
    QCOMPARE(copy.text(twin), QByteArray("a"));
    QCOMPARE(copy.text(twin, "text_"), QByteArray("memo"));
    QCOMPARE(copy.get(twin, "time").value.real, 1.5);
    QCOMPARE(copy.text(twin, "data"), QByteArray("\0\1", 2));
    QVERIFY(copy.isNull(twin, "number"));
    QVERIFY(copy.isMarked(twin, "time"));
    QVERIFY(!copy.isMarked(twin, "text_"));
    QCOMPARE(int(twin->flags), int(ROW_UPDATE));
    const MDRData* bare = MDARec(copy.array, 0, 1);
    QVERIFY(bare != nullptr && copy.isNull(bare, "KeyLink"));
}

void MDACopy_test::theCopyIsIndependent()
{
    MixedArray copy;
    {
        MixedArray source;
        source.add("a", "text_", MDRValue::text("t"));
        QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
        source.set(MDARec(source.array, 0, 0), "text_", MDRValue::text("changed"));
        QCOMPARE(copy.text(MDARec(copy.array, 0, 0), "text_"), QByteArray("t"));
    }
    QCOMPARE(copy.text(MDARec(copy.array, 0, 0), "text_"), QByteArray("t"));
}

void MDACopy_test::onlyPostedRecordsAreCopied()
{
    MixedArray source;
    MDRData* edited = MDARecEdit(source.add("a"));
    source.set(edited, "KeyLink", MDRValue::text("edited"));
    source.fresh("fresh");
    MDARecDel(source.add("deleted"));
    MixedArray copy;
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(copy.order(), QByteArray("a"));
}

void MDACopy_test::recordsBroughtByAddedFieldsAreWide()
{
    MixedArray source;
    source.add("a");
    const MDRFieldDescr extra = {"extra", 0, mdr_TInt32};
    MDAFldAdd(source.array, 1, &extra);
    MixedArray copy;
    QCOMPARE(MDACopy(copy.array, source.array, 1), int(mdr_Ok));
    MDRData* twin = MDARec(copy.array, 0, 0);
    QVERIFY(copy.isNull(twin, "extra"));
    QCOMPARE(copy.set(twin, "extra", MDRValue::number(3)), int(mdr_Ok));
    QCOMPARE(copy.text(twin), QByteArray("a"));
}

void MDACopy_test::nullAndTheSameArrayAreRefused()
{
    MixedArray array;
    array.add("a");
    QCOMPARE(MDACopy(array.array, array.array, 1), int(mdr_Invalid));
    QCOMPARE(MDACopy(array.array, nullptr, 1), int(mdr_Invalid));
    QCOMPARE(MDACopy(nullptr, array.array, 1), int(mdr_Invalid));
    QCOMPARE(array.order(), QByteArray("a"));
}

QTEST_APPLESS_MAIN(MDACopy_test)
#include "MDACopy_test.moc"
