#pragma once

#include "FieldSet.h"

#include <string>

/// How a key orders records: by its fields, each rising or falling, and equal ones by their order of entry.
/// Null is the least value; numbers stand by value (a double that is no number before all others), texts by
/// bytes.
class KeyOrder
{
public:
    /// Reads a descriptor. mdr_Invalid when it is malformed or names a field that cannot be ordered by.
    int parse(const MDRKeyDescr& descriptor, const FieldSet& fields);
    /// Looks the fields up anew, after those of the array were replaced. Fields that are gone order nothing.
    void resolve(const FieldSet& fields);

    const MDRKeyDescr& descriptor() const { return m_descriptor; }
    bool uses(int ordinal) const;

    /// Negative, 0 or positive by the fields alone.
    int compare(const MDRData::Body* a, const MDRData::Body* b) const;
    /// The same for a record and as many values as there are fields, which isSeekable() has accepted.
    int compare(const MDRData::Body* a, const MDRVar* values) const;
    bool less(const MDRData& a, const MDRData& b) const
    {
        const int order = m_parts.empty() ? 0 : compare(a.body, b.body);
        return order < 0 || (order == 0 && a.entry < b.entry);
    }
    /// The values are of the fields' kinds and none is null.
    bool isSeekable(const MDRVar* values) const;

private:
    struct Part {
        std::uint8_t ordinal;
        std::uint8_t type;
        bool falling;
    };
    struct Named {
        std::string field;
        bool falling;
    };

    MDRKeyDescr m_descriptor = {};
    std::vector<Named> m_named;
    std::vector<Part> m_parts;
};
