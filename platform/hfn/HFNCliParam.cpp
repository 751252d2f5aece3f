#include "HFNCliParam.h"

#include "MDRValues.h"

namespace
{
const MDRFieldDescr answerFields[] = {
    {"Code", 0, mdr_TInt32},
    {"Reserved", 0, mdr_TInt32},
    {"Array", 0, mdr_TMemo},
};

const MDRFieldDescr eventFields[] = {
    {"Reserved0", 0, mdr_TInt32}, {"Number", 0, mdr_TInt32}, {"Reserved2", 0, mdr_TInt32},
    {"Reserved3", 0, mdr_TInt32}, {"Key", 0, mdr_TMemo},     {"Source", 0, mdr_TMemo},
    {"Reserved6", 0, mdr_TInt32}, {"Row", 0, mdr_TBlob},
};

template <int N>
HFNCliParam* makeBlock(const MDRFieldDescr (&fields)[N])
{
    auto* block = new HFNCliParam;
    MDAFldAdd(block->array, N, fields);
    MDARecPost(MDARecNew(block->array), &block->record);
    return block;
}

void set(HFNCliParam* block, int field, const MDRVar& value)
{
    MDRSetVal(MDRFldByNum(block->array, field), block->record, &value);
}

/// The field's value, or a value without a type if there is no field of this kind.
MDRVar get(const MDRField* field, const HFNCliParam* block, int* code)
{
    MDRVar value;
    *code = block != nullptr ? MDRGetVal(field, block->record, &value) : mdr_Invalid;
    return value;
}

char noText[1] = "";
} // namespace

HFNCliParam::HFNCliParam()
{
    MDACreate(&array, 0);
}

HFNCliParam::~HFNCliParam()
{
    MDADestroy(array);
}

HFNCliParam* HFNCliParam::answer(int code, const QByteArray& packedArray)
{
    HFNCliParam* block = makeBlock(answerFields);
    set(block, 0, MDRValue::number(code));
    set(block, 2, MDRValue::text(packedArray, mdr_TMemo));
    return block;
}

HFNCliParam* HFNCliParam::event(int number, const QByteArray& key, const QByteArray& source,
                                const QByteArray& packedRecord)
{
    HFNCliParam* block = makeBlock(eventFields);
    set(block, 1, MDRValue::number(number));
    set(block, 4, MDRValue::text(key, mdr_TMemo));
    set(block, 5, MDRValue::text(source, mdr_TMemo));
    set(block, 7, MDRValue::text(packedRecord, mdr_TBlob));
    return block;
}

int MDRGetAsInt32(const MDRField* field, const HFNCliParam* block, int* value)
{
    if (value == nullptr)
        return mdr_Invalid;
    *value = 0;
    int code = mdr_Ok;
    const MDRVar read = get(field, block, &code);
    if (code != mdr_Ok)
        return code;
    if (MDRValue::isText(read) || read.type == mdr_TDouble)
        return mdr_TypeMismatch;
    *value = read.value.number;
    return mdr_Ok;
}

int MDRGetTextPtr(const MDRField* field, const HFNCliParam* block, char** text)
{
    if (text == nullptr)
        return mdr_Invalid;
    int length = 0;
    const char* data = nullptr;
    const int code = MDRGetTextRef(field, block, &length, &data);
    *text = const_cast<char*>(data);
    return code;
}

int MDRGetTextRef(const MDRField* field, const HFNCliParam* block, int* length, const char** data)
{
    if (length == nullptr || data == nullptr)
        return mdr_Invalid;
    *length = 0;
    *data = noText;
    int code = mdr_Ok;
    const MDRVar read = get(field, block, &code);
    if (code != mdr_Ok)
        return code;
    if (!MDRValue::isText(read))
        return mdr_TypeMismatch;
    if (read.isNull == 0) {
        *length = read.value.text.length;
        *data = read.value.text.data;
    }
    return mdr_Ok;
}
