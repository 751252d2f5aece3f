#include "ArrayTools.h"

#include <QTest>

/// Records by the text of a field that is no key.
class FieldIndex_test : public QObject
{
    Q_OBJECT

private slots:
    void findsTheRecordsInOrderOfEntry();
    void followsPostingEditingSettingAndDeleting();
    void keepsTheOrderOfEntryWhenARecordComesBack();
    void nullIsNoTextButTheEmptyTextIsOne();
    void isRebuiltAfterClearingAndCopying();
    void servesSeveralFields();
    void unknownFieldsAndOtherKindsFindNothing();
    void findsTheRecordsWithoutValues();
    void followsWhatGetsAValueAndLosesIt();
};

static QByteArray keysWith(const MixedArray& array, const char* text, const char* field = "text_")
{
    QByteArray keys;
    for (const MDRData* record : MDARecsWith(array.array, field, text))
        keys += array.text(record);
    return keys;
}

void FieldIndex_test::findsTheRecordsInOrderOfEntry()
{
    MixedArray array({"KeyLink:0x4"});
    for (const char* key : {"c", "a", "d", "b"})
        array.add(key, "text_", MDRValue::text(*key == 'd' ? "other" : "same"));
    array.fresh("e"); // not posted: not found
    QCOMPARE(keysWith(array, "same"), QByteArray("cab"));
    QCOMPARE(keysWith(array, "other"), QByteArray("d"));
    QCOMPARE(keysWith(array, "SAME"), QByteArray());
    QCOMPARE(keysWith(array, "same", "TEXT_"), QByteArray("cab"));
    MixedArray keyless({});
    keyless.add("x", "text_", MDRValue::text("same"));
    QCOMPARE(keysWith(keyless, "same"), QByteArray("x"));
}

void FieldIndex_test::followsPostingEditingSettingAndDeleting()
{
    MixedArray array;
    MDRData* a = array.add("a", "text_", MDRValue::text("one"));
    QCOMPARE(keysWith(array, "one"), QByteArray("a"));
    MDRData* b = array.add("b", "text_", MDRValue::text("one"));
    QCOMPARE(keysWith(array, "one"), QByteArray("ab"));
    MDRData* edited = MDARecEdit(a);
    array.set(edited, "text_", MDRValue::text("two"));
    QCOMPARE(keysWith(array, "one"), QByteArray("ab"));
    array.post(edited);
    QCOMPARE(keysWith(array, "one"), QByteArray("b"));
    QCOMPARE(keysWith(array, "two"), QByteArray("a"));
    array.set(b, "text_", MDRValue::text("two"));
    QCOMPARE(keysWith(array, "one"), QByteArray());
    QCOMPARE(keysWith(array, "two"), QByteArray("ab"));
    array.set(a, "text_", MDRValue::null());
    QCOMPARE(keysWith(array, "two"), QByteArray("b"));
    MDARecDel(b);
    QCOMPARE(keysWith(array, "two"), QByteArray());
    QCOMPARE(MDARecsWith(array.array, "text_", "two").count, std::size_t(0));
}

void FieldIndex_test::keepsTheOrderOfEntryWhenARecordComesBack()
{
    MixedArray array;
    MDRData* records[5];
    for (int i = 0; i < 5; ++i)
        records[i] = array.add(QByteArray::number(i), "text_", MDRValue::text("t"));
    QCOMPARE(keysWith(array, "t"), QByteArray("01234"));
    array.set(records[2], "text_", MDRValue::text("elsewhere"));
    array.set(records[0], "text_", MDRValue::text("elsewhere"));
    QCOMPARE(keysWith(array, "elsewhere"), QByteArray("02"));
    array.set(records[2], "text_", MDRValue::text("t"));
    QCOMPARE(keysWith(array, "t"), QByteArray("1234"));
}

void FieldIndex_test::nullIsNoTextButTheEmptyTextIsOne()
{
    MixedArray array;
    array.add("null");
    array.add("empty", "text_", MDRValue::text(""));
    QCOMPARE(keysWith(array, ""), QByteArray("empty"));
    array.post(MDARecNew(array.array));
    QCOMPARE(keysWith(array, "", "KeyLink"), QByteArray());
}

void FieldIndex_test::isRebuiltAfterClearingAndCopying()
{
    MixedArray array;
    array.add("a", "text_", MDRValue::text("t"));
    QCOMPARE(keysWith(array, "t"), QByteArray("a"));
    MDAClearRec(array.array);
    QCOMPARE(keysWith(array, "t"), QByteArray());
    array.add("b", "text_", MDRValue::text("t"));
    QCOMPARE(keysWith(array, "t"), QByteArray("b"));
    MixedArray source;
    source.add("c", "text_", MDRValue::text("t"));
    source.add("d", "text_", MDRValue::text("t"));
    QCOMPARE(keysWith(source, "t"), QByteArray("cd"));
    QCOMPARE(MDACopy(array.array, source.array, 1), int(mdr_Ok));
    QCOMPARE(keysWith(array, "t"), QByteArray("cd"));
    // A field with this name at another position.
    const MDRFieldDescr fields[] = {{"text_", 0, mdr_TMemo}, {"KeyLink", 0, mdr_TChar}};
    CMDArray turned;
    MDACreate(&turned.array, 0);
    MDAFldAdd(turned.array, 2, fields);
    MDRData* record = MDARecNew(turned.array);
    turned.SetValF(record, "text_", MDRValue::text("t"));
    turned.RecPost(record);
    QCOMPARE(MDACopy(array.array, turned.array, 1), int(mdr_Ok));
    QCOMPARE(MDARecsWith(array.array, "text_", "t").count, std::size_t(1));
}

void FieldIndex_test::servesSeveralFields()
{
    MixedArray array({"KeyLink"});
    MDRData* a = array.add("a", "text_", MDRValue::text("x"));
    array.add("x", "text_", MDRValue::text("a"));
    QCOMPARE(keysWith(array, "x"), QByteArray("a"));
    QCOMPARE(keysWith(array, "x", "KeyLink"), QByteArray("x"));
    array.set(a, "KeyLink", MDRValue::text("b"));
    QCOMPARE(keysWith(array, "x"), QByteArray("b"));
    QCOMPARE(keysWith(array, "b", "KeyLink"), QByteArray("b"));
    QCOMPARE(keysWith(array, "a", "KeyLink"), QByteArray());
}

void FieldIndex_test::unknownFieldsAndOtherKindsFindNothing()
{
    MixedArray array;
    MDRData* record = array.fresh("a");
    array.set(record, "number", MDRValue::number(1));
    array.set(record, "data", MDRValue::text("t"));
    array.post(record);
    QCOMPARE(keysWith(array, "t", "nowhere"), QByteArray());
    QCOMPARE(keysWith(array, "1", "number"), QByteArray());
    QCOMPARE(keysWith(array, "t", "data"), QByteArray());
    QCOMPARE(MDARecsWith(array.array, "KeyLink", nullptr).count, std::size_t(0));
    QCOMPARE(MDARecsWith(array.array, nullptr, "a").count, std::size_t(0));
    QCOMPARE(MDARecsWith(nullptr, "KeyLink", "a").count, std::size_t(0));
}

static QByteArray keysWithout(const MixedArray& array, const char* fields)
{
    QByteArray keys;
    for (const MDRData* record : MDARecsWithout(array.array, fields))
        keys += array.text(record);
    return keys;
}

void FieldIndex_test::findsTheRecordsWithoutValues()
{
    MixedArray array({"KeyLink:0x4"});
    array.add("c");
    array.add("a", "text_", MDRValue::text("t"));
    array.add("d", "number", MDRValue::number(1));
    array.add("b");
    array.add("e", "text_", MDRValue::text("")); // the empty text is also a value
    QCOMPARE(keysWithout(array, "text_"), QByteArray("cdb"));
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("cb"));
    QCOMPARE(keysWithout(array, "TEXT_;NUMBER"), QByteArray("cb"));
    array.post(MDARecNew(array.array)); // a record without any value
    QCOMPARE(MDARecsWithout(array.array, "KeyLink").count, std::size_t(1));

    QCOMPARE(keysWithout(array, "text_;nowhere"), QByteArray());
    QCOMPARE(keysWithout(array, ""), QByteArray());
    QCOMPARE(MDARecsWithout(array.array, nullptr).count, std::size_t(0));
    QCOMPARE(MDARecsWithout(nullptr, "text_").count, std::size_t(0));
}

void FieldIndex_test::followsWhatGetsAValueAndLosesIt()
{
    MixedArray array;
    MDRData* a = array.add("a");
    MDRData* b = array.add("b");
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("ab"));
    MDRData* edited = MDARecEdit(a);
    array.set(edited, "number", MDRValue::number(1));
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("ab"));
    array.post(edited);
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("b"));
    array.set(b, "text_", MDRValue::text("t"));
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray());
    array.set(b, "text_", MDRValue::null());
    array.set(a, "number", MDRValue::null());
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("ab"));
    MDARecDel(a);
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("b"));
    MDAClearRec(array.array);
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray());
    array.add("c");
    QCOMPARE(keysWithout(array, "text_;number"), QByteArray("c"));
}

QTEST_APPLESS_MAIN(FieldIndex_test)
#include "FieldIndex_test.moc"
