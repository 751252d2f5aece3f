#include "CMDArray.h"

#include <algorithm>
#include <cstring>

CMDArray& CMDArray::operator=(MDArray* answer)
{
    if (answer == nullptr || answer == array) {
        lastError = mdr_Assign;
        return *this;
    }
    MDADestroy(array);
    array = answer;
    lastError = mdr_Ok;
    return *this;
}

int CMDArray::KeyAdd(const char* fields, int flags)
{
    MDRKeyDescr descriptor = {};
    const std::size_t length = fields != nullptr ? std::strlen(fields) : 0;
    if (fields == nullptr || length >= sizeof descriptor.fields) {
        lastError = mdr_Invalid;
        return lastError;
    }
    std::memcpy(descriptor.fields, fields, length);
    descriptor.flags = flags;
    lastError = MDAKeyAdd(array, 1, &descriptor);
    return lastError;
}

void CMDArray::setKeys(std::initializer_list<const char*> keys)
{
    int added = 0;
    for (const char* fields : keys)
        added += KeyAdd(fields, 0) == mdr_Ok ? 1 : 0;
    while (MDAKeyCount(array) > std::max(added, 1))
        lastError = MDAKeyDel(array, 0);
}

MDRData* CMDArray::RecPost(MDRData* record)
{
    if (record == nullptr || MDARecArr(record) != array) {
        lastError = mdr_Foreign;
        return nullptr;
    }
    MDRData* posted = nullptr;
    lastError = MDARecPost(record, &posted);
    return posted;
}

void CMDArray::SetValF(MDRData* record, const char* name, const MDRVar& value)
{
    if (record == nullptr || MDARecArr(record) != array) {
        lastError = mdr_Foreign;
        return;
    }
    const MDRField* field = MDRFldByName(array, name);
    if (field == nullptr)
        return;
    lastError = MDRSetVal(field, record, &value);
    MDRSetUser(field, record, 1);
}

void CMDArray::GetVal(const MDRData* record, const char* name, MDRVar& value) const
{
    const MDRField* field = MDRFldByName(array, name);
    if (field == nullptr)
        value.type = mdr_TNone;
    else
        MDRGetVal(field, record, &value);
}
