#pragma once

#include "FieldIndex.h"
#include "NullIndex.h"
#include "RecordOrder.h"
#include "RecordPool.h"

#include <bitset>

/// The implementation of a record array: fields, headers of records, keys and indexes, and the code that keeps them
/// consistent. Its operations expect checked arguments; the flat functions check them.
class MDArray
{
public:
    using Marks = std::bitset<FieldSet::maxCount + 1>;

    const FieldSet& fields() const { return *m_fields; }
    int addFields(int count, const MDRFieldDescr* fields) { return m_fields->add(count, fields); }
    /// Replaces the fields. The array must have no records; handles of the former fields stay readable.
    void replaceFields(const FieldSet& fields);

    int addKey(const MDRKeyDescr& descriptor);
    void removeKey(int key);
    int keyCount() const { return static_cast<int>(m_keys.size()); }
    /// Null when there is no such key.
    const RecordOrder* key(int key) const;

    MDRData* makeRecord();
    MDRData* edit(MDRData* posted);
    void post(MDRData* fresh);
    /// Swaps the edited version into its record and returns the record.
    MDRData* postEdited(MDRData* edited);
    void remove(MDRData* record);
    void removeAll();
    void removeKeys();
    std::vector<MDRData*> recordsByEntry() const;
    void copyKeys(const MDArray& source);
    /// Takes over another array's posted records; the fields are the same, there are no records yet. mdr_Full if
    /// memory runs out; then nothing is taken.
    int copyRecords(const MDArray& source);
    /// Posts a copy of another array's record, without flags and marks. The first fields have the types of the other
    /// array's fields. mdr_Full if memory runs out.
    int append(const MDRData& record);

    /// The records whose text field holds this text.
    MDRRange recordsWith(int ordinal, const char* text);
    /// The records in which these fields are null.
    MDRRange recordsWithout(const std::vector<int>& ordinals);

    /// Room for the body of a record of this array.
    int ensureBody(MDRData* record);
    /// Calls \a change, which changes one field of a record, and updates keys and indexes.
    template <typename Change>
    int alter(MDRData* record, int ordinal, Change change)
    {
        if (record->state != RecordPosted || !m_watched[static_cast<std::size_t>(ordinal)])
            return change();
        leave(record, ordinal);
        const int code = change();
        enter(record, ordinal);
        return code;
    }

private:
    /// Removes the record from the keys and indexes that depend on the field, and inserts it again.
    void leave(MDRData* record, int ordinal);
    void enter(MDRData* record, int ordinal);
    void watchFields();

    std::unique_ptr<FieldSet> m_fields = std::make_unique<FieldSet>();
    std::vector<std::unique_ptr<FieldSet>> m_formerFields;
    std::vector<std::unique_ptr<RecordOrder>> m_keys;
    std::vector<std::unique_ptr<FieldIndex>> m_indexes;
    std::vector<std::unique_ptr<NullIndex>> m_nullIndexes;
    Marks m_watched; ///< fields that a key or an index depends on
    RecordPool m_pool;
    std::uint64_t m_lastEntry = 0;
    std::size_t m_textHint = 0; ///< approximate size of the texts of recent records
};

/// The fields of a record, whether it is part of an array or stands alone; null when it has none.
const FieldSet* MDRFieldsOf(const MDRData* record);
