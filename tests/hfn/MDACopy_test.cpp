#include "ArrayTools.h"

#include <QTest>

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
    void appendedRecordsStandBehindThoseThatAreThere();
    void appendedValuesComeWithoutFlagsAndMarks();
    void appendedValuesOfOtherTypesAreConverted();
    void textsThatWereReplacedDoNotComeAlong();
    void onlyWhatTheFirstKeySeesIsAppended();
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
    // Records posted later come after them.
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
    // The fields of a key are resolved again: here they have other positions.
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
    QCOMPARE(copy.order(1), QByteArray("b c a")); // only the order of entry is left
    const MDRVar value = MDRValue::number(1);
    QVERIFY(MDARecSeekV(copy.array, 1, &value, 0) == nullptr);
    // They are restored with the field.
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

namespace
{
/// mixedFields and one more.
class WiderArray : public MixedArray
{
public:
    WiderArray()
    {
        const MDRFieldDescr extra = {"extra", 0, mdr_TChar};
        MDAFldAdd(array, 1, &extra);
    }
};
} // namespace

void MDACopy_test::appendedRecordsStandBehindThoseThatAreThere()
{
    MixedArray source({"KeyLink"});
    for (const char* key : {"c", "a", "b"})
        source.add(key);
    WiderArray wider;
    wider.KeyAdd("KeyLink:0x4", 0);
    MDRData* first = wider.add("aa");
    QCOMPARE(int(MDARecsWith(wider.array, "KeyLink", "b").count), 0);
    QCOMPARE(MDARecsAppend(wider.array, source.array), int(mdr_Ok));
    QCOMPARE(wider.order(0), QByteArray("aa a b c")); // the source's first key says the order
    QCOMPARE(wider.order(1), QByteArray("c b aa a"));
    QCOMPARE(MDARec(wider.array, 0, 0), first);
    QCOMPARE(int(MDARecsWith(wider.array, "KeyLink", "b").count), 1);
    QCOMPARE(source.order(), QByteArray("a b c"));
    // Fields that the source does not have are null and can be set.
    MDRData* last = MDARec(wider.array, 0, 3);
    QCOMPARE(MDARecArr(last), wider.array);
    QVERIFY(wider.isNull(last, "extra"));
    const QByteArray text(100, 'x');
    QCOMPARE(wider.set(last, "extra", MDRValue::text(text)), int(mdr_Ok));
    QCOMPARE(wider.text(last, "extra"), text);
    QCOMPARE(wider.text(last), QByteArray("c"));
}

void MDACopy_test::appendedValuesComeWithoutFlagsAndMarks()
{
    MixedArray source;
    MDRData* record = source.fresh("a");
    source.SetValF(record, "text_", MDRValue::text("long"));
    source.SetValF(record, "flag", MDRValue::boolean(true));
    source.SetValF(record, "small", MDRValue::number(200));
    source.SetValF(record, "number", MDRValue::number(-5));
    source.SetValF(record, "time", MDRValue::real(1.5));
    MDRSetFlags(record, ROW_UPDATE);
    const auto blob = std::make_shared<TestBlob>("bytes");
    QCOMPARE(MDRSetBlobSource(source.field("data"), record, 5, blob), int(mdr_Ok));
    source.post(record);
    WiderArray wider;
    QCOMPARE(MDARecsAppend(wider.array, source.array), int(mdr_Ok));

    const MDRData* copy = MDARec(wider.array, 0, 0);
    QCOMPARE(int(copy->flags), 0);
    for (int i = 0; i < mixedCount; ++i)
        QVERIFY2(!wider.isMarked(copy, mixedFields[i].name), mixedFields[i].name);
    QVERIFY(source.isMarked(record, "text_"));
    QCOMPARE(wider.text(copy, "text_"), QByteArray("long"));
    QCOMPARE(wider.get(copy, "flag").value.number, 1);
    QCOMPARE(wider.get(copy, "small").value.number, 200);
    QCOMPARE(wider.get(copy, "number").value.number, -5);
    QCOMPARE(wider.get(copy, "time").value.real, 1.5);
    QCOMPARE(blob->reads, 0); // it stays in the store until it is read
    QCOMPARE(wider.text(copy, "data"), QByteArray("bytes"));
    source.set(record, "text_", MDRValue::text("else"));
    QCOMPARE(wider.text(copy, "text_"), QByteArray("long"));
}

void MDACopy_test::appendedValuesOfOtherTypesAreConverted()
{
    const MDRFieldDescr fields[] = {{"a", 0, mdr_TMemo}, {"b", 0, mdr_TInt32}, {"c", 0, mdr_TChar}};
    CMDArray source;
    MDACreate(&source.array, 0);
    source.KeyAdd("", 0);
    MDAFldAdd(source.array, 3, fields);
    MDRData* record = MDARecNew(source.array);
    source.SetValF(record, "a", MDRValue::text("key"));
    source.SetValF(record, "b", MDRValue::number(7));
    source.SetValF(record, "c", MDRValue::text("no number"));
    source.RecPost(record);

    MixedArray mixed;
    QCOMPARE(MDARecsAppend(mixed.array, source.array), int(mdr_Ok));
    const MDRData* copy = MDARec(mixed.array, 0, 0);
    QCOMPARE(mixed.text(copy), QByteArray("key"));
    QCOMPARE(mixed.get(copy, "flag").value.number, 1);
    QVERIFY(mixed.isNull(copy, "small"));
    QVERIFY(!mixed.isMarked(copy, "KeyLink"));
    // Fields that the destination does not have are not copied.
    MixedArray wide;
    wide.add("wide", "text_", MDRValue::text("left behind"));
    CMDArray narrow;
    MDACreate(&narrow.array, 0);
    narrow.KeyAdd("", 0);
    MDAFldAdd(narrow.array, 1, mixedFields);
    QCOMPARE(MDARecsAppend(narrow.array, wide.array), int(mdr_Ok));
    QCOMPARE(MixedArray::orderOf(narrow.array), QByteArray("wide"));
}

void MDACopy_test::textsThatWereReplacedDoNotComeAlong()
{
    MixedArray source;
    MDRData* record = source.add("a", "text_", MDRValue::text("short"));
    const QByteArray longer(300, 'y');
    source.set(record, "text_", MDRValue::text(longer)); // after the former one
    source.set(record, "KeyLink", MDRValue::null());
    MixedArray copy;
    QCOMPARE(MDARecsAppend(copy.array, source.array), int(mdr_Ok));
    const MDRData* appended = MDARec(copy.array, 0, 0);
    QVERIFY(copy.isNull(appended, "KeyLink"));
    QCOMPARE(copy.text(appended, "text_"), longer);
}

void MDACopy_test::onlyWhatTheFirstKeySeesIsAppended()
{
    MixedArray keyless({});
    keyless.add("a");
    MixedArray copy;
    QCOMPARE(MDARecsAppend(copy.array, keyless.array), int(mdr_Ok));
    QCOMPARE(copy.RecCount(), 0);
    MixedArray source;
    source.fresh("never posted");
    MDRData* posted = source.add("posted");
    source.set(MDARecEdit(posted), "KeyLink", MDRValue::text("edited"));
    QCOMPARE(MDARecsAppend(copy.array, source.array), int(mdr_Ok));
    QCOMPARE(copy.order(), QByteArray("posted"));
    QCOMPARE(MDARecsAppend(copy.array, copy.array), int(mdr_Invalid));
    QCOMPARE(MDARecsAppend(copy.array, nullptr), int(mdr_Invalid));
    QCOMPARE(MDARecsAppend(nullptr, source.array), int(mdr_Invalid));
}

QTEST_APPLESS_MAIN(MDACopy_test)
#include "MDACopy_test.moc"
