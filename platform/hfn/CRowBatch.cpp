#include "CRowBatch.h"

#include "MDRValues.h"

CRowBatch::CRowBatch(const MDRFieldDescr* fields, int count)
{
    MDACreate(&array, 0);
    lastError = MDAFldAdd(array, count, fields);
    if (lastError == mdr_Ok)
        KeyAdd("", 0);
}

CRowBatch::CRowBatch(const CMDArray& structure)
{
    MDACreate(&array, 0);
    KeyAdd("", 0);
    lastError = MDACopy(array, structure.array, 0);
}

MDRData* CRowBatch::newRow(MDRFlag flag, const QByteArray& keyLink)
{
    MDRData* row = MDARecNew(array);
    MDRSetFlags(row, flag);
    const MDRVar key = MDRValue::text(keyLink);
    MDRSetVal(MDRFldByName(array, "KeyLink"), row, &key);
    return row;
}
