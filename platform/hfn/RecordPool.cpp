#include "RecordPool.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace
{
constexpr std::uint32_t fullCapacity = 1024; // chunks of this size are pages of their own
constexpr std::size_t pageBytes = 4096;
static_assert(fullCapacity * sizeof(MDRData) % pageBytes == 0, "a full chunk is whole pages");
} // namespace

RecordPool::~RecordPool()
{
    killAll();
    for (const Chunk& chunk : m_chunks)
        std::free(static_cast<void*>(chunk.records));
    for (const Chunk& chunk : m_dead)
        std::free(static_cast<void*>(chunk.records));
}

MDRData* RecordPool::make(MDArray* owner)
{
    if (m_chunks.empty() || m_chunks.back().used == m_chunks.back().capacity) {
        Chunk chunk;
        chunk.capacity = m_nextCapacity;
        const std::size_t bytes = chunk.capacity * sizeof(MDRData);
        void* memory =
            chunk.capacity == fullCapacity ? std::aligned_alloc(pageBytes, bytes) : std::malloc(bytes);
        if (memory == nullptr)
            return nullptr;
        chunk.records = static_cast<MDRData*>(memory);
        m_chunks.push_back(chunk);
        m_nextCapacity = std::min(2 * m_nextCapacity, fullCapacity);
    }
    Chunk& chunk = m_chunks.back();
    MDRData* record = new (chunk.records + chunk.used++) MDRData;
    record->owner = owner;
    record->state = RecordFresh;
    return record;
}

void RecordPool::kill(MDRData* record)
{
    MDRData::Body::destroy(record->body);
    record->body = nullptr;
    record->owner = nullptr;
    record->partner = nullptr;
    record->flags = 0;
    record->state = RecordVoid;
}

void RecordPool::killAll()
{
    std::vector<Chunk> kept;
    for (Chunk& chunk : m_chunks) {
        for (std::uint32_t i = chunk.begin; i < chunk.used; ++i)
            kill(chunk.records + i);
        chunk.begin = chunk.used;
        if (chunk.used < chunk.capacity) {
            kept.push_back(chunk);
        } else {
            retire(chunk);
            m_dead.push_back(chunk);
        }
    }
    m_chunks = std::move(kept);
}

std::vector<MDRData*> RecordPool::all(RecordState state) const
{
    std::vector<MDRData*> records;
    for (const Chunk& chunk : m_chunks) {
        for (std::uint32_t i = chunk.begin; i < chunk.used; ++i) {
            if (chunk.records[i].state == state)
                records.push_back(chunk.records + i);
        }
    }
    return records;
}

void RecordPool::retire(const Chunk& chunk)
{
    // Released pages read as zeros, and a header of zeros is a deleted record.
    if (chunk.capacity == fullCapacity)
        madvise(static_cast<void*>(chunk.records), chunk.capacity * sizeof(MDRData), MADV_DONTNEED);
}
