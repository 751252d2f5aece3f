#include "RecordOrder.h"

#include <algorithm>

namespace
{
constexpr std::size_t chunkLimit = 512;

constexpr std::size_t lowBit(std::size_t i)
{
    return i & (~i + 1);
}
} // namespace

MDRData* RecordOrder::at(int position) const
{
    if (position < 0 || position >= m_count)
        return nullptr;
    std::size_t chunk = m_lastChunk;
    int first = m_lastFirst;
    if (position == first + static_cast<int>(m_chunks[chunk].size())) {
        first = position;
        ++chunk;
    } else if (position < first || position > first + static_cast<int>(m_chunks[chunk].size())) {
        std::size_t step = 1;
        while (2 * step < m_sums.size())
            step *= 2;
        chunk = 0;
        first = 0;
        for (; step > 0; step /= 2) {
            if (chunk + step < m_sums.size() && first + m_sums[chunk + step] <= position) {
                chunk += step;
                first += m_sums[chunk];
            }
        }
    }
    m_lastChunk = chunk;
    m_lastFirst = first;
    return m_chunks[chunk][static_cast<std::size_t>(position - first)];
}

template <typename Before>
RecordOrder::Place RecordOrder::partition(Before before) const
{
    const auto chunk = std::partition_point(m_chunks.begin(), m_chunks.end(),
                                            [&](const Chunk& c) { return before(*c.back()); });
    if (chunk == m_chunks.end())
        return {m_chunks.size() - 1, m_chunks.back().size()};
    const auto place =
        std::partition_point(chunk->begin(), chunk->end(), [&](const MDRData* r) { return before(*r); });
    return {static_cast<std::size_t>(chunk - m_chunks.begin()),
            static_cast<std::size_t>(place - chunk->begin())};
}

int RecordOrder::position(const MDRData* record) const
{
    const Place place = partition([&](const MDRData& other) { return key.less(other, *record); });
    return sumBefore(place.chunk) + static_cast<int>(place.index);
}

MDRData* RecordOrder::seek(const MDRVar* values) const
{
    if (m_count == 0 || !key.isSeekable(values))
        return nullptr;
    const Place place = partition([&](const MDRData& other) { return key.compare(other.body, values) < 0; });
    const Chunk& chunk = m_chunks[place.chunk];
    if (place.index == chunk.size() || key.compare(chunk[place.index]->body, values) != 0)
        return nullptr;
    return chunk[place.index];
}

void RecordOrder::insert(MDRData* record)
{
    m_lastChunk = 0;
    m_lastFirst = 0;
    ++m_count;
    if (m_chunks.empty()) {
        pushChunk({record});
        return;
    }
    if (key.less(*m_chunks.back().back(), *record)) {
        if (m_chunks.back().size() == chunkLimit) {
            pushChunk({record});
        } else {
            m_chunks.back().push_back(record);
            addToSum(m_chunks.size() - 1, 1);
        }
        return;
    }
    const Place place = partition([&](const MDRData& other) { return key.less(other, *record); });
    Chunk& chunk = m_chunks[place.chunk];
    chunk.insert(chunk.begin() + static_cast<std::ptrdiff_t>(place.index), record);
    if (chunk.size() > chunkLimit)
        split(place.chunk);
    else
        addToSum(place.chunk, 1);
}

void RecordOrder::erase(const MDRData* record)
{
    m_lastChunk = 0;
    m_lastFirst = 0;
    --m_count;
    const Place place = partition([&](const MDRData& other) { return key.less(other, *record); });
    Chunk& chunk = m_chunks[place.chunk];
    chunk.erase(chunk.begin() + static_cast<std::ptrdiff_t>(place.index));
    const auto self = m_chunks.begin() + static_cast<std::ptrdiff_t>(place.chunk);
    const auto next = self + 1;
    if (chunk.empty()) {
        m_chunks.erase(self);
        rebuildSums();
    } else if (next != m_chunks.end() && chunk.size() + next->size() <= chunkLimit / 2) {
        chunk.insert(chunk.end(), next->begin(), next->end());
        m_chunks.erase(next);
        rebuildSums();
    } else {
        addToSum(place.chunk, -1);
    }
}

void RecordOrder::clear()
{
    m_chunks.clear();
    m_sums.clear();
    m_count = 0;
    m_lastChunk = 0;
    m_lastFirst = 0;
}

void RecordOrder::assign(std::vector<MDRData*> records)
{
    clear();
    const auto less = [&](const MDRData* a, const MDRData* b) { return key.less(*a, *b); };
    if (!std::is_sorted(records.begin(), records.end(), less))
        std::sort(records.begin(), records.end(), less);
    m_count = static_cast<int>(records.size());
    for (std::size_t begin = 0; begin < records.size(); begin += chunkLimit) {
        const auto first = records.begin() + static_cast<std::ptrdiff_t>(begin);
        const std::size_t size = std::min(chunkLimit, records.size() - begin);
        pushChunk(Chunk(first, first + static_cast<std::ptrdiff_t>(size)));
    }
}

void RecordOrder::pushChunk(Chunk chunk)
{
    const std::size_t i = m_chunks.size() + 1;
    int sum = static_cast<int>(chunk.size());
    m_sums.resize(i);
    for (std::size_t step = 1; step < lowBit(i); step *= 2)
        sum += m_sums[i - step];
    m_sums.push_back(sum);
    m_chunks.push_back(std::move(chunk));
}

void RecordOrder::split(std::size_t chunk)
{
    Chunk& full = m_chunks[chunk];
    const auto middle = full.begin() + static_cast<std::ptrdiff_t>(full.size() / 2);
    Chunk upper(middle, full.end());
    full.erase(middle, full.end());
    m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(chunk) + 1, std::move(upper));
    rebuildSums();
}

void RecordOrder::rebuildSums()
{
    m_sums.assign(m_chunks.size() + 1, 0);
    for (std::size_t i = 1; i < m_sums.size(); ++i) {
        m_sums[i] += static_cast<int>(m_chunks[i - 1].size());
        if (i + lowBit(i) < m_sums.size())
            m_sums[i + lowBit(i)] += m_sums[i];
    }
}

void RecordOrder::addToSum(std::size_t chunk, int difference)
{
    for (std::size_t i = chunk + 1; i < m_sums.size(); i += lowBit(i))
        m_sums[i] += difference;
}

int RecordOrder::sumBefore(std::size_t chunk) const
{
    int sum = 0;
    for (std::size_t i = chunk; i > 0; i -= lowBit(i))
        sum += m_sums[i];
    return sum;
}
