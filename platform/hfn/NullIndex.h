#pragma once

#include "MDArray.h"

#include <vector>

/// The posted records of an array in which each of some fields is null, in order of entry.
class NullIndex
{
public:
    NullIndex(std::vector<int> ordinals, const std::vector<MDRData*>& recordsByEntry);

    const std::vector<int>& ordinals() const { return m_ordinals; }
    bool uses(int ordinal) const;
    MDRRange all() const { return {m_records.data(), m_records.size()}; }
    /// Takes the record in when its fields are null.
    void insert(MDRData* record);
    /// Takes it out; called with the values with which it was inserted.
    void erase(const MDRData* record);

private:
    bool holds(const MDRData* record) const;

    std::vector<int> m_ordinals;
    std::vector<MDRData*> m_records;
};
