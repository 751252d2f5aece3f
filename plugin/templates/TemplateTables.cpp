#include "TemplateTables.h"

#include "LogbookFields.h"
#include "MDRValues.h"
#include "TEventNciParse.h"

TemplateTables::TemplateTables()
{
    for (CModelTable* table : {&categoriesEdit, &categoriesMoved})
        MDAFldAdd(table->data.array, fieldCount(LogbookCatsTemplateFields), LogbookCatsTemplateFields);
    for (CModelTable* table : {&templatesEdit, &templatesMoved})
        MDAFldAdd(table->data.array, fieldCount(LogbookTemplatesFields), LogbookTemplatesFields);
    for (CModelTable* table :
         {&categories, &templates, &categoriesEdit, &templatesEdit, &categoriesMoved, &templatesMoved})
        setDefaultKey(table);
}

void TemplateTables::setDefaultKey(CModelTable* table)
{
    CMDArray& rows = table->data;
    rows.KeyAdd("", 0);
    while (MDAKeyCount(rows.array) > 1)
        rows.lastError = MDAKeyDel(rows.array, 0);
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

MDRData* TemplateTables::recordByKeyLink(const CModelTable* table, const char* key)
{
    if (!table || !key || *key == '\0')
        return nullptr;
    const MDRRange found = MDARecsWith(table->data.array, Field::KeyLink, key);
    return found.count > 0 ? found.data[0] : nullptr;
}

bool TemplateTables::isContains(const CModelTable* table, const MDRData* record)
{
    return table && record && MDARecArr(record) == table->data.array;
}

MDRData* TemplateTables::changeRecord(CModelTable* table, MDRData* record, TEventNciParse* event)
{
    if (!table || !record)
        return nullptr;
    for (int i = 0; i < event->recordType.count; ++i) {
        const MDRField* field = MDRFldByNum(&event->recordType, i);
        bool isMarked = false;
        MDRIsUser(field, &event->recordData, &isMarked);
        if (!isMarked)
            continue;
        MDRVar value;
        MDRGetVal(field, &event->recordData, &value);
        MDRSetVal(field, record, &value); // by position: the handle is of the event's type
    }
    return table->data.RecPost(record);
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
