#include "FuzzTarget.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "PackedInput.h"

// A record from any bytes is either refused and empty, or valid: its type reads it, its values can be
// copied into an array by position, and packing it again gives a record that packs to the same bytes.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    bool wrapped = false;
    const QByteArray input = packedInput(data, size, "VRKR", &wrapped);
    // Without the NUL that ends a byte array: nothing may be read after the last byte.
    const std::vector<char> packed(input.begin(), input.end());

    MDRData record;
    MDRRecordType type;
    MDRRecInit(&record);
    MDRTypInit(&type);
    const int code = MDRRecSet(&record, packed.data(), static_cast<int>(packed.size()));
    if (code != mdr_Ok) {
        fuzzRequire(code == mdr_Packed && MDRTypGen(&type, "NCI", &record) == mdr_Invalid);
        return 0;
    }

    fuzzRequire(MDRTypGen(&type, "NCI", &record) == mdr_Ok && type.count > 0);
    CMDArray array;
    MDACreate(&array.array, 0);
    MDAFldAdd(array.array, fieldCount(LogbookRecordFields), LogbookRecordFields);
    MDRData* copy = MDARecNew(array.array);
    for (int i = 0; i < type.count; ++i) {
        const MDRField* field = MDRFldByNum(&type, i);
        MDRVar value;
        bool mark = false;
        fuzzRequire(MDRGetVal(field, &record, &value) == mdr_Ok &&
                    MDRIsUser(field, &record, &mark) == mdr_Ok);
        fuzzRequire(MDRFldByName(&type, field->name) != nullptr);
        MDRSetVal(MDRFldByNum(array.array, i), copy, &value);
        MDRSetUser(field, copy, mark ? 1 : 0);
    }
    MDARecPost(copy, nullptr);

    const QByteArray again = MDRRecPack(&record);
    fuzzRequire(MDRRecSet(&record, again.constData(), again.size()) == mdr_Ok);
    fuzzRequire(MDRRecPack(&record) == again);
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    CRowBatch journal(LogbookRecordFields, fieldCount(LogbookRecordFields));
    MDRData* row = journal.newRow(ROW_UPDATE, QByteArray(32, 'A'));
    journal.SetValF(row, "recordTime", MDRValue::real(1795168800.0));
    journal.SetValF(row, "html", MDRValue::text("<p>text</p>"));
    journal.SetValF(row, "status", MDRValue::number(1));
    CRowBatch crew(LogbookWorkersWorkshiftFields, fieldCount(LogbookWorkersWorkshiftFields));
    MDRData* worker = crew.newRow(ROW_INSERT, "key");
    crew.SetValF(worker, "opening", MDRValue::boolean(true));

    std::vector<QByteArray> seeds;
    for (const MDRData* record : {row, worker}) {
        const QByteArray packed = MDRRecPack(record);
        seeds.push_back('\0' + packed);
        seeds.push_back('\1' + packedContent(packed));
    }
    return seeds;
}
