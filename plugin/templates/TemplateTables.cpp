#include "TemplateTables.h"

#include "MDRValues.h"

TemplateTables::TemplateTables()
{
    setDefaultKey(&categories);
    setDefaultKey(&templates);
}

void TemplateTables::copyFrom(CModelTable* table, const CModelTable* source)
{
    CMDArray& rows = table->data;
    if (!source || !source->data.array) {
        rows.lastError = mdr_Assign;
        return;
    }
    rows.lastError = MDACopy(rows.array, source->data.array, 1);
    MDAUnpackForWrite(rows.array);
    setDefaultKey(table);
}

MDRVar TemplateTables::keyOrNull(const QByteArray& key)
{
    return key.isEmpty() ? MDRValue::null() : MDRValue::text(key);
}

bool TemplateTables::isContains(const CModelTable* table, const MDRData* record)
{
    return table && record && MDARecArr(record) == table->data.array;
}

void TemplateTables::deleteRecord(CModelTable* table, MDRData* record)
{
    table->data.lastError = isContains(table, record) ? MDARecDel(record) : mdr_Foreign;
}

void TemplateTables::storeField(CModelTable* table, MDRData* record, const char* field, const MDRVar& value)
{
    MDRData* edited = MDARecEdit(record);
    table->data.SetValF(edited, field, value);
    table->data.RecPost(edited);
}
