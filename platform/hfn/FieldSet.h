#pragma once

#include "MDArray.h"

#include <deque>
#include <memory>

/// The fields of an array or of a stand-alone record, with a hash of their names. Handles keep their address as long
/// as the set exists.
class FieldSet
{
public:
    static constexpr int maxCount = 255;

    int count() const { return static_cast<int>(m_types.size()); }
    /// Type of an ordinal below count().
    std::uint8_t type(int ordinal) const { return m_types[static_cast<std::size_t>(ordinal)]; }
    /// Null when there is no such field.
    const MDRField* byNumber(int ordinal) const;
    /// Ignores ASCII case. If several fields have the same name, returns the first.
    const MDRField* byName(const char* name) const;
    /// mdr_Ok if a record with these fields has the field that the handle describes.
    int check(const MDRField* field) const
    {
        if (field == nullptr || field->ordinal >= count())
            return mdr_Invalid;
        return type(field->ordinal) == field->type ? mdr_Ok : mdr_TypeMismatch;
    }

    /// Appends all or none; mdr_Invalid for a malformed descriptor, mdr_Full beyond maxCount.
    int add(int count, const MDRFieldDescr* fields);
    /// A copy with handles of its own.
    std::unique_ptr<FieldSet> clone() const;
    bool sameAs(const FieldSet& other) const;
    /// Ignores ASCII case.
    static bool isSameName(const char* a, const char* b);

private:
    void rehash(std::size_t places);
    void enterHash(const MDRField& field);

    std::deque<MDRField> m_fields;
    std::vector<std::uint8_t> m_types;
    std::vector<std::uint8_t> m_hash; ///< ordinal + 1 by open addressing, 0 is free
};

/// Text, memo or blob: kept as bytes.
constexpr bool isTextType(std::uint8_t type)
{
    return type >= mdr_TChar && type <= mdr_TBlob;
}
/// Bool, byte or integer: kept as a number.
constexpr bool isNumberType(std::uint8_t type)
{
    return type == mdr_TBool || type == mdr_TByte || type == mdr_TInt32;
}
