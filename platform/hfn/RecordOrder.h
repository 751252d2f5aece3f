#pragma once

#include "KeyOrder.h"

/// All posted records of an array in the order of one key: a list of sorted chunks of bounded size, and a
/// tree of partial sums over their sizes. Position, seek and insertion cost O(log n); appending in order
/// costs a push_back.
class RecordOrder
{
public:
    KeyOrder key;

    int count() const { return m_count; }
    /// Null when out of range.
    MDRData* at(int position) const;
    /// The position of a record that is in the order.
    int position(const MDRData* record) const;
    /// The first record equal to as many values as the key has fields, or null.
    MDRData* seek(const MDRVar* values) const;

    void insert(MDRData* record);
    /// The record must be in the order with the values that it was inserted with.
    void erase(const MDRData* record);
    void clear();
    /// Replaces the content by these records, in any order.
    void assign(std::vector<MDRData*> records);

private:
    using Chunk = std::vector<MDRData*>;
    struct Place {
        std::size_t chunk;
        std::size_t index;
    };

    /// Position of the first record for which \a before is false; behind the last record of the last chunk if there
    /// is none.
    template <typename Before>
    Place partition(Before before) const;
    void pushChunk(Chunk chunk);
    void split(std::size_t chunk);
    void rebuildSums();
    void addToSum(std::size_t chunk, int difference);
    int sumBefore(std::size_t chunk) const;

    std::vector<Chunk> m_chunks; ///< none is empty
    std::vector<int> m_sums;     ///< binary indexed tree over the sizes of the chunks, from 1
    int m_count = 0;
    // Position of the last at(): most callers walk from position to position.
    mutable std::size_t m_lastChunk = 0;
    mutable int m_lastFirst = 0;
};
