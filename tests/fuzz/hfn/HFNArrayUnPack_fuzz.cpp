#include "FuzzTarget.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "PackedInput.h"

// An array from any bytes is either refused and empty, or valid: every value can be read, every record is
// found by its keys, and packing it again gives an array that packs to the same bytes.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    bool wrapped = false;
    QByteArray packed = packedInput(data, size, "VRKA", &wrapped);
    if (wrapped)
        packed = packed.toBase64();

    CMDArray array;
    MDACreate(&array.array, 0);
    const int code = HFNArrayUnPack(array.array, packed.constData(), 1);
    if (code != mdr_Ok) {
        fuzzRequire(code == mdr_Packed && MDAFldCount(array.array) == 0 &&
                    MDARecsByEntry(array.array).empty());
        return 0;
    }

    const std::vector<MDRData*> records = MDARecsByEntry(array.array);
    for (int key = 0; key < MDAKeyCount(array.array); ++key) {
        fuzzRequire(MDAKeyRecCount(array.array, key) == static_cast<int>(records.size()));
        for (int i = 0; i < MDAKeyRecCount(array.array, key); ++i)
            fuzzRequire(MDARecPos(array.array, key, MDARec(array.array, key, i)) == i);
    }
    for (MDRData* record : records) {
        for (int i = 0; i < MDAFldCount(array.array); ++i) {
            MDRVar value;
            fuzzRequire(MDRGetVal(MDRFldByNum(array.array, i), record, &value) == mdr_Ok);
            if (MDRValue::isText(value)) // every byte can be read, and the NUL after them
                fuzzRequire(QByteArray(value.value.text.data, value.value.text.length + 1).endsWith('\0'));
        }
        fuzzRequire(MDARecEdit(record) != nullptr);
    }

    const QByteArray again = HFNArrayPack(array.array);
    fuzzRequire(HFNArrayUnPack(array.array, again.constData(), 1) == mdr_Ok);
    fuzzRequire(HFNArrayPack(array.array) == again);
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    CRowBatch journal(LogbookRecordFields, fieldCount(LogbookRecordFields));
    journal.KeyAdd("ShiftKey;recordTime:0x4", 0);
    for (int i = 0; i < 3; ++i) {
        MDRData* row = journal.newRow(ROW_INSERT, QByteArray(32, static_cast<char>('A' + i)));
        journal.SetValF(row, "recordTime", MDRValue::real(1795168800.0 + i));
        journal.SetValF(row, "html", MDRValue::text("<p>text</p>"));
        journal.SetValF(row, "status", MDRValue::number(i));
        journal.RecPost(row);
    }
    CRowBatch files(LogbookFilesFields, fieldCount(LogbookFilesFields));
    MDRData* row = files.newRow(ROW_UPDATE, "key");
    files.SetValF(row, "fileData", MDRValue::text("\0\1\2\3", 4, mdr_TBlob));
    files.RecPost(row);

    std::vector<QByteArray> seeds;
    for (const CMDArray* array :
         {static_cast<const CMDArray*>(&journal), static_cast<const CMDArray*>(&files)}) {
        const QByteArray packed = HFNArrayPack(array->array);
        seeds.push_back('\0' + packed);
        seeds.push_back('\1' + packedContent(QByteArray::fromBase64(packed)));
    }
    return seeds;
}
