#pragma once

#include "RecordBody.h"

/// State of a record in its array (MDRData::state).
enum RecordState : std::uint8_t {
    RecordVoid = 0, ///< deleted, or never part of an array
    RecordFresh,    ///< from MDARecNew, in no key
    RecordPosted,   ///< in all keys
    RecordEdited,   ///< the editable version of a posted one
};

/// The headers of an array's records. Addresses are never reused: a pointer to a deleted record shows that it is
/// deleted, as long as the array exists. Dead headers use address space, not memory.
class RecordPool
{
public:
    RecordPool() = default;
    ~RecordPool();
    RecordPool(const RecordPool&) = delete;
    RecordPool& operator=(const RecordPool&) = delete;

    /// A fresh record; null when memory runs out.
    MDRData* make(MDArray* owner);
    /// Turns a record into a deleted one.
    static void kill(MDRData* record);
    void killAll();
    /// All records in this state, in the order in which they were made.
    std::vector<MDRData*> all(RecordState state) const;

private:
    struct Chunk {
        MDRData* records = nullptr;
        std::uint32_t begin = 0; ///< those before it are dead
        std::uint32_t used = 0;
        std::uint32_t capacity = 0;
    };

    static void retire(const Chunk& chunk);

    std::vector<Chunk> m_chunks;
    std::vector<Chunk> m_dead;
    std::uint32_t m_nextCapacity = 8;
};
