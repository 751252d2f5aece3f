#include "MerkleTree.h"

#include <algorithm>
#include <QtAlgorithms>

namespace
{
/// The largest power of two smaller than \a count, which is at least 2.
qint64 splitOf(qint64 count)
{
    return qint64(1) << (63 - qCountLeadingZeroBits(static_cast<quint64>(count - 1)));
}

int levelOf(qint64 power)
{
    return static_cast<int>(qCountTrailingZeroBits(static_cast<quint64>(power)));
}

bool isPower(qint64 count)
{
    return (count & (count - 1)) == 0;
}
} // namespace

TreeHash MerkleTree::node(const TreeHash& left, const TreeHash& right)
{
    thread_local Sha256 hash;
    return hash.byte(1).add(left).add(right).result();
}

TreeHash MerkleTree::emptyRoot()
{
    return Sha256().result();
}

TreeHash MerkleTree::range(qint64 begin, qint64 end) const
{
    // A range that the recursion gives begins at a multiple of the power of two above its length.
    const qint64 count = end - begin;
    if (isPower(count))
        return complete(levelOf(count), begin / count);
    const qint64 middle = begin + splitOf(count);
    return node(range(begin, middle), range(middle, end));
}

TreeHash MerkleTree::root(qint64 size) const
{
    return size == 0 ? emptyRoot() : range(0, size);
}

QVector<TreeHash> MerkleTree::consistency(qint64 former, qint64 size) const
{
    QVector<TreeHash> proof;
    if (former > 0 && former < size)
        prove(former, 0, size, true, &proof);
    return proof;
}

void MerkleTree::prove(qint64 former, qint64 begin, qint64 end, bool isKnown, QVector<TreeHash>* proof) const
{
    if (former == end - begin) {
        if (!isKnown)
            proof->append(range(begin, end));
        return;
    }
    const qint64 split = splitOf(end - begin);
    if (former <= split) {
        prove(former, begin, begin + split, isKnown, proof);
        proof->append(range(begin + split, end));
    } else {
        prove(former - split, begin + split, end, false, proof);
        proof->append(range(begin, begin + split));
    }
}

bool MerkleTree::isConsistent(qint64 former, const TreeHash& formerRoot, qint64 size, const TreeHash& root,
                              const QVector<TreeHash>& proof)
{
    if (former < 0 || former > size)
        return false;
    if (former == size)
        return proof.isEmpty() && formerRoot == root;
    if (former == 0)
        return proof.isEmpty() && formerRoot == emptyRoot();
    QVector<TreeHash> path = proof;
    if (isPower(former))
        path.prepend(formerRoot);
    if (path.isEmpty())
        return false;
    auto place = static_cast<quint64>(former - 1);
    auto last = static_cast<quint64>(size - 1);
    while (place & 1U) {
        place >>= 1U;
        last >>= 1U;
    }
    TreeHash before = path.constFirst();
    TreeHash now = path.constFirst();
    for (int i = 1; i < path.size(); ++i) {
        if (last == 0)
            return false;
        if ((place & 1U) || place == last) {
            before = node(path.at(i), before);
            now = node(path.at(i), now);
            while (!(place & 1U) && place != 0) {
                place >>= 1U;
                last >>= 1U;
            }
        } else {
            now = node(now, path.at(i));
        }
        place >>= 1U;
        last >>= 1U;
    }
    return last == 0 && before == formerRoot && now == root;
}

QVector<TreeHash> MerkleTree::hidden(const QVector<qint64>& shown, qint64 size) const
{
    QVector<TreeHash> hashes;
    if (size > 0)
        hide(shown.constData(), shown.constData() + shown.size(), 0, size, &hashes);
    return hashes;
}

void MerkleTree::hide(const qint64* shown, const qint64* shownEnd, qint64 begin, qint64 end,
                      QVector<TreeHash>* hashes) const
{
    const qint64* first = std::lower_bound(shown, shownEnd, begin);
    const qint64* last = std::lower_bound(first, shownEnd, end);
    if (first == last) {
        hashes->append(range(begin, end));
    } else if (last - first < end - begin) {
        const qint64 middle = begin + splitOf(end - begin);
        hide(first, last, begin, middle, hashes);
        hide(first, last, middle, end, hashes);
    }
}

TreeHash MerkleLeaves::complete(int level, qint64 place) const
{
    if (level == 0)
        return m_leaves.at(static_cast<int>(place));
    return node(complete(level - 1, 2 * place), complete(level - 1, 2 * place + 1));
}

void MerkleStack::append(const TreeHash& leaf)
{
    TreeHash hash = leaf;
    for (qint64 bits = m_size; bits & 1; bits >>= 1)
        hash = MerkleTree::node(m_subtrees.takeLast(), hash);
    m_subtrees.append(hash);
    ++m_size;
}

TreeHash MerkleStack::root() const
{
    if (m_subtrees.isEmpty())
        return MerkleTree::emptyRoot();
    TreeHash hash = m_subtrees.constLast();
    for (int i = m_subtrees.size() - 2; i >= 0; --i)
        hash = MerkleTree::node(m_subtrees.at(i), hash);
    return hash;
}
