#pragma once

#include "TreeHash.h"

#include <QVector>

/// The Merkle tree of RFC 9162 over hashed leaves, numbered from 0. What it needs are the hashes of its
/// complete subtrees; a derived class has them in memory or reads them.
class MerkleTree
{
public:
    virtual ~MerkleTree() = default;

    /// The number of leaves.
    virtual qint64 size() const = 0;
    /// The root over the first \a size leaves, at most size().
    TreeHash root(qint64 size) const;
    TreeHash root() const { return root(size()); }
    /// The proof that the tree of \a size leaves begins with the tree of \a former leaves; empty if either is
    /// the other or empty.
    QVector<TreeHash> consistency(qint64 former, qint64 size) const;
    /// The hashes that complete the leaves \a shown (ascending) to the root over the first \a size leaves, from left
    /// to right.
    QVector<TreeHash> hidden(const QVector<qint64>& shown, qint64 size) const;

    /// Whether a tree of \a size leaves with one root begins with a tree of \a former leaves with another.
    static bool isConsistent(qint64 former, const TreeHash& formerRoot, qint64 size, const TreeHash& root,
                             const QVector<TreeHash>& proof);
    static TreeHash node(const TreeHash& left, const TreeHash& right);
    static TreeHash emptyRoot();

protected:
    /// The hash of a complete subtree: 2^level leaves from leaf place * 2^level on, all of them below size().
    virtual TreeHash complete(int level, qint64 place) const = 0;

private:
    TreeHash range(qint64 begin, qint64 end) const;
    void prove(qint64 former, qint64 begin, qint64 end, bool isKnown, QVector<TreeHash>* proof) const;
    void hide(const qint64* shown, const qint64* shownEnd, qint64 begin, qint64 end,
              QVector<TreeHash>* hashes) const;
};

/// A tree whose leaves are in memory.
class MerkleLeaves : public MerkleTree
{
public:
    void append(const TreeHash& leaf) { m_leaves.append(leaf); }
    qint64 size() const override { return m_leaves.size(); }

protected:
    TreeHash complete(int level, qint64 place) const override;

private:
    QVector<TreeHash> m_leaves;
};

/// The root of leaves that arrive one after another; keeps one hash for each complete subtree.
class MerkleStack
{
public:
    void append(const TreeHash& leaf);
    qint64 size() const { return m_size; }
    TreeHash root() const;

private:
    QVector<TreeHash> m_subtrees; ///< from the largest to the smallest
    qint64 m_size = 0;
};
