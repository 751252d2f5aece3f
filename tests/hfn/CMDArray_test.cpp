#include "ArrayTools.h"
#include "CLiteModel.h"
#include "CStringParams.h"
#include "GenGuid32.h"
#include "LogbookFields.h"

#include <QTest>

/// The thin classes over record arrays, and the keys of rows.
class CMDArray_test : public QObject
{
    Q_OBJECT

private slots:
    void assigningAnAnswerTakesItOver();
    void assigningNullOrTheSameArrayChangesNothing();
    void keyAddStoresItsCode();
    void setKeysReplacesAllKeys();
    void recPostRefusesForeignAndNullRecords();
    void setValFSetsValueAndMark();
    void setValFSkipsMissingFieldsAndForeignRecords();
    void recCountIsThatOfTheFirstKey();
    void everythingBearsAnAbsentArray();
    void rowBatchesCountTheirRows();
    void rowBatchesNameTheRowWithoutMark();
    void rowBatchesTakeTheFieldsOfAnotherArray();
    void modelTablesComeWithAnEmptyArray();
    void modelTablesComeWithFieldsAndAKey();
    void liteModelsFindTablesByTheirExactName();
    void stringParametersFallBackToTheDefault();
    void guidsAre32UpperCaseDigitsAndNeverTheSame();
};

void CMDArray_test::assigningAnAnswerTakesItOver()
{
    MDArray* first = nullptr;
    MDArray* second = nullptr;
    MDACreate(&first, 0);
    MDACreate(&second, 0);
    CMDArray holder;
    holder.lastError = 17;
    holder = first;
    QCOMPARE(holder.array, first);
    QCOMPARE(holder.lastError, int(mdr_Ok));
    holder.lastError = 17;
    holder = second; // the first is destroyed, which the leak checker sees
    QCOMPARE(holder.array, second);
    QCOMPARE(holder.lastError, int(mdr_Ok));
}

void CMDArray_test::assigningNullOrTheSameArrayChangesNothing()
{
    MixedArray array;
    array.add("a");
    MDArray* own = array.array;
    CMDArray& holder = array;
    holder = static_cast<MDArray*>(nullptr);
    QCOMPARE(holder.lastError, -3);
    QCOMPARE(holder.array, own);
    holder.lastError = 0;
    holder = own;
    QCOMPARE(holder.lastError, -3);
    QCOMPARE(holder.array, own);
    QCOMPARE(array.order(), QByteArray("a"));
    CMDArray empty;
    empty = static_cast<MDArray*>(nullptr);
    QCOMPARE(empty.lastError, -3);
    QVERIFY(empty.array == nullptr);
}

void CMDArray_test::keyAddStoresItsCode()
{
    MixedArray array({});
    QCOMPARE(array.KeyAdd("nowhere", 0), int(mdr_Invalid));
    QCOMPARE(array.lastError, int(mdr_Invalid));
    QCOMPARE(array.KeyAdd("KeyLink", 0), int(mdr_Ok));
    QCOMPARE(array.lastError, int(mdr_Ok));
    QCOMPARE(array.KeyAdd(nullptr, 0), int(mdr_Invalid));
    QCOMPARE(array.KeyAdd(QByteArray(384, 'x').constData(), 0), int(mdr_Invalid));
    QCOMPARE(array.lastError, int(mdr_Invalid));
    // 383 characters still fit.
    QByteArray longest = "KeyLink";
    while (longest.size() + 8 <= 383 - 4)
        longest += ";KeyLink";
    longest += longest.size() + 4 <= 383 ? ":0x0" : "";
    QCOMPARE(array.KeyAdd(longest.constData(), 0), int(mdr_Ok));
}

void CMDArray_test::setKeysReplacesAllKeys()
{
    MixedArray array({"", "number"});
    for (const char* key : {"b", "a"})
        array.add(key);
    array.setKeys({"KeyLink", "number"});
    QCOMPARE(MDAKeyCount(array.array), 2);
    QCOMPARE(array.order(), QByteArray("a b"));
    array.setKeys({"", "nowhere"});
    QCOMPARE(MDAKeyCount(array.array), 1);
    QCOMPARE(array.order(), QByteArray("b a"));
    array.setKeys({"nowhere"});
    QCOMPARE(array.order(), QByteArray("b a")); // never without a key
}

void CMDArray_test::recPostRefusesForeignAndNullRecords()
{
    MixedArray array;
    MixedArray other;
    MDRData* foreign = other.fresh("a");
    QVERIFY(array.RecPost(foreign) == nullptr);
    QCOMPARE(array.lastError, -5);
    QCOMPARE(other.RecCount(), 0); // it was not posted
    array.lastError = 0;
    QVERIFY(array.RecPost(nullptr) == nullptr);
    QCOMPARE(array.lastError, -5);
    MDRData* own = array.fresh("b");
    QCOMPARE(array.RecPost(own), own);
    QCOMPARE(array.lastError, 0);
    MDARecDel(own);
    QVERIFY(array.RecPost(own) == nullptr);
    QCOMPARE(array.lastError, -5);
    MDRData alone;
    QVERIFY(array.RecPost(&alone) == nullptr);
    QCOMPARE(array.lastError, -5);
}

void CMDArray_test::setValFSetsValueAndMark()
{
    MixedArray array;
    MDRData* record = array.fresh("a");
    QVERIFY(!array.isMarked(record, "KeyLink")); // set with MDRSetVal: names the row, is not a change
    array.SetValF(record, "NUMBER", MDRValue::number(4));
    QCOMPARE(array.get(record, "number").value.number, 4);
    QVERIFY(array.isMarked(record, "number"));
    array.SetValF(record, "time", MDRValue::null());
    QVERIFY(array.isNull(record, "time"));
    QVERIFY(array.isMarked(record, "time"));
    QVERIFY(!array.isMarked(record, "text_"));
}

void CMDArray_test::setValFSkipsMissingFieldsAndForeignRecords()
{
    MixedArray array;
    MixedArray other;
    MDRData* record = array.fresh("a");
    array.SetValF(record, "nowhere", MDRValue::number(4));
    QCOMPARE(array.lastError, 0);
    MDRData* foreign = other.fresh("b");
    array.SetValF(foreign, "number", MDRValue::number(4));
    QCOMPARE(array.lastError, -5);
    QVERIFY(other.isNull(foreign, "number"));
    QVERIFY(!other.isMarked(foreign, "number"));
    array.SetValF(nullptr, "number", MDRValue::number(4));
    QCOMPARE(array.lastError, -5);
    array.SetValF(record, "number", MDRValue::text("x"));
    QCOMPARE(array.lastError, int(mdr_TypeMismatch));
}

void CMDArray_test::recCountIsThatOfTheFirstKey()
{
    MixedArray array({});
    array.add("a");
    QCOMPARE(array.RecCount(), 0);
    array.KeyAdd("KeyLink", 0);
    QCOMPARE(array.RecCount(), 1);
    array.add("b");
    QCOMPARE(array.RecCount(), 2);
    MDAKeyDel(array.array, 0);
    QCOMPARE(array.RecCount(), 0);
}

void CMDArray_test::everythingBearsAnAbsentArray()
{
    CMDArray holder;
    MDRVar value = MDRValue::number(3);
    QCOMPARE(holder.RecCount(), 0);
    QCOMPARE(holder.KeyAdd("KeyLink", 0), int(mdr_Invalid));
    QVERIFY(holder.RecPost(nullptr) == nullptr);
    holder.SetValF(nullptr, "KeyLink", value);
    holder.GetVal(nullptr, "KeyLink", value);
    QCOMPARE(int(value.type), 0);
}

void CMDArray_test::rowBatchesCountTheirRows()
{
    CRowBatch batch(mixedFields, mixedCount);
    QCOMPARE(batch.lastError, 0);
    QCOMPARE(batch.RecCount(), 0);
    batch.RecPost(batch.newRow(ROW_INSERT, "b"));
    batch.RecPost(batch.newRow(ROW_DELETE, "a"));
    QCOMPARE(batch.RecCount(), 2);
    QCOMPARE(MixedArray::orderOf(batch.array), QByteArray("b a"));
    CRowBatch bad(mixedFields, 256);
    QCOMPARE(bad.lastError, int(mdr_Full));
    QCOMPARE(bad.RecCount(), 0);
}

void CMDArray_test::rowBatchesNameTheRowWithoutMark()
{
    CRowBatch batch(mixedFields, mixedCount);
    MDRData* row = batch.newRow(ROW_UPDATE, "key");
    QCOMPARE(int(row->flags), int(ROW_UPDATE));
    MDRVar value;
    batch.GetVal(row, "KeyLink", value);
    QCOMPARE(MDRValue::copy(value), QByteArray("key"));
    bool mark = true;
    MDRIsUser(MDRFldByName(batch.array, "KeyLink"), row, &mark);
    QVERIFY(!mark);
}

void CMDArray_test::rowBatchesTakeTheFieldsOfAnotherArray()
{
    MixedArray array({"number", "KeyLink"});
    array.add("a");
    CRowBatch batch(array);
    QCOMPARE(batch.lastError, 0);
    QCOMPARE(MDAFldCount(batch.array), mixedCount);
    QCOMPARE(MDAKeyCount(batch.array), 1);
    QCOMPARE(batch.RecCount(), 0);
    for (const char* key : {"z", "b"})
        batch.RecPost(batch.newRow(ROW_INSERT, key));
    QCOMPARE(MixedArray::orderOf(batch.array), QByteArray("z b"));
}

void CMDArray_test::modelTablesComeWithAnEmptyArray()
{
    CModelTable table("Workers");
    QCOMPARE(table.name, std::string("Workers"));
    CMDArray& data = table;
    QVERIFY(data.array != nullptr);
    QCOMPARE(data.lastError, 0);
    QCOMPARE(&data, &table.data);
    QCOMPARE(MDAFldCount(data.array), 0);
    const CModelTable& constant = table;
    QCOMPARE(&static_cast<const CMDArray&>(constant), &table.data);
}

void CMDArray_test::modelTablesComeWithFieldsAndAKey()
{
    const CModelTable table("LogbookComments", LogbookCommentFields, Field::KeyLink);
    QCOMPARE(MDAFldCount(table.data.array), 6);
    QCOMPARE(MDAKeyCount(table.data.array), 1);
    QCOMPARE(table.data.lastError, 0);
}

void CMDArray_test::liteModelsFindTablesByTheirExactName()
{
    CLiteModel model;
    QVERIFY(model.GetTableByName("Workers") == nullptr);
    auto table = std::make_unique<CModelTable>("Workers");
    CModelTable* workers = table.get();
    model.add(std::move(table));
    model.add(std::make_unique<CModelTable>("Departments"));
    model.add(nullptr);
    QCOMPARE(model.GetTableByName("Workers"), workers);
    QVERIFY(model.GetTableByName("workers") == nullptr);
    auto second = std::make_unique<CModelTable>("Workers");
    CModelTable* replacing = second.get();
    model.add(std::move(second));
    QCOMPARE(model.GetTableByName("Workers"), replacing);
    model.Clear();
    QVERIFY(model.GetTableByName("Departments") == nullptr);
}

void CMDArray_test::stringParametersFallBackToTheDefault()
{
    CStringParams params;
    const QString key = QStringLiteral("KEYLINK");
    const QString fallback = QStringLiteral("none");
    QCOMPARE(params.getValue(key, fallback), fallback);
    params.setValue(key, QString());
    QCOMPARE(params.getValue(key, fallback), QString()); // an empty value is one
    params.setValue(key, QStringLiteral("value"));
    QCOMPARE(params.getValue(key, fallback), QStringLiteral("value"));
    QCOMPARE(params.getValue(QStringLiteral("keylink"), fallback), fallback);
}

void CMDArray_test::guidsAre32UpperCaseDigitsAndNeverTheSame()
{
    QSet<QByteArray> seen;
    QByteArray digits;
    for (int i = 0; i < 1000; ++i) {
        const QByteArray guid = GenGuid32();
        QCOMPARE(guid.size(), 32);
        for (char c : guid)
            QVERIFY((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'));
        seen.insert(guid);
        digits += guid;
    }
    QCOMPARE(seen.size(), 1000);
    for (char c : QByteArray("0123456789ABCDEF"))
        QVERIFY(digits.count(c) > 1500); // 2000 each are expected
}

QTEST_APPLESS_MAIN(CMDArray_test)
#include "CMDArray_test.moc"
