#include "ArrayTools.h"
#include "PackedBytes.h"

#include <QTest>
#include <random>

/// Packed arrays and packed records: what they preserve, and how damaged bytes are handled.
class Packing_test : public QObject
{
    Q_OBJECT

private slots:
    void anArrayComesBackWhole();
    void thePackedArrayIsAsciiText();
    void unpackingReplacesTheContent();
    void emptyArraysComeBack();
    void storedBlobsAreFetchedForPacking();
    void aRecordComesBackWithItsFields();
    void aRecordSetTwiceHoldsTheSecond();
    void aStandAloneRecordTakesChanges();
    void recordsOfAnArrayTakeNoPackedBytes();
    void typesReadAsTheRecordsFields();
    void everyTruncationOfAnArrayIsNoticed();
    void everyTruncationOfARecordIsNoticed();
    void everyFlipOfABitInAnArrayIsNoticed();
    void everyFlipOfABitInARecordIsNoticed();
    void otherVersionsAndTagsAreRefused();
    void bytesBehindTheEndAreRefused();
    void forgedContentIsRefused_data();
    void forgedContentIsRefused();
    void forgedLengthsAllocateNothing();
    void randomDamageUnderAValidChecksumHarmsNothing();
    void writerAndReaderAgree();
    void nonFiniteNumbersAreNotPacked();
    void formsBeyondAGibibyteAreRefusedWhole();
    void nullIsAnsweredByCodes();
};

static void fill(MixedArray& array)
{
    MDRData* record = array.fresh("first");
    array.set(record, "flag", MDRValue::boolean(true));
    array.set(record, "small", MDRValue::number(200, mdr_TByte));
    array.set(record, "number", MDRValue::number(-123456789));
    array.set(record, "time", MDRValue::real(1795168800.5));
    array.set(record, "text_", MDRValue::text("\xcf\xf0\xe8 & <b>"));
    array.set(record, "data", MDRValue::text("\0\xff\1", 3, mdr_TBlob));
    MDRSetUser(array.field("text_"), record, 1);
    MDRSetFlags(record, ROW_UPDATE);
    array.post(record);
    array.add("", "text_", MDRValue::text(""));
    record = MDARecNew(array.array);
    MDRSetUser(array.field("number"), record, 1);
    array.post(record);
}

static void verifyFilled(const MixedArray& names, const MDArray* array)
{
    const std::vector<MDRData*> records = MDARecsByEntry(array);
    QCOMPARE(records.size(), std::size_t(3));
    const MDRData* first = records[0];
    QCOMPARE(int(first->flags), int(ROW_UPDATE));
    QCOMPARE(names.text(first), QByteArray("first"));
    QCOMPARE(names.get(first, "flag").value.number, 1);
    QCOMPARE(names.get(first, "small").value.number, 200);
    QCOMPARE(names.get(first, "number").value.number, -123456789);
    QCOMPARE(names.get(first, "time").value.real, 1795168800.5);
    QCOMPARE(names.text(first, "text_"), QByteArray("\xcf\xf0\xe8 & <b>"));
    QCOMPARE(names.text(first, "data"), QByteArray("\0\xff\1", 3));
    QVERIFY(names.isMarked(first, "text_") && !names.isMarked(first, "KeyLink"));
    QVERIFY(!names.isNull(records[1], "text_") && names.isNull(records[1], "number"));
    QVERIFY(names.isNull(records[2], "KeyLink") && names.isMarked(records[2], "number"));
}

void Packing_test::anArrayComesBackWhole()
{
    MixedArray array({"KeyLink:0x4", "", "number;text_"});
    fill(array);
    const QByteArray packed = HFNArrayPack(array.array);
    CMDArray copy;
    MDACreate(&copy.array, 0);
    QCOMPARE(HFNArrayUnPack(copy.array, packed.constData(), 1), int(mdr_Ok));
    QCOMPARE(MDAFldCount(copy.array), mixedCount);
    for (int i = 0; i < mixedCount; ++i) {
        const MDRField* field = MDRFldByNum(copy.array, i);
        QCOMPARE(QByteArray(field->name), QByteArray(mixedFields[i].name));
        QCOMPARE(field->width, mixedFields[i].width);
        QCOMPARE(field->type, mixedFields[i].type);
    }
    QCOMPARE(MDAKeyCount(copy.array), 3);
    for (int key = 0; key < 3; ++key)
        QCOMPARE(MixedArray::orderOf(copy.array, key), array.order(key));
    verifyFilled(array, copy.array);
    QCOMPARE(HFNArrayPack(copy.array), packed);
}

void Packing_test::thePackedArrayIsAsciiText()
{
    MixedArray array;
    fill(array);
    for (char c : HFNArrayPack(array.array))
        QVERIFY(c > ' ' && c < 127);
}

void Packing_test::unpackingReplacesTheContent()
{
    MixedArray array({"KeyLink"});
    fill(array);
    const QByteArray packed = HFNArrayPack(array.array);
    MDRData* old = array.add("more");
    array.KeyAdd("", 0);
    QCOMPARE(HFNArrayUnPack(array.array, packed.constData(), 1), int(mdr_Ok));
    QVERIFY(MDARecArr(old) == nullptr);
    QCOMPARE(MDAKeyCount(array.array), 1);
    verifyFilled(array, array.array);
}

void Packing_test::emptyArraysComeBack()
{
    MDArray* bare = nullptr;
    MDACreate(&bare, 0);
    MixedArray array({"KeyLink"});
    QCOMPARE(HFNArrayUnPack(bare, HFNArrayPack(array.array).constData(), 1), int(mdr_Ok));
    QCOMPARE(MDAFldCount(bare), mixedCount);
    QCOMPARE(MDAKeyCount(bare), 1);
    QCOMPARE(MDAKeyRecCount(bare, 0), 0);
    MDAClearAll(bare);
    const QByteArray nothing = HFNArrayPack(bare);
    QVERIFY(!nothing.isEmpty());
    QCOMPARE(HFNArrayUnPack(array.array, nothing.constData(), 1), int(mdr_Ok));
    QCOMPARE(MDAFldCount(array.array), 0);
    MDADestroy(bare);
}

void Packing_test::storedBlobsAreFetchedForPacking()
{
    MixedArray array;
    MDRData* record = array.fresh("key");
    const auto source = std::make_shared<TestBlob>("bytes");
    MDRSetBlobSource(array.field("data"), record, 5, source);
    array.post(record);
    MixedArray copy;
    QCOMPARE(HFNArrayUnPack(copy.array, HFNArrayPack(array.array).constData(), 1), int(mdr_Ok));
    QCOMPARE(copy.text(MDARecsByEntry(copy.array)[0], "data"), QByteArray("bytes"));
    QCOMPARE(source->reads, 1);
}

void Packing_test::aRecordComesBackWithItsFields()
{
    MixedArray array;
    fill(array);
    const QByteArray packed = MDRRecPack(MDARec(array.array, 0, 0));
    MDRData record;
    MDRRecInit(&record);
    QCOMPARE(MDRRecSet(&record, packed.constData(), packed.size()), int(mdr_Ok));
    QVERIFY(MDARecArr(&record) == nullptr);
    QCOMPARE(int(record.flags), int(ROW_UPDATE));
    QCOMPARE(array.text(&record), QByteArray("first")); // through the handles of an array
    QCOMPARE(array.text(&record, "data"), QByteArray("\0\xff\1", 3));
    QCOMPARE(array.get(&record, "time").value.real, 1795168800.5);
    QVERIFY(array.isMarked(&record, "text_"));
    QVERIFY(!array.isMarked(&record, "time"));
    QCOMPARE(MDRRecPack(&record), packed);
    // The bytes are not needed any longer.
    QByteArray own = packed;
    MDRRecSet(&record, own.constData(), own.size());
    own.fill('x');
    QCOMPARE(array.text(&record), QByteArray("first"));
}

void Packing_test::aRecordSetTwiceHoldsTheSecond()
{
    MixedArray array;
    fill(array);
    MDRData record;
    const QByteArray first = MDRRecPack(MDARec(array.array, 0, 0));
    const QByteArray second = MDRRecPack(MDARec(array.array, 0, 2));
    QCOMPARE(MDRRecSet(&record, first.constData(), first.size()), int(mdr_Ok));
    QCOMPARE(MDRRecSet(&record, second.constData(), second.size()), int(mdr_Ok));
    QVERIFY(array.isNull(&record, "KeyLink"));
    QCOMPARE(int(record.flags), 0);
    QCOMPARE(MDRRecSet(&record, first.constData(), first.size() - 1), int(mdr_Packed));
    MDRVar value;
    QCOMPARE(MDRGetVal(array.field("KeyLink"), &record, &value), int(mdr_Invalid)); // empty again
    MDRRecInit(&record);
    MDRRecInit(nullptr);
    QCOMPARE(MDRRecPack(&record), QByteArray());
}

void Packing_test::aStandAloneRecordTakesChanges()
{
    MixedArray array;
    fill(array);
    const QByteArray packed = MDRRecPack(MDARec(array.array, 0, 0));
    MDRData record;
    MDRRecSet(&record, packed.constData(), packed.size());
    const QByteArray longText(5000, 'l');
    QCOMPARE(array.set(&record, "text_", MDRValue::text(longText)), int(mdr_Ok));
    QCOMPARE(array.text(&record, "text_"), longText);
    QCOMPARE(array.text(&record), QByteArray("first"));
    QCOMPARE(array.set(&record, "number", MDRValue::null()), int(mdr_Ok));
    QVERIFY(array.isNull(&record, "number"));
    QCOMPARE(MDRSetUser(array.field("number"), &record, 1), int(mdr_Ok));
    QVERIFY(array.isMarked(&record, "number"));
    const QByteArray again = MDRRecPack(&record); // its fields are still known
    MDRData second;
    QCOMPARE(MDRRecSet(&second, again.constData(), again.size()), int(mdr_Ok));
    QCOMPARE(array.text(&second, "text_"), longText);
}

void Packing_test::recordsOfAnArrayTakeNoPackedBytes()
{
    MixedArray array;
    fill(array);
    MDRData* record = MDARec(array.array, 0, 1);
    const QByteArray packed = MDRRecPack(MDARec(array.array, 0, 0));
    QCOMPARE(MDRRecSet(record, packed.constData(), packed.size()), int(mdr_Foreign));
    MDRRecInit(record); // for stand-alone ones only
    QVERIFY(!array.isNull(record, "KeyLink"));
    QCOMPARE(MDARecArr(record), array.array);
}

void Packing_test::typesReadAsTheRecordsFields()
{
    MixedArray array;
    fill(array);
    const QByteArray packed = MDRRecPack(MDARec(array.array, 0, 0));
    MDRData record;
    MDRRecordType type;
    MDRTypInit(&type);
    QCOMPARE(MDRTypGen(&type, "NCI", &record), int(mdr_Invalid)); // nothing set yet
    QCOMPARE(type.count, 0);
    MDRRecSet(&record, packed.constData(), packed.size());
    QCOMPARE(MDRTypGen(&type, "NCI", &record), int(mdr_Ok));
    QCOMPARE(type.count, mixedCount);
    for (int i = 0; i < mixedCount; ++i) {
        const MDRField* field = MDRFldByNum(&type, i);
        QCOMPARE(QByteArray(field->name), QByteArray(mixedFields[i].name));
        QCOMPARE(int(field->ordinal), i);
        QCOMPARE(field->type, mixedFields[i].type);
    }
    QCOMPARE(MDRFldByName(&type, "keylink"), MDRFldByNum(&type, 0));
    QVERIFY(MDRFldByName(&type, "nowhere") == nullptr);
    QVERIFY(MDRFldByName(&type, nullptr) == nullptr);
    QVERIFY(MDRFldByNum(&type, -1) == nullptr);
    QVERIFY(MDRFldByNum(&type, mixedCount) == nullptr);
    QVERIFY(MDRFldByNum(static_cast<MDRRecordType*>(nullptr), 0) == nullptr);
    QVERIFY(MDRFldByName(static_cast<MDRRecordType*>(nullptr), "KeyLink") == nullptr);
    MDRVar value;
    QCOMPARE(MDRGetVal(MDRFldByName(&type, "NUMBER"), &record, &value), int(mdr_Ok));
    QCOMPARE(value.value.number, -123456789);
    // Again for the same one, for a record in an array, and after wrong calls it is unchanged.
    QCOMPARE(MDRTypGen(&type, "NCI", MDARec(array.array, 0, 0)), int(mdr_Ok));
    QCOMPARE(MDRTypGen(&type, "XYZ", &record), int(mdr_Invalid));
    QCOMPARE(MDRTypGen(&type, nullptr, &record), int(mdr_Invalid));
    QCOMPARE(MDRTypGen(nullptr, "NCI", &record), int(mdr_Invalid));
    QCOMPARE(MDRTypGen(&type, "NCI", nullptr), int(mdr_Invalid));
    QCOMPARE(type.count, mixedCount);
    MDRTypFree(&type);
    QCOMPARE(type.count, 0);
    QVERIFY(MDRFldByNum(&type, 0) == nullptr);
    MDRTypFree(&type);
    MDRTypFree(nullptr);
}

/// Unpacks into a filled array and verifies that it is refused and leaves nothing.
static void verifyRefused(const QByteArray& packed, const char* what, int at)
{
    MixedArray target({"KeyLink"});
    target.add("before");
    const int code = HFNArrayUnPack(target.array, packed.constData(), 1);
    if (code != mdr_Packed || MDAFldCount(target.array) != 0 || MDAKeyCount(target.array) != 0 ||
        !MDARecsByEntry(target.array).empty())
        QFAIL(qPrintable(QStringLiteral("%1 at %2 gives %3").arg(QLatin1String(what)).arg(at).arg(code)));
}

static void verifyRecordRefused(const QByteArray& packed, const char* what, int at)
{
    // An exact copy on the heap, so that an address checker notices any access beyond its end.
    const std::vector<char> bytes(packed.begin(), packed.end());
    MDRData record;
    record.flags = 7;
    const int code = MDRRecSet(&record, bytes.data(), static_cast<int>(bytes.size()));
    if (code != mdr_Packed || record.body != nullptr || record.flags != 0)
        QFAIL(qPrintable(QStringLiteral("%1 at %2 gives %3").arg(QLatin1String(what)).arg(at).arg(code)));
}

void Packing_test::everyTruncationOfAnArrayIsNoticed()
{
    MixedArray array({"KeyLink"});
    fill(array);
    const QByteArray packed = HFNArrayPack(array.array);
    for (int length = 0; length < packed.size(); ++length)
        verifyRefused(packed.left(length), "truncation", length);
}

void Packing_test::everyTruncationOfARecordIsNoticed()
{
    MixedArray array;
    fill(array);
    const QByteArray packed = MDRRecPack(MDARec(array.array, 0, 0));
    for (int length = 0; length < packed.size(); ++length)
        verifyRecordRefused(packed.left(length), "truncation", length);
}

void Packing_test::everyFlipOfABitInAnArrayIsNoticed()
{
    MixedArray array({"KeyLink"});
    fill(array);
    // Three lengths, for the three possible endings of the text.
    for (int more = 0; more < 3; ++more) {
        array.add(QByteArray(more + 1, 'x'));
        const QByteArray packed = HFNArrayPack(array.array);
        for (int i = 0; i < packed.size(); ++i) {
            for (int bit = 0; bit < 8; ++bit) {
                QByteArray damaged = packed;
                damaged[i] = static_cast<char>(damaged[i] ^ (1 << bit));
                verifyRefused(damaged, "flip", i);
            }
        }
    }
}

void Packing_test::everyFlipOfABitInARecordIsNoticed()
{
    MixedArray array;
    fill(array);
    const QByteArray packed = MDRRecPack(MDARec(array.array, 0, 0));
    for (int i = 0; i < packed.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            QByteArray damaged = packed;
            damaged[i] = static_cast<char>(damaged[i] ^ (1 << bit));
            verifyRecordRefused(damaged, "flip", i);
        }
    }
}

/// The bytes with a matching checksum.
static QByteArray withChecksum(const QByteArray& content, const char (&tag)[5])
{
    PackedWriter writer(tag);
    for (char c : content)
        writer.byte(static_cast<std::uint8_t>(c));
    return writer.finish();
}

/// The content between head and checksum.
static QByteArray contentOf(const QByteArray& packed)
{
    return packed.mid(9, packed.size() - 13);
}

void Packing_test::otherVersionsAndTagsAreRefused()
{
    MixedArray array;
    fill(array);
    const QByteArray record = MDRRecPack(MDARec(array.array, 0, 0));
    QCOMPARE(withChecksum(contentOf(record), "VRKR"), record);
    verifyRecordRefused(withChecksum(contentOf(record), "VRKA"), "tag", 0);
    const QByteArray packed = QByteArray::fromBase64(HFNArrayPack(array.array));
    QCOMPARE(withChecksum(contentOf(packed), "VRKA").toBase64(), HFNArrayPack(array.array));
    verifyRefused(withChecksum(contentOf(packed), "VRKR").toBase64(), "tag", 0);
    verifyRefused(packed, "binary form", 0);
}

void Packing_test::bytesBehindTheEndAreRefused()
{
    MixedArray array;
    fill(array);
    const QByteArray record = MDRRecPack(MDARec(array.array, 0, 0));
    verifyRecordRefused(record + '\0', "more", 0);
    verifyRecordRefused(withChecksum(contentOf(record) + '\0', "VRKR"), "more within", 0);
    const QByteArray packed = HFNArrayPack(array.array);
    for (const char* more : {"A", "AAAA", "=", "\n", " "})
        verifyRefused(packed + more, "more", 0);
    const QByteArray content = contentOf(QByteArray::fromBase64(packed));
    verifyRefused(withChecksum(content + '\0', "VRKA").toBase64(), "more within", 0);
}

void Packing_test::forgedContentIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto field = [](const QByteArray& name, int type) {
        QByteArray bytes(4, 0);
        bytes[0] = static_cast<char>(name.size());
        return bytes + name + '\0' + static_cast<char>(type);
    };
    const QByteArray noKeys(1, 0);
    const QByteArray noRecords(4, 0);
    const QByteArray one("\1\0\0\0", 4);
    const QByteArray flags(1, 0);
    const QByteArray value(1, 1);
    QTest::newRow("an unknown type") << "\1" + field("a", 7) + noKeys + noRecords;
    QTest::newRow("a field without name") << "\1" + field("", mdr_TInt32) + noKeys + noRecords;
    QTest::newRow("a name too long") << "\1" + field(QByteArray(64, 'n'), mdr_TInt32) + noKeys + noRecords;
    QTest::newRow("a name with NUL") << "\1" + field(QByteArray("a\0b", 3), mdr_TInt32) + noKeys + noRecords;
    QTest::newRow("a key of no field")
        << "\1" + field("a", mdr_TInt32) + "\1" + QByteArray("\1\0\0\0b", 5) + QByteArray(4, 0) + noRecords;
    QTest::newRow("a key too long") << "\1" + field("a", mdr_TInt32) + "\1" + QByteArray("\x80\1\0\0", 4) +
                                           QByteArray(384, 'a') + QByteArray(4, 0) + noRecords;
    QTest::newRow("a byte out of range")
        << "\1" + field("a", mdr_TByte) + noKeys + one + flags + value + QByteArray("\0\1\0\0", 4);
    for (const QByteArray& bits :
         {QByteArray("\0\0\0\0\0\0\xf0\x7f", 8), QByteArray("\0\0\0\0\0\0\xf0\xff", 8),
          QByteArray("\0\0\0\0\0\0\xf8\x7f", 8)})
        QTest::addRow("a number that is none, %s", bits.toHex().constData())
            << "\1" + field("a", mdr_TDouble) + noKeys + one + flags + value + bits;
    QTest::newRow("unknown bits of a field")
        << "\1" + field("a", mdr_TByte) + noKeys + one + flags + QByteArray("\4", 1);
    QTest::newRow("a text beyond the end")
        << "\1" + field("a", mdr_TMemo) + noKeys + one + flags + value + QByteArray("\5\0\0\0abcd", 8);
    QTest::newRow("a text of negative length")
        << "\1" + field("a", mdr_TMemo) + noKeys + one + flags + value + QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("fewer records than stated")
        << "\1" + field("a", mdr_TMemo) + noKeys + QByteArray("\2\0\0\0", 4) + flags + QByteArray(1, 0);
    QTest::newRow("fewer fields than stated") << "\2" + field("a", mdr_TMemo);
    QTest::newRow("nothing") << QByteArray();
}

void Packing_test::forgedContentIsRefused()
{
    QFETCH(QByteArray, content);
    verifyRefused(withChecksum(content, "VRKA").toBase64(), "forged", 0);
    // A record has no keys and no count: refused, if only for that reason.
    verifyRecordRefused(withChecksum(content, "VRKR"), "forged", 0);
}

void Packing_test::forgedLengthsAllocateNothing()
{
    // Counts and lengths of four billion in some forty bytes: refused without allocating memory for them.
    const QByteArray field = QByteArray("\1\1\0\0\0a\0", 7) + static_cast<char>(mdr_TMemo);
    const QByteArray huge("\xff\xff\xff\x7f", 4);
    QElapsedTimer timer;
    timer.start();
    verifyRefused(withChecksum(field + '\0' + huge, "VRKA").toBase64(), "records", 0);
    verifyRefused(withChecksum(field + '\0' + QByteArray("\1\0\0\0\0\1", 6) + huge, "VRKA").toBase64(),
                  "text", 0);
    verifyRecordRefused(withChecksum(field + QByteArray("\0\1", 2) + huge, "VRKR"), "text", 0);
    verifyRecordRefused(withChecksum("\1" + huge, "VRKR"), "name", 0);
    QVERIFY(timer.elapsed() < 1000);
}

void Packing_test::randomDamageUnderAValidChecksumHarmsNothing()
{
    MixedArray array({"KeyLink", "number:0x4"});
    fill(array);
    const QByteArray arrayContent = contentOf(QByteArray::fromBase64(HFNArrayPack(array.array)));
    const QByteArray recordContent = contentOf(MDRRecPack(MDARec(array.array, 0, 0)));
    std::mt19937 random(20261120);
    int taken = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray content = round % 2 == 0 ? arrayContent : recordContent;
        for (unsigned changes = 1 + random() % 3; changes > 0; --changes)
            content[static_cast<int>(random() % unsigned(content.size()))] = static_cast<char>(random());
        if (round % 2 == 0) {
            MixedArray target({});
            const QByteArray packed = withChecksum(content, "VRKA").toBase64();
            const int code = HFNArrayUnPack(target.array, packed.constData(), 1);
            QVERIFY(code == mdr_Ok || code == mdr_Packed);
            QVERIFY(code == mdr_Ok || MDAFldCount(target.array) == 0);
            taken += code == mdr_Ok ? 1 : 0;
            if (code == mdr_Ok) // accepted content is valid: it can be packed, and is unchanged
                QCOMPARE(HFNArrayUnPack(target.array, HFNArrayPack(target.array).constData(), 1),
                         int(mdr_Ok));
        } else {
            MDRData record;
            const QByteArray packed = withChecksum(content, "VRKR");
            const int code = MDRRecSet(&record, packed.constData(), packed.size());
            QVERIFY(code == mdr_Ok || code == mdr_Packed);
            QCOMPARE(code == mdr_Ok, !MDRRecPack(&record).isEmpty());
        }
    }
    QVERIFY(taken > 100); // changed values are harmless
}

void Packing_test::writerAndReaderAgree()
{
    PackedWriter writer("TEST");
    writer.byte(250);
    writer.number(4000000000U);
    writer.real(-0.125);
    writer.text("a\0b", 3);
    writer.text("", 0);
    const QByteArray packed = writer.finish();
    PackedReader reader("TEST", packed.constData(), packed.size());
    QVERIFY(reader.ok());
    QVERIFY(!reader.finished());
    QCOMPARE(int(reader.byte()), 250);
    QCOMPARE(reader.number(), 4000000000U);
    QCOMPARE(reader.real(), -0.125);
    std::int32_t length = 0;
    const char* text = reader.text(&length);
    QCOMPARE(QByteArray(text, length), QByteArray("a\0b", 3));
    reader.text(&length);
    QCOMPARE(length, 0);
    QVERIFY(reader.ok());
    QVERIFY(reader.finished());
    QCOMPARE(reader.number(), 0U); // nothing remains
    QVERIFY(!reader.ok());
    QVERIFY(!reader.finished());
    QCOMPARE(int(reader.byte()), 0);
    QCOMPARE(reader.real(), 0.0);
    QCOMPARE(QByteArray(reader.text(&length)), QByteArray());
    QCOMPARE(length, 0);
    // The form is the same on every machine; the checksum is the common CRC-32.
    QCOMPARE(packed.toHex(), QByteArray("544553540118000000"
                                        "fa00286bee000000000000c0bf0300000061006200000000"
                                        "1f5327be"));
    const QByteArray nothing = PackedWriter("TEST").finish(); // a form without content is also a form
    QVERIFY(PackedReader("TEST", nothing.constData(), nothing.size()).finished());
    QVERIFY(!PackedReader("TEST", nothing.constData(), nothing.size() - 1).ok());
    QVERIFY(!PackedReader("TEST", nullptr, 0).ok());
    QVERIFY(!PackedReader("TEST", packed.constData(), -1).ok());
}

void Packing_test::nonFiniteNumbersAreNotPacked()
{
    for (const double value :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        MixedArray array;
        MDRData* record = array.add("key", "time", MDRValue::real(value));
        QCOMPARE(HFNArrayPack(array.array), QByteArray());
        QCOMPARE(MDRRecPack(record), QByteArray());
    }
}

void Packing_test::formsBeyondAGibibyteAreRefusedWhole()
{
    // Zero pages: refused before they are touched.
    constexpr int tooMany = (1 << 30) + 1;
    const std::unique_ptr<void, decltype(&std::free)> bytes(std::calloc(1, tooMany), &std::free);
    QVERIFY(bytes != nullptr);
    PackedWriter writer("TEST");
    writer.text(static_cast<const char*>(bytes.get()), tooMany);
    writer.byte(1); // nothing is written after the gap
    QCOMPARE(writer.finish(), QByteArray());
    PackedWriter small("TEST");
    small.text(static_cast<const char*>(bytes.get()), 1000);
    QCOMPARE(small.finish().size(), 9 + 4 + 1000 + 4);
}

void Packing_test::nullIsAnsweredByCodes()
{
    MixedArray array;
    QCOMPARE(HFNArrayUnPack(nullptr, "", 1), int(mdr_Invalid));
    QCOMPARE(HFNArrayUnPack(array.array, nullptr, 1), int(mdr_Packed));
    QCOMPARE(HFNArrayPack(nullptr), QByteArray());
    QCOMPARE(MDRRecSet(nullptr, "", 0), int(mdr_Invalid));
    MDRData record;
    QCOMPARE(MDRRecSet(&record, nullptr, 5), int(mdr_Packed));
    QCOMPARE(MDRRecSet(&record, "", -1), int(mdr_Packed));
    QCOMPARE(MDRRecPack(nullptr), QByteArray());
    QCOMPARE(MDRRecPack(&record), QByteArray());
    // A record of an array without fields has nothing to pack.
    MDAClearAll(array.array);
    QCOMPARE(MDRRecPack(MDARecNew(array.array)), QByteArray());
}

QTEST_APPLESS_MAIN(Packing_test)
#include "Packing_test.moc"
