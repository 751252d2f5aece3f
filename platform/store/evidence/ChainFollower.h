#pragma once

#include "ChainHash.h"
#include "Store.h"

/// Moves a position over transactions as they are read, in order, and computes the chain again from their rows:
/// each must continue the transaction that was read before it. The first one that does not is noted in the position,
/// which goes on from the hash in the log.
class ChainFollower
{
public:
    explicit ChainFollower(ChangePosition* position) : m_position(position) {}

    /// A transaction, and the hash that the log has for it. The one before is complete.
    void begin(const ChainHash::Head& head, const QByteArray& chain);
    /// The next row of it.
    void add(const QByteArray& table, const QByteArray& key, qint64 event, const QByteArray& oldRow,
             const QByteArray& newRow);
    /// The last transaction is complete.
    void end();

private:
    ChangePosition* m_position;
    ChainHash m_hash;
    qint64 m_number = 0; ///< of the transaction that is being read; 0: none
    QByteArray m_chain;  ///< of it, in the log
};
