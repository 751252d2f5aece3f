#include "ArrayTools.h"
#include "FieldSet.h"
#include "LogbookFields.h"

#include <ctime>
#include <QTest>

class FieldSet_test : public QObject
{
    Q_OBJECT

private slots:
    void fieldsStandInTheOrderOfTheDescriptors();
    void findsNamesInAnyCase();
    void namesThatOnlyLookAlikeAreDifferent();
    void everyOneOf255FieldsIsFound();
    void theLastFieldIsFoundAsFastAsTheFirst();
    void of256FieldsNoneIsTaken();
    void ofEqualNamesTheFirstIsFound();
    void handlesReadAsTheirNames();
    void handlesStayValidWhenFieldsAreAddedOrReplaced();
    void malformedDescriptorsAddNothing();
    void nullHandlesAndUnknownNumbersGiveNull();
    void laterFieldsAreNullInEarlierRecords();
    void descriptorRowsArePacked();
    void setsAreTheSameInAllOrNot();
};

void FieldSet_test::fieldsStandInTheOrderOfTheDescriptors()
{
    const MixedArray array;
    QCOMPARE(MDAFldCount(array.array), mixedCount);
    for (int i = 0; i < mixedCount; ++i) {
        const MDRField* field = MDRFldByNum(array.array, i);
        QVERIFY(field != nullptr);
        QCOMPARE(QByteArray(field->name), QByteArray(mixedFields[i].name));
        QCOMPARE(int(field->ordinal), i);
        QCOMPARE(field->type, mixedFields[i].type);
        QCOMPARE(field->width, mixedFields[i].width);
    }
}

void FieldSet_test::findsNamesInAnyCase()
{
    const MixedArray array;
    const MDRField* field = MDRFldByNum(array.array, 0);
    QCOMPARE(MDRFldByName(array.array, "KeyLink"), field);
    QCOMPARE(MDRFldByName(array.array, "keyLink"), field);
    QCOMPARE(MDRFldByName(array.array, "KEYLINK"), field);

    const MDRFieldDescr ends[] = {{"AZ", 0, mdr_TInt32}, {"[a", 0, mdr_TInt32}};
    CMDArray other;
    MDACreate(&other.array, 0);
    QCOMPARE(MDAFldAdd(other.array, 2, ends), int(mdr_Ok));
    for (const char* name : {"AZ", "az", "aZ", "Az"})
        QVERIFY2(MDRFldByName(other.array, name) == MDRFldByNum(other.array, 0), name);
    QVERIFY(MDRFldByName(other.array, "[A") == MDRFldByNum(other.array, 1));
}

void FieldSet_test::namesThatOnlyLookAlikeAreDifferent()
{
    const MixedArray array;
    QVERIFY(MDRFldByName(array.array, "KeyLin") == nullptr);
    QVERIFY(MDRFldByName(array.array, "KeyLink_") == nullptr);
    QVERIFY(MDRFldByName(array.array, "") == nullptr);
    // '[' and '{' differ in the bit that makes letters lower case, but are not letters.
    const MDRFieldDescr brackets[] = {{"a[", 0, mdr_TInt32}, {"a{", 0, mdr_TInt32}, {"a@", 0, mdr_TInt32}};
    CMDArray other;
    MDACreate(&other.array, 0);
    QCOMPARE(MDAFldAdd(other.array, 3, brackets), int(mdr_Ok));
    QCOMPARE(int(MDRFldByName(other.array, "A{")->ordinal), 1);
    QVERIFY(MDRFldByName(other.array, "a`") == nullptr);
    // Only ASCII letters are case-insensitive: a code page letter in both cases makes two names.
    const MDRFieldDescr cyrillic[] = {{"\xe0", 0, mdr_TInt32}, {"\xc0", 0, mdr_TInt32}};
    QCOMPARE(MDAFldAdd(other.array, 2, cyrillic), int(mdr_Ok));
    QCOMPARE(int(MDRFldByName(other.array, "\xc0")->ordinal), 4);
}

static MDRFieldDescr numbered(int i)
{
    MDRFieldDescr field = {"", 0, mdr_TInt32};
    qsnprintf(field.name, sizeof field.name, "Field%d", i);
    return field;
}

void FieldSet_test::everyOneOf255FieldsIsFound()
{
    CMDArray array;
    MDACreate(&array.array, 0);
    for (int i = 0; i < 255; ++i) {
        const MDRFieldDescr field = numbered(i);
        QCOMPARE(MDAFldAdd(array.array, 1, &field), int(mdr_Ok));
    }
    QCOMPARE(MDAFldCount(array.array), 255);
    MDRData* record = MDARecNew(array.array);
    for (int i = 0; i < 255; ++i) {
        const MDRField* field =
            MDRFldByName(array.array, QByteArray("fIELD" + QByteArray::number(i)).constData());
        QVERIFY(field != nullptr);
        QCOMPARE(int(field->ordinal), i);
        const MDRVar value = MDRValue::number(i * 3);
        QCOMPARE(MDRSetVal(field, record, &value), int(mdr_Ok));
        QCOMPARE(MDRSetUser(field, record, i % 2), int(mdr_Ok));
    }
    for (int i = 0; i < 255; ++i) {
        MDRVar value;
        QCOMPARE(MDRGetVal(MDRFldByNum(array.array, i), record, &value), int(mdr_Ok));
        QCOMPARE(value.value.number, i * 3);
        bool mark = false;
        QCOMPARE(MDRIsUser(MDRFldByNum(array.array, i), record, &mark), int(mdr_Ok));
        QCOMPARE(mark, i % 2 == 1);
    }
    const MDRFieldDescr one = numbered(255);
    QCOMPARE(MDAFldAdd(array.array, 1, &one), int(mdr_Full));
    QCOMPARE(MDAFldCount(array.array), 255);
}

void FieldSet_test::theLastFieldIsFoundAsFastAsTheFirst()
{
    CMDArray array;
    MDACreate(&array.array, 0);
    QVector<QByteArray> names;
    for (int i = 0; i < 255; ++i) {
        const MDRFieldDescr field = numbered(i);
        MDAFldAdd(array.array, 1, &field);
        names.append(field.name);
    }
    const auto timeOf = [&](int first, int last) {
        const std::clock_t start = std::clock(); // of this process: other processes do not count
        int found = 0;
        for (int round = 0; round < 2000; ++round) {
            for (int i = 0; i < 255; ++i)
                found +=
                    MDRFldByName(array.array, names[first + i % (last - first + 1)].constData())->ordinal;
        }
        return found >= 0 ? std::clock() - start : 0;
    };
    timeOf(0, 254);
    const std::clock_t ofFirst = timeOf(0, 19);
    const std::clock_t ofLast = timeOf(235, 254);
    if (ofLast > 8 * ofFirst) // a scan of the fields would take about twenty times as long
        QFAIL(qPrintable(QStringLiteral("%1 against %2 ticks").arg(ofLast).arg(ofFirst)));
}

void FieldSet_test::of256FieldsNoneIsTaken()
{
    QVector<MDRFieldDescr> fields;
    for (int i = 0; i < 256; ++i)
        fields.append(numbered(i));
    CMDArray array;
    MDACreate(&array.array, 0);
    QCOMPARE(MDAFldAdd(array.array, fields.size(), fields.constData()), int(mdr_Full));
    QCOMPARE(MDAFldCount(array.array), 0);
    QCOMPARE(MDAFldAdd(array.array, 255, fields.constData()), int(mdr_Ok));
}

void FieldSet_test::ofEqualNamesTheFirstIsFound()
{
    const MDRFieldDescr fields[] = {{"name", 0, mdr_TInt32}, {"NAME", 0, mdr_TMemo}};
    CMDArray array;
    MDACreate(&array.array, 0);
    QCOMPARE(MDAFldAdd(array.array, 2, fields), int(mdr_Ok));
    QCOMPARE(int(MDRFldByName(array.array, "NAME")->ordinal), 0);
    QCOMPARE(int(MDRFldByNum(array.array, 1)->type), int(mdr_TMemo));
}

void FieldSet_test::handlesReadAsTheirNames()
{
    const MixedArray array;
    const void* handle = MDRFldByNum(array.array, 4);
    QCOMPARE(QByteArray(static_cast<const char*>(handle)), QByteArray("time"));
}

void FieldSet_test::handlesStayValidWhenFieldsAreAddedOrReplaced()
{
    MixedArray array;
    const MDRField* first = MDRFldByNum(array.array, 0);
    for (int i = 0; i < 200; ++i) {
        const MDRFieldDescr field = numbered(i);
        MDAFldAdd(array.array, 1, &field);
    }
    QCOMPARE(MDRFldByNum(array.array, 0), first);

    // The same fields again keep their handles, other ones leave the old handles readable.
    MixedArray other;
    MixedArray narrow;
    const MDRField* handle = narrow.field("number");
    QCOMPARE(MDACopy(narrow.array, other.array, 1), int(mdr_Ok));
    QCOMPARE(narrow.field("number"), handle);
    QCOMPARE(MDACopy(narrow.array, array.array, 1), int(mdr_Ok));
    QVERIFY(narrow.field("number") != handle);
    QCOMPARE(QByteArray(handle->name), QByteArray("number"));
    QCOMPARE(MDACopy(narrow.array, other.array, 1), int(mdr_Ok));
    QCOMPARE(narrow.field("number"), handle);
}

void FieldSet_test::malformedDescriptorsAddNothing()
{
    CMDArray array;
    MDACreate(&array.array, 0);
    MDRFieldDescr fields[2] = {{"good", 0, mdr_TInt32}, {"", 0, mdr_TInt32}};
    QCOMPARE(MDAFldAdd(array.array, 2, fields), int(mdr_Invalid)); // no name
    std::memset(fields[1].name, 'x', sizeof fields[1].name);
    QCOMPARE(MDAFldAdd(array.array, 2, fields), int(mdr_Invalid)); // a name without its NUL
    for (int type : {0, 3, 4, 6, 7, 12, 255}) {
        fields[1] = {"type", 0, static_cast<std::uint8_t>(type)};
        QCOMPARE(MDAFldAdd(array.array, 2, fields), int(mdr_Invalid));
    }
    QCOMPARE(MDAFldAdd(array.array, -1, fields), int(mdr_Invalid));
    QCOMPARE(MDAFldAdd(array.array, 1, nullptr), int(mdr_Invalid));
    QCOMPARE(MDAFldAdd(nullptr, 1, fields), int(mdr_Invalid));
    QCOMPARE(MDAFldCount(array.array), 0);
    QCOMPARE(MDAFldAdd(array.array, 0, nullptr), int(mdr_Ok));
    QVERIFY(MDRFldByName(array.array, "good") == nullptr);
    // 63 letters and the NUL are a full name.
    std::memset(fields[0].name, 'y', 63);
    fields[0].name[63] = 0;
    QCOMPARE(MDAFldAdd(array.array, 1, fields), int(mdr_Ok));
    QVERIFY(MDRFldByName(array.array, QByteArray(63, 'Y').constData()) != nullptr);
    QVERIFY(MDRFldByName(array.array, QByteArray(64, 'Y').constData()) == nullptr);
}

void FieldSet_test::nullHandlesAndUnknownNumbersGiveNull()
{
    const MixedArray array;
    QVERIFY(MDRFldByNum(array.array, -1) == nullptr);
    QVERIFY(MDRFldByNum(array.array, mixedCount) == nullptr);
    QVERIFY(MDRFldByName(array.array, nullptr) == nullptr);
    const MDArray* none = nullptr;
    QVERIFY(MDRFldByNum(none, 0) == nullptr);
    QVERIFY(MDRFldByName(none, "KeyLink") == nullptr);
    QCOMPARE(MDAFldCount(nullptr), 0);
}

void FieldSet_test::laterFieldsAreNullInEarlierRecords()
{
    MixedArray array;
    MDRData* posted = array.add("a", "text_", MDRValue::text("kept"));
    MDRData* fresh = array.fresh("b");
    const MDRFieldDescr more[] = {{"late", 0, mdr_TMemo}, {"later", 0, mdr_TInt32}};
    QCOMPARE(MDAFldAdd(array.array, 2, more), int(mdr_Ok));
    for (MDRData* record : {posted, fresh}) {
        QVERIFY(array.isNull(record, "late"));
        QVERIFY(!array.isMarked(record, "later"));
        QCOMPARE(array.set(record, "later", MDRValue::number(7)), int(mdr_Ok));
        QCOMPARE(array.get(record, "later").value.number, 7);
        QVERIFY(array.isNull(record, "late"));
    }
    QCOMPARE(array.text(posted, "text_"), QByteArray("kept"));
    QCOMPARE(array.text(fresh), QByteArray("b"));
}

void FieldSet_test::descriptorRowsArePacked()
{
    // Constant tables of rows are read as raw bytes: 64 of name, one of width, one of type.
    const auto* raw = reinterpret_cast<const unsigned char*>(LogbookRecordFields);
    QCOMPARE(sizeof LogbookRecordFields, std::size_t(15 * 66));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(raw + 66)), QByteArray("ShiftKey"));
    QCOMPARE(int(raw[66 + 64]), 32);
    QCOMPARE(int(raw[66 + 65]), int(mdr_TChar));
}

void FieldSet_test::setsAreTheSameInAllOrNot()
{
    const MDRFieldDescr base[] = {{"a", 10, mdr_TChar}, {"b", 0, mdr_TInt32}};
    const MDRFieldDescr named[] = {{"a", 10, mdr_TChar}, {"c", 0, mdr_TInt32}};
    const MDRFieldDescr wider[] = {{"a", 11, mdr_TChar}, {"b", 0, mdr_TInt32}};
    const MDRFieldDescr typed[] = {{"a", 10, mdr_TChar}, {"b", 0, mdr_TDouble}};
    FieldSet set;
    QCOMPARE(set.add(2, base), int(mdr_Ok));
    FieldSet same;
    QCOMPARE(same.add(2, base), int(mdr_Ok));
    QVERIFY(set.sameAs(same));
    for (const MDRFieldDescr* fields : {named, wider, typed}) {
        FieldSet other;
        QCOMPARE(other.add(2, fields), int(mdr_Ok));
        QVERIFY(!set.sameAs(other));
        QVERIFY(!other.sameAs(set));
    }
    FieldSet shorter;
    QCOMPARE(shorter.add(1, base), int(mdr_Ok));
    QVERIFY(!set.sameAs(shorter));
    QVERIFY(!shorter.sameAs(set));
}

QTEST_APPLESS_MAIN(FieldSet_test)
#include "FieldSet_test.moc"
