#include "TableLoad.h"

#include "MDRValues.h"

#include <utility>
#include <vector>

QString TableLoad::quotedKeys(const CMDArray& table)
{
    constexpr int usualLength = 35; // a key of 32 characters, two quotes, a comma
    const MDRField* field = MDRFldByName(table.array, "KeyLink");
    const int rows = table.RecCount();
    QByteArray list;
    list.reserve(rows * usualLength);
    MDRVar key;
    for (int i = 0; i < rows; ++i) {
        MDRGetVal(field, MDARec(table.array, 0, i), &key);
        if (!list.isEmpty())
            list.append(',');
        list.append('\'');
        if (MDRValue::hasText(key))
            list.append(key.value.text.data, key.value.text.length);
        list.append('\'');
    }
    return QString::fromUtf8(list);
}

MDRData* TableLoad::repack(const CMDArray& answer, CMDArray& records)
{
    std::vector<std::pair<const MDRField*, const MDRField*>> fields;
    for (int number = 0; number < MDAFldCount(answer.array); ++number) {
        const MDRField* from = MDRFldByNum(answer.array, number);
        if (from->type != mdr_TBlob) // reading it would fetch it
            fields.emplace_back(from, MDRFldByNum(records.array, number));
    }
    MDRData* last = nullptr;
    const int rows = answer.RecCount();
    for (int i = 0; i < rows; ++i) {
        const MDRData* source = MDARec(answer.array, 0, i);
        MDRData* record = MDARecNew(records.array);
        for (const auto& [from, to] : fields) {
            MDRVar value;
            MDRGetVal(from, source, &value);
            MDRSetVal(to, record, &value);
        }
        last = records.RecPost(record);
    }
    return last;
}
