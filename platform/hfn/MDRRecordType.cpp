#include "MDArrayInside.h"

#include <algorithm>
#include <cstring>

MDRRecordType::~MDRRecordType()
{
    delete[] fields;
}

void MDRTypInit(MDRRecordType* type)
{
    MDRTypFree(type);
}

int MDRTypGen(MDRRecordType* type, const char* source, const MDRData* record)
{
    const FieldSet* fields = MDRFieldsOf(record);
    if (type == nullptr || source == nullptr || std::strcmp(source, "NCI") != 0 || fields == nullptr)
        return mdr_Invalid;
    MDRTypFree(type);
    type->fields = new MDRField[static_cast<std::size_t>(fields->count())];
    for (; type->count < fields->count(); ++type->count)
        type->fields[type->count] = *fields->byNumber(type->count);
    return mdr_Ok;
}

void MDRTypFree(MDRRecordType* type)
{
    if (type == nullptr)
        return;
    delete[] type->fields;
    type->fields = nullptr;
    type->count = 0;
}

const MDRField* MDRFldByName(const MDRRecordType* type, const char* name)
{
    if (type == nullptr || name == nullptr)
        return nullptr;
    const auto found = std::find_if(type->fields, type->fields + type->count, [=](const MDRField& field) {
        return FieldSet::isSameName(field.name, name);
    });
    return found != type->fields + type->count ? found : nullptr;
}

const MDRField* MDRFldByNum(const MDRRecordType* type, int index)
{
    return type != nullptr && index >= 0 && index < type->count ? type->fields + index : nullptr;
}
