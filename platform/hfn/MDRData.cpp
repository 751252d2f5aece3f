#include "MDArrayInside.h"

#include <cmath>
#include <limits>

using Body = MDRData::Body;

namespace
{
/// mdr_Ok if the record has the field that the handle describes.
int check(const MDRField* field, const MDRData* record)
{
    const FieldSet* fields = MDRFieldsOf(record);
    return fields != nullptr ? fields->check(field) : mdr_Invalid;
}

int ensureBody(MDRData* record)
{
    return record->owner != nullptr ? record->owner->ensureBody(record) : mdr_Ok;
}

template <typename Change>
int alter(const MDRField* field, MDRData* record, Change change)
{
    return record->owner != nullptr ? record->owner->alter(record, field->ordinal, change) : change();
}

/// The number as a field of this type holds it; false when it cannot.
bool convert(const MDRVar& value, std::uint8_t type, std::int32_t* number)
{
    if (value.type == mdr_TDouble) {
        const double real = value.value.real;
        if (type == mdr_TBool) {
            *number = real != 0.0 ? 1 : 0;
            return !std::isnan(real);
        }
        const double nearest = std::nearbyint(real);
        if (!(nearest >= std::numeric_limits<std::int32_t>::min() &&
              nearest <= std::numeric_limits<std::int32_t>::max()))
            return false;
        *number = static_cast<std::int32_t>(nearest);
    } else {
        *number = value.value.number;
        if (type == mdr_TBool)
            *number = *number != 0 ? 1 : 0;
    }
    return type != mdr_TByte || (*number >= 0 && *number <= std::numeric_limits<std::uint8_t>::max());
}

int setNull(const MDRField* field, MDRData* record)
{
    if (record->body == nullptr || !record->body->has(field->ordinal))
        return mdr_Ok;
    return alter(field, record, [=] {
        record->body->setNull(field->ordinal);
        return mdr_Ok;
    });
}

int setText(const MDRField* field, MDRData* record, const MDRVar::Text& text)
{
    if (text.length < 0 || (text.data == nullptr && text.length > 0))
        return mdr_Invalid;
    return alter(field, record, [=] {
        const int code = ensureBody(record);
        return code != mdr_Ok ? code : Body::setText(record->body, field->ordinal, text.data, text.length);
    });
}

int setReal(const MDRField* field, MDRData* record, double real)
{
    return alter(field, record, [=] {
        const int code = ensureBody(record);
        if (code == mdr_Ok)
            record->body->setReal(field->ordinal, real);
        return code;
    });
}

int setNumber(const MDRField* field, MDRData* record, std::int32_t number)
{
    return alter(field, record, [=] {
        const int code = ensureBody(record);
        if (code == mdr_Ok)
            record->body->setNumber(field->ordinal, number);
        return code;
    });
}

/// Fetches the bytes of a stored blob if they are not here yet.
int fetch(StoredBlob* blob)
{
    if (blob->source == nullptr)
        return mdr_Ok;
    QByteArray bytes;
    if (!blob->source->read(bytes))
        return mdr_Source;
    blob->bytes = bytes;
    blob->length = bytes.size();
    blob->source.reset();
    return mdr_Ok;
}
} // namespace

const FieldSet* MDRFieldsOf(const MDRData* record)
{
    if (record == nullptr)
        return nullptr;
    if (record->owner != nullptr)
        return &record->owner->fields();
    return record->body != nullptr ? record->body->fields : nullptr;
}

MDRBlobSource::~MDRBlobSource() = default;

MDRData::~MDRData()
{
    Body::destroy(body);
}

int MDRGetVal(const MDRField* field, const MDRData* record, MDRVar* value)
{
    if (value == nullptr)
        return mdr_Invalid;
    value->type = mdr_TNone;
    const int code = check(field, record);
    if (code != mdr_Ok)
        return code;

    const int ordinal = field->ordinal;
    const Body* body = record->body;
    value->type = field->type;
    value->isNull = 0;
    if (body == nullptr || !body->has(ordinal)) {
        value->isNull = 1;
        value->value = {};
        if (isTextType(field->type))
            value->value.text = {0, ""};
    } else if (!isTextType(field->type)) {
        if (field->type == mdr_TDouble)
            value->value.real = body->slot(ordinal).real;
        else
            value->value.number = body->slot(ordinal).number;
    } else if (body->holdsText(ordinal)) {
        value->value.text = {body->slot(ordinal).text.length, body->text(ordinal)};
    } else {
        StoredBlob* blob = body->blob(ordinal);
        if (fetch(blob) != mdr_Ok) {
            value->isNull = 1;
            value->value.text = {0, ""};
            return mdr_Source;
        }
        value->value.text = {blob->length, blob->bytes.constData()};
    }
    return mdr_Ok;
}

int MDRSetVal(const MDRField* field, MDRData* record, const MDRVar* value)
{
    const int code = check(field, record);
    if (code != mdr_Ok || value == nullptr)
        return code != mdr_Ok ? code : mdr_Invalid;
    if (value->isNull != 0)
        return setNull(field, record);
    if (isTextType(field->type))
        return isTextType(value->type) ? setText(field, record, value->value.text) : mdr_TypeMismatch;
    if (value->type != mdr_TDouble && !isNumberType(value->type))
        return mdr_TypeMismatch;
    if (field->type == mdr_TDouble)
        return setReal(field, record, value->type == mdr_TDouble ? value->value.real : value->value.number);
    std::int32_t number = 0;
    return convert(*value, field->type, &number) ? setNumber(field, record, number) : mdr_TypeMismatch;
}

int MDRSetUser(const MDRField* field, MDRData* record, int mark)
{
    int code = check(field, record);
    if (code == mdr_Ok)
        code = ensureBody(record);
    if (code == mdr_Ok)
        record->body->setMark(field->ordinal, mark != 0);
    return code;
}

int MDRIsUser(const MDRField* field, const MDRData* record, bool* mark)
{
    if (mark == nullptr)
        return mdr_Invalid;
    const int code = check(field, record);
    *mark = code == mdr_Ok && record->body != nullptr && record->body->isMarked(field->ordinal);
    return code;
}

int MDRIsNull(const MDRField* field, const MDRData* record, bool* null)
{
    if (null == nullptr)
        return mdr_Invalid;
    const int code = check(field, record);
    *null = code != mdr_Ok || record->body == nullptr || !record->body->has(field->ordinal);
    return code;
}

int MDRSetFlags(MDRData* record, int flags)
{
    if (record == nullptr)
        return mdr_Invalid;
    record->flags = static_cast<std::uint8_t>(flags);
    return mdr_Ok;
}

int MDRSetBlobSource(const MDRField* field, MDRData* record, std::int32_t length,
                     std::shared_ptr<const MDRBlobSource> source)
{
    int code = check(field, record);
    if (code == mdr_Ok && field->type != mdr_TBlob)
        code = mdr_TypeMismatch;
    if (code == mdr_Ok && (length < 0 || source == nullptr))
        code = mdr_Invalid;
    if (code == mdr_Ok)
        code = ensureBody(record);
    if (code != mdr_Ok)
        return code;
    auto blob = std::make_unique<StoredBlob>();
    blob->length = length;
    blob->source = std::move(source);
    record->body->setBlob(field->ordinal, std::move(blob));
    return mdr_Ok;
}

int MDRBlobLength(const MDRField* field, const MDRData* record, std::int32_t* length)
{
    if (length == nullptr)
        return mdr_Invalid;
    *length = 0;
    int code = check(field, record);
    if (code == mdr_Ok && field->type != mdr_TBlob)
        code = mdr_TypeMismatch;
    const Body* body = code == mdr_Ok ? record->body : nullptr;
    if (body != nullptr && body->has(field->ordinal)) {
        const StoredBlob* blob = body->blob(field->ordinal);
        *length = blob != nullptr ? blob->length : body->slot(field->ordinal).text.length;
    }
    return code;
}
