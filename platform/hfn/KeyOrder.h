#pragma once

#include "FieldSet.h"

#include <string>

/// How a key orders records: by its fields, each ascending or descending; equal records keep their order of entry.
/// Null is the least value; numbers compare by value (NaN before all others), texts by bytes.
class KeyOrder
{
public:
    /// Parses a descriptor. mdr_Invalid if it is malformed or names a field that cannot be ordered.
    int parse(const MDRKeyDescr& descriptor, const FieldSet& fields);
    /// Resolves the fields again after those of the array were replaced. Missing fields are ignored.
    void resolve(const FieldSet& fields);

    const MDRKeyDescr& descriptor() const { return m_descriptor; }
    bool uses(int ordinal) const;

    /// Negative, 0 or positive; compares the fields only.
    int compare(const MDRData::Body* a, const MDRData::Body* b) const;
    /// The same for a record and an array of values, one for each field, which isSeekable() has accepted.
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
