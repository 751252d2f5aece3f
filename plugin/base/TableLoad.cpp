#include "TableLoad.h"

#include "Fields.h"
#include "MDRValues.h"

QString TableLoad::quotedKeys(const CMDArray& table)
{
    constexpr int usualLength = 35; // a key of 32 characters, two quotes, a comma
    const MDRField* field = MDRFldByName(table.array, Field::KeyLink);
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
