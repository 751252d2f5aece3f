#include "ArrayTools.h"

#include <QTest>

/// Blobs that stay in the store until their value is read.
class StoredBlob_test : public QObject
{
    Q_OBJECT

private slots:
    void isFetchedAtTheFirstReadingOnly();
    void isNotNullAndHasALengthBeforeItIsFetched();
    void fetchingMovesNoOtherValue();
    void aFailureGivesNullAndMayHeal();
    void copiesStayUnfetched();
    void editsShareWhatIsFetched();
    void valuesAndNullReplaceIt();
    void severalInOneRecordAreKeptApart();
    void isNoTextForIndexesAndKeys();
    void onlyBlobFieldsTakeOne();
};

static std::shared_ptr<TestBlob> blob(const QByteArray& bytes, bool reachable = true)
{
    return std::make_shared<TestBlob>(bytes, reachable);
}

void StoredBlob_test::isFetchedAtTheFirstReadingOnly()
{
    MixedArray array;
    const auto source = blob(QByteArray("a\0b", 3));
    MDRData* record = array.fresh("key");
    QCOMPARE(MDRSetBlobSource(array.field("data"), record, 3, source), int(mdr_Ok));
    array.post(record);
    QCOMPARE(source->reads, 0);
    for (int i = 0; i < 3; ++i) {
        const MDRVar value = array.get(record, "data");
        QCOMPARE(int(value.type), int(mdr_TBlob));
        QCOMPARE(int(value.isNull), 0);
        QCOMPARE(MDRValue::copy(value), QByteArray("a\0b", 3));
        QCOMPARE(value.value.text.data[3], char(0));
        QCOMPARE(source->reads, 1);
    }
    QCOMPARE(source.use_count(), 1L); // released once it is fetched
}

void StoredBlob_test::isNotNullAndHasALengthBeforeItIsFetched()
{
    MixedArray array;
    const auto source = blob("12345");
    MDRData* record = array.fresh("key");
    std::int32_t length = -1;
    QCOMPARE(MDRBlobLength(array.field("data"), record, &length), int(mdr_Ok));
    QCOMPARE(length, 0);
    MDRSetBlobSource(array.field("data"), record, 7, source);
    QVERIFY(!array.isNull(record, "data"));
    QCOMPARE(MDRBlobLength(array.field("data"), record, &length), int(mdr_Ok));
    QCOMPARE(length, 7); // as reported
    QCOMPARE(source->reads, 0);
    array.get(record, "data");
    QCOMPARE(MDRBlobLength(array.field("data"), record, &length), int(mdr_Ok));
    QCOMPARE(length, 5); // as fetched
    array.set(record, "data", MDRValue::text("123"));
    QCOMPARE(MDRBlobLength(array.field("data"), record, &length), int(mdr_Ok));
    QCOMPARE(length, 3);
    QCOMPARE(MDRBlobLength(array.field("text_"), record, &length), int(mdr_TypeMismatch));
    QCOMPARE(length, 0);
    QCOMPARE(MDRBlobLength(array.field("data"), record, nullptr), int(mdr_Invalid));
    QCOMPARE(MDRBlobLength(array.field("data"), nullptr, &length), int(mdr_Invalid));
}

void StoredBlob_test::fetchingMovesNoOtherValue()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    MDRSetBlobSource(array.field("data"), record, 5, blob(QByteArray(100000, 'x')));
    const char* text = array.get(record, "KeyLink").value.text.data;
    array.get(record, "data");
    QCOMPARE(array.get(record, "KeyLink").value.text.data, text);
}

void StoredBlob_test::aFailureGivesNullAndMayHeal()
{
    MixedArray array;
    const auto source = blob("bytes", false);
    MDRData* record = array.fresh("key");
    MDRSetBlobSource(array.field("data"), record, 5, source);
    MDRVar value;
    QCOMPARE(MDRGetVal(array.field("data"), record, &value), int(mdr_Source));
    QCOMPARE(int(value.type), int(mdr_TBlob));
    QVERIFY(value.isNull != 0);
    QCOMPARE(value.value.text.length, 0);
    QVERIFY(HFNArrayPack(array.array).size() > 0); // it is not posted yet
    array.post(record);
    QCOMPARE(HFNArrayPack(array.array), QByteArray());
    QCOMPARE(MDRRecPack(record), QByteArray());
    source->setReachable(true);
    QCOMPARE(MDRGetVal(array.field("data"), record, &value), int(mdr_Ok));
    QCOMPARE(MDRValue::copy(value), QByteArray("bytes"));
}

void StoredBlob_test::copiesStayUnfetched()
{
    MixedArray array;
    const auto source = blob("bytes");
    MDRData* record = array.fresh("key");
    MDRSetBlobSource(array.field("data"), record, 5, source);
    array.post(record);
    MixedArray copy;
    QCOMPARE(MDACopy(copy.array, array.array, 1), int(mdr_Ok));
    QCOMPARE(source->reads, 0);
    MDAClearRec(array.array);
    const MDRData* twin = MDARec(copy.array, 0, 0);
    std::int32_t length = 0;
    QCOMPARE(MDRBlobLength(copy.field("data"), twin, &length), int(mdr_Ok));
    QCOMPARE(length, 5);
    QCOMPARE(copy.text(twin, "data"), QByteArray("bytes"));
    QCOMPARE(source->reads, 1);
    // Fetched bytes are copied along.
    MixedArray second;
    MDACopy(second.array, copy.array, 1);
    QCOMPARE(second.text(MDARec(second.array, 0, 0), "data"), QByteArray("bytes"));
    QCOMPARE(source->reads, 1);
}

void StoredBlob_test::editsShareWhatIsFetched()
{
    MixedArray array;
    const auto source = blob("bytes");
    MDRData* record = array.fresh("key");
    MDRSetBlobSource(array.field("data"), record, 5, source);
    array.post(record);
    MDRData* edited = MDARecEdit(record);
    array.set(edited, "text_", MDRValue::text(QByteArray("changed").constData()));
    QCOMPARE(array.post(edited), record);
    QCOMPARE(source->reads, 0);
    QCOMPARE(array.text(record, "data"), QByteArray("bytes"));
    const QByteArray longText(3000, 'y');
    array.set(record, "text_", MDRValue::text(longText)); // moves the values, not the blob
    QCOMPARE(array.text(record, "data"), QByteArray("bytes"));
    QCOMPARE(source->reads, 1);
}

void StoredBlob_test::valuesAndNullReplaceIt()
{
    MixedArray array;
    const auto source = blob("bytes");
    MDRData* record = array.fresh("key");
    MDRSetBlobSource(array.field("data"), record, 5, source);
    array.set(record, "data", MDRValue::text("own"));
    QCOMPARE(array.text(record, "data"), QByteArray("own"));
    MDRSetBlobSource(array.field("data"), record, 5, source);
    QCOMPARE(array.text(record, "data"), QByteArray("bytes"));
    const QByteArray large(3000, 'z');
    MDRSetBlobSource(array.field("data"), record, 5, source);
    array.set(record, "data", MDRValue::text(large)); // must move to make space
    QCOMPARE(array.text(record, "data"), large);
    MDRSetBlobSource(array.field("data"), record, 5, source);
    array.set(record, "data", MDRValue::null());
    QVERIFY(array.isNull(record, "data"));
    QCOMPARE(source->reads, 1);
    QCOMPARE(source.use_count(), 1L);
}

void StoredBlob_test::severalInOneRecordAreKeptApart()
{
    const MDRFieldDescr fields[] = {{"a", 0, mdr_TBlob}, {"b", 0, mdr_TBlob}, {"c", 0, mdr_TBlob}};
    CMDArray array;
    MDACreate(&array.array, 0);
    MDAFldAdd(array.array, 3, fields);
    MDRData* record = MDARecNew(array.array);
    const QByteArray names[] = {"first", "second", "third"};
    for (int i = 0; i < 3; ++i)
        MDRSetBlobSource(MDRFldByNum(array.array, i), record, 5, blob(names[i]));
    const auto text = [&](int i) {
        MDRVar value;
        MDRGetVal(MDRFldByNum(array.array, i), record, &value);
        return MDRValue::copy(value);
    };
    for (int i = 0; i < 3; ++i)
        QCOMPARE(text(i), names[i]);
    const MDRVar null = MDRValue::null();
    MDRSetVal(MDRFldByNum(array.array, 1), record, &null); // out of the middle
    QCOMPARE(text(0), names[0]);
    QCOMPARE(text(1), QByteArray());
    QCOMPARE(text(2), names[2]);
    MDRSetVal(MDRFldByNum(array.array, 0), record, &null);
    MDRSetBlobSource(MDRFldByNum(array.array, 1), record, 5, blob("again"));
    QCOMPARE(text(1), QByteArray("again"));
    QCOMPARE(text(2), names[2]);
}

void StoredBlob_test::isNoTextForIndexesAndKeys()
{
    MixedArray array;
    QCOMPARE(array.KeyAdd("data", 0), int(mdr_Invalid));
    QCOMPARE(MDARecsWith(array.array, "data", "bytes").count, std::size_t(0));
}

void StoredBlob_test::onlyBlobFieldsTakeOne()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    QCOMPARE(MDRSetBlobSource(array.field("text_"), record, 5, blob("x")), int(mdr_TypeMismatch));
    QCOMPARE(MDRSetBlobSource(array.field("data"), record, -1, blob("x")), int(mdr_Invalid));
    QCOMPARE(MDRSetBlobSource(array.field("data"), record, 1, nullptr), int(mdr_Invalid));
    QCOMPARE(MDRSetBlobSource(nullptr, record, 1, blob("x")), int(mdr_Invalid));
    QCOMPARE(MDRSetBlobSource(array.field("data"), nullptr, 1, blob("x")), int(mdr_Invalid));
    QVERIFY(array.isNull(record, "data"));
}

QTEST_APPLESS_MAIN(StoredBlob_test)
#include "StoredBlob_test.moc"
