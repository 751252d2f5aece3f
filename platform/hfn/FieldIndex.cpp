#include "FieldIndex.h"

#include <algorithm>

namespace
{
bool enteredBefore(const MDRData* a, const MDRData* b)
{
    return a->entry < b->entry;
}
} // namespace

FieldIndex::FieldIndex(int ordinal, const std::vector<MDRData*>& recordsByEntry) : m_ordinal(ordinal)
{
    for (MDRData* record : recordsByEntry)
        insert(record);
}

MDRRange FieldIndex::find(const char* text) const
{
    const auto found = m_records.find(text);
    if (found == m_records.end())
        return {};
    return {found->second.data(), found->second.size()};
}

void FieldIndex::insert(MDRData* record)
{
    std::string text;
    if (!textOf(record, &text))
        return;
    std::vector<MDRData*>& same = m_records[text];
    same.insert(std::upper_bound(same.begin(), same.end(), record, enteredBefore), record);
}

void FieldIndex::erase(const MDRData* record)
{
    std::string text;
    if (!textOf(record, &text))
        return;
    const auto found = m_records.find(text);
    std::vector<MDRData*>& same = found->second;
    same.erase(std::lower_bound(same.begin(), same.end(), record, enteredBefore));
    if (same.empty())
        m_records.erase(found);
}

bool FieldIndex::textOf(const MDRData* record, std::string* text) const
{
    if (record->body == nullptr || !record->body->holdsText(m_ordinal))
        return false;
    text->assign(record->body->text(m_ordinal),
                 static_cast<std::size_t>(record->body->slot(m_ordinal).text.length));
    return true;
}
