#include "NullIndex.h"

#include "RecordBody.h"

#include <algorithm>

namespace
{
bool enteredBefore(const MDRData* a, const MDRData* b)
{
    return a->entry < b->entry;
}
} // namespace

NullIndex::NullIndex(std::vector<int> ordinals, const std::vector<MDRData*>& recordsByEntry)
    : m_ordinals(std::move(ordinals))
{
    for (MDRData* record : recordsByEntry)
        insert(record);
}

bool NullIndex::uses(int ordinal) const
{
    return std::find(m_ordinals.begin(), m_ordinals.end(), ordinal) != m_ordinals.end();
}

void NullIndex::insert(MDRData* record)
{
    if (holds(record))
        m_records.insert(std::upper_bound(m_records.begin(), m_records.end(), record, enteredBefore), record);
}

void NullIndex::erase(const MDRData* record)
{
    if (holds(record))
        m_records.erase(std::lower_bound(m_records.begin(), m_records.end(), record, enteredBefore));
}

bool NullIndex::holds(const MDRData* record) const
{
    return record->body == nullptr || std::none_of(m_ordinals.begin(), m_ordinals.end(),
                                                   [&](int ordinal) { return record->body->has(ordinal); });
}
