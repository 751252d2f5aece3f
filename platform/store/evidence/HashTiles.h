#pragma once

#include "MerkleTree.h"

class EvidenceLog;

/// The tree of a store's change log, kept in the store as tiles: tile (level, place) contains up to 256
/// hashes of complete subtrees with 256^level leaves each, the first one from leaf place * 256^(level+1) on.
/// The last tile of a level may be shorter.
class HashTiles : public MerkleTree
{
public:
    /// The tree with the first \a size leaves; its tiles are read when they are needed.
    HashTiles(EvidenceLog& log, qint64 size) : m_log(log), m_size(size) {}

    qint64 size() const override { return m_size; }
    TreeHash leaf(qint64 number) const { return complete(0, number); }
    /// A tile was missing, too short or could not be read: all hashes since then are wrong, and nothing more is
    /// added.
    bool isBroken() const { return m_isBroken; }
    /// Whether each tile above the leaves has the hashes that the tiles below give.
    bool agreesAboveTheLeaves() const;

    /// Adds a leaf; flush() writes the tiles that have changed.
    bool append(const TreeHash& leaf);
    bool flush();

protected:
    TreeHash complete(int level, qint64 place) const override;

private:
    /// The tile of a level that was used last.
    struct Tile {
        qint64 place = -1;
        QByteArray hashes;
        bool isChanged = false;
    };
    /// Null if it cannot be read.
    Tile* tile(int level, qint64 place) const;
    bool write(int level);
    bool append(int level, qint64 index, const TreeHash& hash);

    EvidenceLog& m_log;
    qint64 m_size;
    mutable QVector<Tile> m_tiles; ///< by level
    mutable bool m_isBroken = false;
};
