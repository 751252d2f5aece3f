#include "KeyOrder.h"

#include "RecordBody.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

using Body = MDRData::Body;

namespace
{
constexpr unsigned long fallingFlag = 0x4;

int compareReal(double a, double b)
{
    if (std::isnan(a) || std::isnan(b))
        return static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a));
    return static_cast<int>(a > b) - static_cast<int>(a < b);
}

int compareNumber(std::int32_t a, std::int32_t b)
{
    return static_cast<int>(a > b) - static_cast<int>(a < b);
}

int compareText(const char* a, std::int32_t aLength, const char* b, std::int32_t bLength)
{
    const std::int32_t common = std::min(aLength, bLength);
    const int order = common > 0 ? std::memcmp(a, b, static_cast<std::size_t>(common)) : 0;
    return order != 0 ? order : compareNumber(aLength, bLength);
}

bool hasValue(const Body* body, int ordinal)
{
    return body != nullptr && body->has(ordinal);
}
} // namespace

int KeyOrder::parse(const MDRKeyDescr& descriptor, const FieldSet& fields)
{
    if (std::memchr(descriptor.fields, 0, sizeof descriptor.fields) == nullptr)
        return mdr_Invalid;
    std::vector<Named> named;
    const std::string text = descriptor.fields;
    for (std::size_t begin = 0; !text.empty() && begin <= text.size();) {
        const std::size_t end = std::min(text.find(';', begin), text.size());
        std::string field = text.substr(begin, end - begin);
        bool falling = false;
        const std::size_t colon = field.find(':');
        if (colon != std::string::npos) {
            const char* digits = field.c_str() + colon + 1;
            char* rest = nullptr;
            const unsigned long flags = std::strtoul(digits, &rest, 0);
            if (rest == digits || *rest != 0 || (flags & ~fallingFlag) != 0)
                return mdr_Invalid;
            falling = flags == fallingFlag;
            field.resize(colon);
        }
        const MDRField* known = fields.byName(field.c_str());
        if (known == nullptr || known->type == mdr_TBlob)
            return mdr_Invalid;
        named.push_back({field, falling});
        begin = end + 1;
    }
    m_descriptor = descriptor;
    m_named = std::move(named);
    resolve(fields);
    return mdr_Ok;
}

void KeyOrder::resolve(const FieldSet& fields)
{
    m_parts.clear();
    for (const Named& named : m_named) {
        const MDRField* field = fields.byName(named.field.c_str());
        if (field != nullptr && field->type != mdr_TBlob)
            m_parts.push_back({field->ordinal, field->type, named.falling});
    }
}

bool KeyOrder::uses(int ordinal) const
{
    return std::any_of(m_parts.begin(), m_parts.end(),
                       [=](const Part& part) { return part.ordinal == ordinal; });
}

int KeyOrder::compare(const Body* a, const Body* b) const
{
    for (const Part& part : m_parts) {
        const int i = part.ordinal;
        const bool hasA = hasValue(a, i);
        const bool hasB = hasValue(b, i);
        int order = 0;
        if (!hasA || !hasB)
            order = static_cast<int>(hasA) - static_cast<int>(hasB);
        else if (isTextType(part.type))
            order = compareText(a->text(i), a->slot(i).text.length, b->text(i), b->slot(i).text.length);
        else if (part.type == mdr_TDouble)
            order = compareReal(a->slot(i).real, b->slot(i).real);
        else
            order = compareNumber(a->slot(i).number, b->slot(i).number);
        if (order != 0)
            return part.falling ? -order : order;
    }
    return 0;
}

int KeyOrder::compare(const Body* a, const MDRVar* values) const
{
    for (const Part& part : m_parts) {
        const int i = part.ordinal;
        const MDRVar& value = *values++;
        int order = 0;
        if (!hasValue(a, i)) {
            order = -1;
        } else if (isTextType(part.type)) {
            order = compareText(a->text(i), a->slot(i).text.length, value.value.text.data,
                                value.value.text.length);
        } else {
            const double real = part.type == mdr_TDouble ? a->slot(i).real : a->slot(i).number;
            order = compareReal(real, value.type == mdr_TDouble ? value.value.real : value.value.number);
        }
        if (order != 0)
            return part.falling ? -order : order;
    }
    return 0;
}

bool KeyOrder::isSeekable(const MDRVar* values) const
{
    for (const Part& part : m_parts) {
        const MDRVar& value = *values++;
        const MDRVar::Text& text = value.value.text;
        if (value.isNull != 0)
            return false;
        if (isTextType(value.type) != isTextType(part.type))
            return false;
        if (isTextType(value.type) ? text.length < 0 || (text.data == nullptr && text.length > 0)
                                   : value.type != mdr_TDouble && !isNumberType(value.type))
            return false;
    }
    return !m_parts.empty();
}
