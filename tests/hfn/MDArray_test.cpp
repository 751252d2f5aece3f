#include "ArrayTools.h"

#include <algorithm>
#include <QTest>

/// The life of records: created, posted, edited, deleted, copied.
class MDArray_test : public QObject
{
    Q_OBJECT

private slots:
    void aNewArrayIsEmpty();
    void aFreshRecordIsInNoKeyUntilPosted();
    void postingKeepsTheAddress();
    void addressesNeverChangeWhileOthersComeAndGo();
    void anEditChangesNothingUntilPosted();
    void postingAnEditKeepsAddressFlagsMarksAndEntry();
    void aSecondEditHandsOutTheSameVersionFresh();
    void anEditMayBeAbandoned();
    void onlyPostedRecordsCanBeEdited();
    void postingAnEditMovesTheRecordInItsKeys();
    void settingAPostedRecordMovesItInItsKeys();
    void aDeletedRecordHasNoArray();
    void deletingDiscardsFreshAndEditedOnes();
    void deletedAddressesAreNotUsedAgain();
    void clearingDropsRecordsOfEveryState();
    void clearingAllDropsKeysAndFieldsToo();
    void manyReloadsKeepOldRecordsReadable();
    void clearedRecordsGiveTheirMemoryBack();
    void recordsByEntryNeedNoKey();
    void nullAndForeignRecordsAreAnsweredByCodes();
    void unpackForWriteOnlyChecks();
};

void MDArray_test::aNewArrayIsEmpty()
{
    MDArray* array = nullptr;
    QCOMPARE(MDACreate(&array, 0), int(mdr_Ok));
    QVERIFY(array != nullptr);
    QCOMPARE(MDAFldCount(array), 0);
    QCOMPARE(MDAKeyCount(array), 0);
    QVERIFY(MDARecsByEntry(array).empty());
    MDADestroy(array);
    MDADestroy(nullptr);
    QCOMPARE(MDACreate(nullptr, 0), int(mdr_Invalid));
}

void MDArray_test::aFreshRecordIsInNoKeyUntilPosted()
{
    MixedArray array({"KeyLink"});
    MDRData* record = array.fresh("a");
    QCOMPARE(MDARecArr(record), array.array);
    QCOMPARE(array.RecCount(), 0);
    QVERIFY(array.seek(0, "a") == nullptr);
    QVERIFY(MDARecsByEntry(array.array).empty());
    MDRData* posted = nullptr;
    QCOMPARE(MDARecPost(record, &posted), int(mdr_Ok));
    QCOMPARE(array.RecCount(), 1);
    QCOMPARE(array.seek(0, "a"), posted);
    QCOMPARE(MDARecArr(posted), array.array);
}

void MDArray_test::postingKeepsTheAddress()
{
    MixedArray array;
    MDRData* record = array.fresh("a");
    MDRData* posted = nullptr;
    QCOMPARE(MDARecPost(record, &posted), int(mdr_Ok));
    QCOMPARE(posted, record);
    // Again: it is there already.
    QCOMPARE(MDARecPost(record, &posted), int(mdr_Ok));
    QCOMPARE(posted, record);
    QCOMPARE(array.RecCount(), 1);
    QCOMPARE(MDARecPost(array.fresh("b"), nullptr), int(mdr_Ok));
    QCOMPARE(array.RecCount(), 2);
}

void MDArray_test::addressesNeverChangeWhileOthersComeAndGo()
{
    MixedArray array({"KeyLink"});
    MDRData* watched = array.add("watched");
    for (int i = 0; i < 5000; ++i) {
        array.add(QByteArray::number(i));
        if (i % 3 == 0)
            MDARecDel(array.seek(0, QByteArray::number(i / 2)));
    }
    QCOMPARE(array.seek(0, "watched"), watched);
    QCOMPARE(array.text(watched), QByteArray("watched"));
}

void MDArray_test::anEditChangesNothingUntilPosted()
{
    MixedArray array({"KeyLink"});
    MDRData* record = array.add("a", "text_", MDRValue::text("before"));
    MDRData* edited = MDARecEdit(record);
    QVERIFY(edited != nullptr && edited != record);
    QCOMPARE(MDARecArr(edited), array.array);
    array.set(edited, "KeyLink", MDRValue::text("b"));
    array.set(edited, "text_", MDRValue::text("after"));
    MDRSetFlags(edited, ROW_UPDATE);
    MDRSetUser(array.field("text_"), edited, 1);
    QCOMPARE(array.text(record, "text_"), QByteArray("before"));
    QCOMPARE(int(record->flags), 0);
    QVERIFY(!array.isMarked(record, "text_"));
    QCOMPARE(array.seek(0, "a"), record);
    QVERIFY(array.seek(0, "b") == nullptr);
    QCOMPARE(array.RecCount(), 1);

    MDRData* posted = nullptr;
    QCOMPARE(MDARecPost(edited, &posted), int(mdr_Ok));
    QCOMPARE(posted, record);
    QCOMPARE(array.RecCount(), 1);
    QCOMPARE(array.text(record, "text_"), QByteArray("after"));
    QCOMPARE(int(record->flags), int(ROW_UPDATE));
    QVERIFY(array.isMarked(record, "text_"));
    QCOMPARE(array.seek(0, "b"), record);
    QVERIFY(array.seek(0, "a") == nullptr);
    // The version was consumed.
    QVERIFY(MDARecArr(edited) == nullptr);
    QCOMPARE(MDARecPost(edited, &posted), int(mdr_Invalid));
    QVERIFY(posted == nullptr);
}

void MDArray_test::postingAnEditKeepsAddressFlagsMarksAndEntry()
{
    MixedArray array({""});
    MDRData* fresh = array.fresh("a");
    MDRSetFlags(fresh, ROW_INSERT);
    MDRSetUser(array.field("KeyLink"), fresh, 1);
    MDRData* first = array.post(fresh);
    array.add("b");
    MDRData* edited = MDARecEdit(first);
    QCOMPARE(int(edited->flags), int(ROW_INSERT));
    QVERIFY(array.isMarked(edited, "KeyLink"));
    QCOMPARE(array.text(edited), QByteArray("a"));
    QCOMPARE(array.post(edited), first);
    QCOMPARE(int(first->flags), int(ROW_INSERT));
    QVERIFY(array.isMarked(first, "KeyLink"));
    QCOMPARE(array.order(), QByteArray("a b"));
}

void MDArray_test::aSecondEditHandsOutTheSameVersionFresh()
{
    MixedArray array;
    MDRData* record = array.add("a", "number", MDRValue::number(1));
    MDRData* edited = MDARecEdit(record);
    array.set(edited, "number", MDRValue::number(2));
    MDRSetFlags(edited, ROW_DELETE);
    MDRSetUser(array.field("number"), edited, 1);
    QCOMPARE(MDARecEdit(record), edited);
    QCOMPARE(array.get(edited, "number").value.number, 1);
    QCOMPARE(int(edited->flags), 0);
    QVERIFY(!array.isMarked(edited, "number"));
    // After posting too, and the header is used again.
    QCOMPARE(array.post(edited), record);
    QCOMPARE(MDARecEdit(record), edited);
    QCOMPARE(MDARecArr(edited), array.array);
    QCOMPARE(array.post(edited), record);
}

void MDArray_test::anEditMayBeAbandoned()
{
    MixedArray array({"KeyLink"});
    MDRData* record = array.add("a");
    MDRData* edited = MDARecEdit(record);
    array.set(edited, "KeyLink", MDRValue::text("b"));
    array.set(record, "text_", MDRValue::text("set directly"));
    QCOMPARE(array.order(), QByteArray("a"));
    QCOMPARE(MDARecDel(edited), int(mdr_Ok)); // discards the version, not the record
    QVERIFY(MDARecArr(edited) == nullptr);
    QCOMPARE(MDARecArr(record), array.array);
    QCOMPARE(array.order(), QByteArray("a"));
    edited = MDARecEdit(record);
    QCOMPARE(array.text(edited, "text_"), QByteArray("set directly"));
    QCOMPARE(array.post(edited), record);
}

void MDArray_test::onlyPostedRecordsCanBeEdited()
{
    MixedArray array;
    QVERIFY(MDARecEdit(nullptr) == nullptr);
    MDRData* fresh = array.fresh("a");
    QVERIFY(MDARecEdit(fresh) == nullptr);
    MDRData* record = array.post(fresh);
    QVERIFY(MDARecEdit(MDARecEdit(record)) == nullptr);
    MDARecDel(record);
    QVERIFY(MDARecEdit(record) == nullptr);
    MDRData alone;
    QVERIFY(MDARecEdit(&alone) == nullptr);
    // A record without any value is edited as well.
    MDRData* bare = array.post(MDARecNew(array.array));
    MDRData* edited = MDARecEdit(bare);
    array.set(edited, "KeyLink", MDRValue::text("now"));
    QCOMPARE(array.text(array.post(edited)), QByteArray("now"));
}

void MDArray_test::postingAnEditMovesTheRecordInItsKeys()
{
    MixedArray array({"KeyLink", "number:0x4", ""});
    for (int i = 0; i < 5; ++i)
        array.add(QByteArray::number(i), "number", MDRValue::number(i));
    MDRData* record = array.seek(0, "1");
    MDRData* edited = MDARecEdit(record);
    array.set(edited, "KeyLink", MDRValue::text("9"));
    array.set(edited, "number", MDRValue::null());
    array.post(edited);
    QCOMPARE(array.order(0), QByteArray("0 2 3 4 9"));
    QCOMPARE(array.order(1), QByteArray("4 3 2 0 9"));
    QCOMPARE(array.order(2), QByteArray("0 9 2 3 4"));
}

void MDArray_test::settingAPostedRecordMovesItInItsKeys()
{
    MixedArray array({"KeyLink", "number;KeyLink", ""});
    for (int i = 0; i < 4; ++i)
        array.add(QByteArray::number(i), "number", MDRValue::number(i));
    MDRData* record = array.seek(0, "1");
    QCOMPARE(array.set(record, "KeyLink", MDRValue::text("5")), int(mdr_Ok));
    QCOMPARE(array.order(0), QByteArray("0 2 3 5"));
    QCOMPARE(array.order(1), QByteArray("0 5 2 3"));
    QCOMPARE(array.set(record, "number", MDRValue::number(7)), int(mdr_Ok));
    QCOMPARE(array.order(1), QByteArray("0 2 3 5"));
    QCOMPARE(array.set(record, "number", MDRValue::null()), int(mdr_Ok));
    QCOMPARE(array.order(1), QByteArray("5 0 2 3"));
    QCOMPARE(array.order(2), QByteArray("0 5 2 3"));
    QCOMPARE(array.set(record, "number", MDRValue::text("x")), int(mdr_TypeMismatch));
    QCOMPARE(array.seek(0, "5"), record);
    QVERIFY(array.seek(0, "1") == nullptr);
}

void MDArray_test::aDeletedRecordHasNoArray()
{
    MixedArray array({"KeyLink"});
    MDRData* record = array.add("a");
    MDRData* edited = MDARecEdit(record);
    QCOMPARE(MDARecDel(record), int(mdr_Ok));
    QVERIFY(MDARecArr(record) == nullptr);
    QVERIFY(MDARecArr(edited) == nullptr);
    QCOMPARE(array.RecCount(), 0);
    QCOMPARE(MDARecDel(record), int(mdr_Invalid));
    QCOMPARE(MDARecPost(record, nullptr), int(mdr_Invalid));
    QCOMPARE(MDARecPost(edited, nullptr), int(mdr_Invalid));
    QVERIFY(MDARecArr(nullptr) == nullptr);
}

void MDArray_test::deletingDiscardsFreshAndEditedOnes()
{
    MixedArray array({"KeyLink"});
    MDRData* kept = array.add("kept");
    MDRData* fresh = array.fresh("fresh");
    QCOMPARE(MDARecDel(fresh), int(mdr_Ok));
    QVERIFY(MDARecArr(fresh) == nullptr);
    QCOMPARE(array.order(), QByteArray("kept"));
    MDRData* posted = kept;
    QCOMPARE(MDARecPost(fresh, &posted), int(mdr_Invalid));
    QVERIFY(posted == nullptr);
}

void MDArray_test::deletedAddressesAreNotUsedAgain()
{
    MixedArray array({"KeyLink"});
    QSet<MDRData*> gone;
    for (int i = 0; i < 3000; ++i) {
        MDRData* record = i % 2 == 0 ? array.add("x") : array.fresh("x");
        QVERIFY(!gone.contains(record));
        MDARecDel(record);
        gone.insert(record);
    }
    for (MDRData* record : gone)
        QVERIFY(MDARecArr(record) == nullptr);
}

void MDArray_test::clearingDropsRecordsOfEveryState()
{
    MixedArray array({"KeyLink", ""});
    MDRData* posted = array.add("a");
    MDRData* edited = MDARecEdit(posted);
    MDRData* fresh = array.fresh("b");
    QCOMPARE(MDAClearRec(array.array), int(mdr_Ok));
    QCOMPARE(MDAKeyCount(array.array), 2);
    QCOMPARE(MDAFldCount(array.array), mixedCount);
    QCOMPARE(array.RecCount(), 0);
    for (MDRData* record : {posted, edited, fresh}) {
        QVERIFY(MDARecArr(record) == nullptr);
        QCOMPARE(MDARecPost(record, nullptr), int(mdr_Invalid));
    }
    QVERIFY(MDARec(array.array, 0, 0) == nullptr);
    array.add("c");
    QCOMPARE(array.order(), QByteArray("c"));
    QCOMPARE(MDAClearRec(nullptr), int(mdr_Invalid));
}

void MDArray_test::clearingAllDropsKeysAndFieldsToo()
{
    MixedArray array({"KeyLink"});
    MDRData* posted = array.add("a");
    QCOMPARE(MDAClearAll(array.array), int(mdr_Ok));
    QCOMPARE(MDAKeyCount(array.array), 0);
    QCOMPARE(MDAFldCount(array.array), 0);
    QVERIFY(MDRFldByName(array.array, "KeyLink") == nullptr);
    QVERIFY(MDARecArr(posted) == nullptr);
    QVERIFY(MDARecsByEntry(array.array).empty());
    QCOMPARE(MDAFldAdd(array.array, mixedCount, mixedFields), int(mdr_Ok));
    array.KeyAdd("KeyLink", 0);
    array.add("b");
    QCOMPARE(array.order(), QByteArray("b"));
    QCOMPARE(MDAClearAll(nullptr), int(mdr_Invalid));
}

void MDArray_test::manyReloadsKeepOldRecordsReadable()
{
    MixedArray array({"KeyLink"});
    QVector<MDRData*> seen;
    for (int load = 0; load < 20; ++load) {
        for (int i = 0; i < 700; ++i) {
            MDRData* record = array.add(QByteArray::number(i));
            if (i % 50 == 0)
                seen.append(record);
        }
        QCOMPARE(array.RecCount(), 700);
        QCOMPARE(MDARecsByEntry(array.array).size(), std::size_t(700));
        MDAClearRec(array.array);
    }
    QCOMPARE(QSet<MDRData*>(seen.begin(), seen.end()).size(), seen.size());
    for (MDRData* record : seen) {
        QVERIFY(MDARecArr(record) == nullptr);
        QCOMPARE(MDARecDel(record), int(mdr_Invalid));
    }
}

void MDArray_test::clearedRecordsGiveTheirMemoryBack()
{
    MixedArray array;
    std::vector<MDRData*> records;
    for (int i = 0; i < 5000; ++i)
        records.push_back(array.add("a"));
    QVERIFY(records[4000]->entry == 4001);
    MDAClearRec(array.array);
    // Pages returned to the system read as zeros, including the number of entry.
    const auto zeros =
        std::count_if(records.begin(), records.end(), [](const MDRData* r) { return r->entry == 0; });
    QVERIFY(zeros > 2500);
}

void MDArray_test::recordsByEntryNeedNoKey()
{
    MixedArray array({});
    MDRData* late = array.fresh("late"); // made first, posted last
    for (const char* key : {"c", "a", "b"})
        array.add(key);
    array.post(late);
    QByteArray keys;
    for (MDRData* record : MDARecsByEntry(array.array))
        keys += array.text(record) + " ";
    QCOMPARE(keys, QByteArray("c a b late "));
    QVERIFY(MDARecsByEntry(nullptr).empty());
}

void MDArray_test::nullAndForeignRecordsAreAnsweredByCodes()
{
    QVERIFY(MDARecNew(nullptr) == nullptr);
    MDRData* posted = nullptr;
    QCOMPARE(MDARecPost(nullptr, &posted), int(mdr_Invalid));
    QCOMPARE(MDARecDel(nullptr), int(mdr_Invalid));
    MDRData alone;
    QCOMPARE(MDARecPost(&alone, &posted), int(mdr_Invalid));
    QCOMPARE(MDARecDel(&alone), int(mdr_Invalid));
    QVERIFY(MDARecArr(&alone) == nullptr);
}

void MDArray_test::unpackForWriteOnlyChecks()
{
    MixedArray array;
    array.add("a");
    QCOMPARE(MDAUnpackForWrite(array.array), int(mdr_Ok));
    QCOMPARE(array.order(), QByteArray("a"));
    QCOMPARE(MDAUnpackForWrite(nullptr), int(mdr_Invalid));
}

QTEST_APPLESS_MAIN(MDArray_test)
#include "MDArray_test.moc"
