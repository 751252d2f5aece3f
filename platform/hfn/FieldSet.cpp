#include "FieldSet.h"

#include <cstring>

namespace
{
char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::size_t hashName(const char* name)
{
    std::uint32_t hash = 2166136261U;
    for (; *name != 0; ++name)
        hash = (hash ^ static_cast<unsigned char>(lower(*name))) * 16777619U;
    return hash ^ (hash >> 15U);
}

bool wellFormed(const MDRFieldDescr& field)
{
    const bool named = field.name[0] != 0 && std::memchr(field.name, 0, sizeof field.name) != nullptr;
    return named && (isTextType(field.type) || isNumberType(field.type) || field.type == mdr_TDouble);
}
} // namespace

const MDRField* FieldSet::byNumber(int ordinal) const
{
    return ordinal >= 0 && ordinal < count() ? &m_fields[static_cast<std::size_t>(ordinal)] : nullptr;
}

const MDRField* FieldSet::byName(const char* name) const
{
    if (name == nullptr || m_hash.empty())
        return nullptr;
    const std::size_t mask = m_hash.size() - 1;
    for (std::size_t slot = hashName(name) & mask; m_hash[slot] != 0; slot = (slot + 1) & mask) {
        const MDRField& field = m_fields[m_hash[slot] - 1U];
        if (isSameName(field.name, name))
            return &field;
    }
    return nullptr;
}

int FieldSet::add(int count, const MDRFieldDescr* fields)
{
    if (count < 0 || (count > 0 && fields == nullptr))
        return mdr_Invalid;
    if (count > maxCount - this->count())
        return mdr_Full;
    for (int i = 0; i < count; ++i) {
        if (!wellFormed(fields[i]))
            return mdr_Invalid;
    }
    for (int i = 0; i < count; ++i) {
        MDRField field = {};
        std::memcpy(field.name, fields[i].name, sizeof field.name);
        field.width = fields[i].width;
        field.type = fields[i].type;
        field.ordinal = static_cast<std::uint8_t>(this->count());
        m_fields.push_back(field);
        m_types.push_back(field.type);
        if (m_hash.size() < 2 * m_types.size())
            rehash(m_hash.empty() ? 16 : 2 * m_hash.size());
        else
            enterHash(m_fields.back());
    }
    return mdr_Ok;
}

std::unique_ptr<FieldSet> FieldSet::clone() const
{
    auto copy = std::make_unique<FieldSet>();
    *copy = *this;
    return copy;
}

bool FieldSet::sameAs(const FieldSet& other) const
{
    if (count() != other.count())
        return false;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const MDRField& a = m_fields[i];
        const MDRField& b = other.m_fields[i];
        if (std::strcmp(a.name, b.name) != 0 || a.width != b.width || a.type != b.type)
            return false;
    }
    return true;
}

bool FieldSet::isSameName(const char* a, const char* b)
{
    while (*a != 0 && lower(*a) == lower(*b)) {
        ++a;
        ++b;
    }
    return lower(*a) == lower(*b);
}

void FieldSet::rehash(std::size_t places)
{
    m_hash.assign(places, 0);
    for (const MDRField& field : m_fields)
        enterHash(field);
}

void FieldSet::enterHash(const MDRField& field)
{
    const std::size_t mask = m_hash.size() - 1;
    std::size_t slot = hashName(field.name) & mask;
    while (m_hash[slot] != 0)
        slot = (slot + 1) & mask;
    m_hash[slot] = static_cast<std::uint8_t>(field.ordinal + 1);
}
