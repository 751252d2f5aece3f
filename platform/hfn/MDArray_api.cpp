#include "MDArrayInside.h"

#include <algorithm>
#include <QList>

namespace
{
/// A record that is part of an array and in this state.
bool isIn(const MDRData* record, RecordState state)
{
    return record != nullptr && record->owner != nullptr && record->state == state;
}

bool startsWith(const FieldSet& fields, const FieldSet& first)
{
    if (first.count() > fields.count())
        return false;
    for (int i = 0; i < first.count(); ++i) {
        if (fields.type(i) != first.type(i))
            return false;
    }
    return true;
}

/// Posts a copy of a record whose fields are of other types.
int appendValues(MDArray* array, const MDRData* record)
{
    MDRData* copy = MDARecNew(array);
    if (copy == nullptr)
        return mdr_Full;
    const int fields = std::min(MDAFldCount(array), MDAFldCount(record->owner));
    for (int i = 0; i < fields; ++i) {
        MDRVar value;
        MDRGetVal(MDRFldByNum(record->owner, i), record, &value);
        MDRSetVal(MDRFldByNum(array, i), copy, &value);
    }
    return MDARecPost(copy, nullptr);
}
} // namespace

int MDACreate(MDArray** array, int)
{
    if (array == nullptr)
        return mdr_Invalid;
    *array = new MDArray;
    return mdr_Ok;
}

void MDADestroy(MDArray* array)
{
    delete array;
}

int MDAFldAdd(MDArray* array, int count, const MDRFieldDescr* fields)
{
    return array != nullptr ? array->addFields(count, fields) : mdr_Invalid;
}

int MDAKeyAdd(MDArray* array, int count, const MDRKeyDescr* key)
{
    return array != nullptr && key != nullptr && count == 1 ? array->addKey(*key) : mdr_Invalid;
}

int MDAKeyDel(MDArray* array, int key)
{
    if (array == nullptr || array->key(key) == nullptr)
        return mdr_Invalid;
    array->removeKey(key);
    return mdr_Ok;
}

int MDAFldCount(const MDArray* array)
{
    return array != nullptr ? array->fields().count() : 0;
}

int MDAKeyCount(const MDArray* array)
{
    return array != nullptr ? array->keyCount() : 0;
}

int MDAKeyRecCount(const MDArray* array, int key)
{
    const RecordOrder* order = array != nullptr ? array->key(key) : nullptr;
    return order != nullptr ? order->count() : 0;
}

MDRData* MDARec(const MDArray* array, int key, int position)
{
    const RecordOrder* order = array != nullptr ? array->key(key) : nullptr;
    return order != nullptr ? order->at(position) : nullptr;
}

int MDARecPos(const MDArray* array, int key, const MDRData* record)
{
    const RecordOrder* order = array != nullptr ? array->key(key) : nullptr;
    if (order == nullptr || !isIn(record, RecordPosted) || record->owner != array)
        return -1;
    return order->position(record);
}

MDRData* MDARecNew(MDArray* array)
{
    return array != nullptr ? array->makeRecord() : nullptr;
}

MDRData* MDARecEdit(MDRData* record)
{
    return isIn(record, RecordPosted) ? record->owner->edit(record) : nullptr;
}

int MDARecPost(MDRData* record, MDRData** posted)
{
    MDRData* final = nullptr;
    if (isIn(record, RecordEdited)) {
        final = record->owner->postEdited(record);
    } else if (isIn(record, RecordFresh)) {
        record->owner->post(record);
        final = record;
    } else if (isIn(record, RecordPosted)) {
        final = record;
    }
    if (posted != nullptr)
        *posted = final;
    return final != nullptr ? mdr_Ok : mdr_Invalid;
}

int MDARecDel(MDRData* record)
{
    if (record == nullptr || record->owner == nullptr)
        return mdr_Invalid;
    record->owner->remove(record);
    return mdr_Ok;
}

MDRData* MDARecSeekV(const MDArray* array, int key, const MDRVar* values, int)
{
    const RecordOrder* order = array != nullptr ? array->key(key) : nullptr;
    return order != nullptr && values != nullptr ? order->seek(values) : nullptr;
}

MDRRange MDARecsWith(MDArray* array, const char* field, const char* text)
{
    const MDRField* known = MDRFldByName(array, field);
    if (known == nullptr || text == nullptr || (known->type != mdr_TChar && known->type != mdr_TMemo))
        return {};
    return array->recordsWith(known->ordinal, text);
}

MDRRange MDARecsWithout(MDArray* array, const char* fields)
{
    if (array == nullptr || fields == nullptr)
        return {};
    std::vector<int> ordinals;
    for (const QByteArray& name :
         QByteArray::fromRawData(fields, static_cast<int>(qstrlen(fields))).split(';')) {
        const MDRField* known = MDRFldByName(array, name.constData());
        if (known == nullptr)
            return {};
        ordinals.push_back(known->ordinal);
    }
    return array->recordsWithout(ordinals);
}

std::vector<MDRData*> MDARecsByEntry(const MDArray* array)
{
    return array != nullptr ? array->recordsByEntry() : std::vector<MDRData*>();
}

MDArray* MDARecArr(const MDRData* record)
{
    return record != nullptr ? record->owner : nullptr;
}

int MDAClearRec(MDArray* array)
{
    if (array == nullptr)
        return mdr_Invalid;
    array->removeAll();
    return mdr_Ok;
}

int MDAClearAll(MDArray* array)
{
    if (array == nullptr)
        return mdr_Invalid;
    array->removeAll();
    array->removeKeys();
    array->replaceFields(FieldSet());
    return mdr_Ok;
}

int MDACopy(MDArray* destination, const MDArray* source, int flag)
{
    if (destination == nullptr || source == nullptr || destination == source)
        return mdr_Invalid;
    destination->removeAll();
    destination->replaceFields(source->fields());
    if (destination->keyCount() == 0)
        destination->copyKeys(*source);
    return (flag & 1) != 0 ? destination->copyRecords(*source) : mdr_Ok;
}

int MDARecsAppend(MDArray* destination, const MDArray* source)
{
    if (destination == nullptr || source == nullptr || destination == source)
        return mdr_Invalid;
    const int rows = MDAKeyRecCount(source, 0);
    const bool isWhole = startsWith(destination->fields(), source->fields());
    for (int i = 0; i < rows; ++i) {
        const MDRData* record = MDARec(source, 0, i);
        const int code = isWhole ? destination->append(*record) : appendValues(destination, record);
        if (code != mdr_Ok)
            return code;
    }
    return mdr_Ok;
}

int MDAUnpackForWrite(MDArray* array)
{
    return array != nullptr ? mdr_Ok : mdr_Invalid;
}

const MDRField* MDRFldByName(const MDArray* array, const char* name)
{
    return array != nullptr ? array->fields().byName(name) : nullptr;
}

const MDRField* MDRFldByNum(const MDArray* array, int index)
{
    return array != nullptr ? array->fields().byNumber(index) : nullptr;
}
