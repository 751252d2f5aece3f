#include "HashTiles.h"

#include "EvidenceLog.h"

namespace
{
constexpr int widthBits = 8; // of a tile's hashes
constexpr qint64 width = 1 << widthBits;
constexpr int hashSize = 32;

/// The root of 2^level hashes.
TreeHash rootOf(const char* hashes, int level)
{
    if (level == 0)
        return TreeHash::at(hashes);
    const int half = hashSize << (level - 1);
    return MerkleTree::node(rootOf(hashes, level - 1), rootOf(hashes + half, level - 1));
}
} // namespace

HashTiles::Tile* HashTiles::tile(int level, qint64 place) const
{
    while (m_tiles.size() <= level)
        m_tiles.append(Tile());
    Tile& known = m_tiles[level];
    if (known.place != place) {
        // A changed tile is written before another one takes its place.
        QByteArray hashes;
        if (known.isChanged || !m_log.tile(level, place, &hashes)) {
            m_isBroken = true;
            return nullptr;
        }
        known = {place, hashes, false};
    }
    return &known;
}

TreeHash HashTiles::complete(int level, qint64 place) const
{
    const int tileLevel = level / widthBits;
    const int inside = level % widthBits;
    const qint64 first = place << inside; // index among the hashes of the tiles' level
    const Tile* found = tile(tileLevel, first / width);
    const auto at = static_cast<int>(first % width) * hashSize;
    if (!found || found->hashes.size() < at + (hashSize << inside)) {
        m_isBroken = true;
        return TreeHash();
    }
    return rootOf(found->hashes.constData() + at, inside);
}

bool HashTiles::agreesAboveTheLeaves() const
{
    for (int level = widthBits; m_size >> level > 0; level += widthBits)
        for (qint64 place = 0; place < m_size >> level; ++place) {
            MerkleStack below;
            for (qint64 i = 0; i < width; ++i)
                below.append(complete(level - widthBits, place * width + i));
            if (m_isBroken || below.root() != complete(level, place))
                return false;
        }
    return !m_isBroken;
}

bool HashTiles::write(int level)
{
    Tile& changed = m_tiles[level];
    if (!changed.isChanged)
        return true;
    changed.isChanged = false;
    return m_log.writeTile(level, changed.place, changed.hashes);
}

bool HashTiles::append(int level, qint64 index, const TreeHash& hash)
{
    const auto at = static_cast<int>(index % width) * hashSize;
    if (at == 0 && level < m_tiles.size() && !write(level))
        return false;
    Tile* last = tile(level, index / width);
    if (!last || last->hashes.size() < at)
        return false;
    last->hashes.truncate(at); // the hashes beyond belong to no leaf of this tree
    last->hashes.append(hash.bytes());
    last->isChanged = true;
    return last->hashes.size() < width * hashSize ||
           append(level + 1, index / width, rootOf(last->hashes.constData(), widthBits));
}

bool HashTiles::append(const TreeHash& leaf)
{
    if (m_isBroken || !append(0, m_size, leaf)) {
        m_isBroken = true;
        return false;
    }
    ++m_size;
    return true;
}

bool HashTiles::flush()
{
    for (int level = 0; level < m_tiles.size(); ++level)
        if (!write(level))
            return false;
    return true;
}
