#include "TableLoad.h"

#include "MDRValues.h"

QString TableLoad::quotedKeys(const CMDArray& table)
{
    QByteArray list;
    MDRVar key;
    for (int i = 0; i < table.RecCount(); ++i) {
        table.GetVal(MDARec(table.array, 0, i), "KeyLink", key);
        if (!list.isEmpty())
            list += ',';
        list += '\'' + MDRValue::bytes(key) + '\'';
    }
    return QString::fromUtf8(list);
}

MDRData* TableLoad::repack(const CMDArray& answer, CMDArray& records)
{
    const int fields = MDAFldCount(answer.array);
    MDRData* last = nullptr;
    for (int i = 0; i < answer.RecCount(); ++i) {
        const MDRData* source = MDARec(answer.array, 0, i);
        MDRData* record = MDARecNew(records.array);
        for (int number = 0; number < fields; ++number) {
            MDRVar value;
            MDRGetVal(MDRFldByNum(answer.array, number), source, &value);
            MDRSetVal(MDRFldByNum(records.array, number), record, &value);
        }
        last = records.RecPost(record);
    }
    return last;
}
