#pragma once

#include "MDArray.h"

#include <vector>

/// Index of the posted records of an array in which all of the given fields are null, in order of entry.
class NullIndex
{
public:
    NullIndex(std::vector<int> ordinals, const std::vector<MDRData*>& recordsByEntry);

    const std::vector<int>& ordinals() const { return m_ordinals; }
    bool uses(int ordinal) const;
    MDRRange all() const { return {m_records.data(), m_records.size()}; }
    /// Adds the record if its fields are null.
    void insert(MDRData* record);
    /// Removes the record; must be called with the values that it was inserted with.
    void erase(const MDRData* record);

private:
    bool holds(const MDRData* record) const;

    std::vector<int> m_ordinals;
    std::vector<MDRData*> m_records;
};
