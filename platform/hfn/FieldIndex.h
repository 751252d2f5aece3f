#pragma once

#include "RecordBody.h"

#include <string>
#include <unordered_map>

/// Index of an array's posted records by the text of one field. Records with the same text keep their order of entry.
class FieldIndex
{
public:
    FieldIndex(int ordinal, const std::vector<MDRData*>& recordsByEntry);

    int ordinal() const { return m_ordinal; }
    MDRRange find(const char* text) const;
    void insert(MDRData* record);
    /// The record must be in the index with the text that it was inserted with.
    void erase(const MDRData* record);
    void clear() { m_records.clear(); }

private:
    bool textOf(const MDRData* record, std::string* text) const;

    int m_ordinal;
    std::unordered_map<std::string, std::vector<MDRData*>> m_records;
};
