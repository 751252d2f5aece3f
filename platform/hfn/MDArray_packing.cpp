#include "MDArrayInside.h"
#include "PackedBytes.h"

#include <cstring>
#include <limits>

// The packed forms. An array: its fields, its keys, its records. A stand-alone record: its fields, then the record. A
// record inside either form: its flags, and for each field one byte (value, mark) and the value. The array's form is
// base 64, since it is sent as text.

namespace
{
constexpr char arrayTag[5] = "VRKA";
constexpr char recordTag[5] = "VRKR";
constexpr std::uint8_t hasValue = 1;
constexpr std::uint8_t hasMark = 2;

void writeFields(PackedWriter& out, const FieldSet& fields)
{
    out.byte(static_cast<std::uint8_t>(fields.count()));
    for (int i = 0; i < fields.count(); ++i) {
        const MDRField* field = fields.byNumber(i);
        out.text(field->name, static_cast<std::int32_t>(std::strlen(field->name)));
        out.byte(field->width);
        out.byte(field->type);
    }
}

bool readFields(PackedReader& in, FieldSet& fields)
{
    const int count = in.byte();
    for (int i = 0; i < count; ++i) {
        MDRFieldDescr descriptor = {};
        std::int32_t length = 0;
        const char* name = in.text(&length);
        if (length >= static_cast<std::int32_t>(sizeof descriptor.name) ||
            std::memchr(name, 0, static_cast<std::size_t>(length)) != nullptr)
            return false;
        std::memcpy(descriptor.name, name, static_cast<std::size_t>(length));
        descriptor.width = in.byte();
        descriptor.type = in.byte();
        if (!in.ok() || fields.add(1, &descriptor) != mdr_Ok)
            return false;
    }
    return in.ok();
}

/// False when a stored blob could not be fetched.
bool writeRecord(PackedWriter& out, const FieldSet& fields, const MDRData* record)
{
    out.byte(record->flags);
    for (int i = 0; i < fields.count(); ++i) {
        const MDRField* field = fields.byNumber(i);
        MDRVar value;
        if (MDRGetVal(field, record, &value) != mdr_Ok)
            return false;
        const bool marked = record->body != nullptr && record->body->isMarked(i);
        out.byte(static_cast<std::uint8_t>((value.isNull != 0 ? 0 : hasValue) | (marked ? hasMark : 0)));
        if (value.isNull != 0)
            continue;
        if (isTextType(value.type))
            out.text(value.value.text.data, value.value.text.length);
        else if (value.type == mdr_TDouble)
            out.real(value.value.real);
        else
            out.number(static_cast<std::uint32_t>(value.value.number));
    }
    return true;
}

bool readRecord(PackedReader& in, const FieldSet& fields, MDRData* record)
{
    record->flags = in.byte();
    for (int i = 0; i < fields.count(); ++i) {
        const MDRField* field = fields.byNumber(i);
        const std::uint8_t bits = in.byte();
        if (!in.ok() || (bits & ~(hasValue | hasMark)) != 0)
            return false;
        if ((bits & hasMark) != 0 && MDRSetUser(field, record, 1) != mdr_Ok)
            return false;
        if ((bits & hasValue) == 0)
            continue;
        MDRVar value;
        value.type = field->type;
        if (isTextType(field->type))
            value.value.text.data = in.text(&value.value.text.length);
        else if (field->type == mdr_TDouble)
            value.value.real = in.real();
        else
            value.value.number = static_cast<std::int32_t>(in.number());
        if (!in.ok() || MDRSetVal(field, record, &value) != mdr_Ok)
            return false;
    }
    return in.ok();
}

bool readArray(PackedReader& in, MDArray* array)
{
    FieldSet fields;
    if (!readFields(in, fields))
        return false;
    array->replaceFields(fields);

    std::vector<MDRKeyDescr> keys(in.byte());
    for (MDRKeyDescr& key : keys) {
        std::int32_t length = 0;
        const char* text = in.text(&length);
        if (length >= static_cast<std::int32_t>(sizeof key.fields))
            return false;
        key = {};
        std::memcpy(key.fields, text, static_cast<std::size_t>(length));
        key.flags = static_cast<int>(in.number());
    }

    const std::uint32_t count = in.number();
    for (std::uint32_t i = 0; in.ok() && i < count; ++i) {
        MDRData* record = MDARecNew(array);
        if (record == nullptr || !readRecord(in, array->fields(), record))
            return false;
        MDARecPost(record, nullptr);
    }
    for (const MDRKeyDescr& key : keys) {
        if (array->addKey(key) != mdr_Ok)
            return false;
    }
    return in.finished();
}
} // namespace

QByteArray HFNArrayPack(const MDArray* array)
{
    if (array == nullptr)
        return {};
    PackedWriter out(arrayTag);
    writeFields(out, array->fields());
    out.byte(static_cast<std::uint8_t>(array->keyCount()));
    for (int i = 0; i < array->keyCount(); ++i) {
        const MDRKeyDescr& key = array->key(i)->key.descriptor();
        out.text(key.fields, static_cast<std::int32_t>(std::strlen(key.fields)));
        out.number(static_cast<std::uint32_t>(key.flags));
    }
    const std::vector<MDRData*> records = array->recordsByEntry();
    out.number(static_cast<std::uint32_t>(records.size()));
    for (const MDRData* record : records) {
        if (!writeRecord(out, array->fields(), record))
            return {};
    }
    return out.finish().toBase64();
}

int HFNArrayUnPack(MDArray* array, const char* packed, int)
{
    if (array == nullptr)
        return mdr_Invalid;
    MDAClearAll(array);
    const std::size_t length = packed != nullptr ? std::strlen(packed) : 0;
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return mdr_Packed;
    const QByteArray text = QByteArray::fromRawData(packed, static_cast<int>(length));
    const QByteArray bytes = QByteArray::fromBase64(text);
    PackedReader in(arrayTag, bytes.constData(), bytes.size());
    // The decoder is tolerant; only the one text that encodes exactly these bytes is undamaged.
    if (in.ok() && bytes.toBase64() == text && readArray(in, array))
        return mdr_Ok;
    MDAClearAll(array);
    return mdr_Packed;
}

void MDRRecInit(MDRData* record)
{
    if (record == nullptr || record->owner != nullptr)
        return;
    MDRData::Body::destroy(record->body);
    record->body = nullptr;
    record->flags = 0;
}

int MDRRecSet(MDRData* record, const char* packed, int length)
{
    if (record == nullptr)
        return mdr_Invalid;
    if (record->owner != nullptr)
        return mdr_Foreign;
    MDRRecInit(record);
    PackedReader in(recordTag, packed, length);
    auto fields = std::make_unique<FieldSet>();
    if (!in.ok() || !readFields(in, *fields) || fields->count() == 0)
        return mdr_Packed;
    const int code = MDRData::Body::ensure(record->body, fields->count());
    if (code != mdr_Ok)
        return code;
    record->body->fields = fields.release();
    if (readRecord(in, *record->body->fields, record) && in.finished())
        return mdr_Ok;
    MDRRecInit(record);
    return mdr_Packed;
}

QByteArray MDRRecPack(const MDRData* record)
{
    const FieldSet* fields = MDRFieldsOf(record);
    if (fields == nullptr || fields->count() == 0)
        return {};
    PackedWriter out(recordTag);
    writeFields(out, *fields);
    return writeRecord(out, *fields, record) ? out.finish() : QByteArray();
}
