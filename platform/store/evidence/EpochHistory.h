#pragma once

#include "EvidenceLog.h"

/// The epochs of a store, from its log: a restored store continues the log of the copy under a new epoch,
/// so heads of the former one may count transactions that were lost with the restore. The same transaction
/// names the epochs of the replaced store that the copy does not have: all their heads were lost.
class EpochHistory
{
public:
    struct Change {
        qint64 number = 0; ///< of the transaction that began the epoch
        QByteArray former; ///< empty for the first one
        QByteArray epoch;
        QByteArray login;
        double time = 0;
    };

    /// False if the log cannot be read.
    bool load(EvidenceLog& log);

    const QVector<Change>& changes() const { return m_changes; }
    QByteArray current() const { return m_current; }
    /// The epochs of this history that another one does not know, in their order.
    QByteArrayList missingFrom(const EpochHistory& other) const;
    /// How long the log is as far as this epoch wrote it; 0 for an epoch of a replaced store, -1 for one that
    /// the store never had.
    qint64 endOf(const QByteArray& epoch) const;

private:
    QVector<Change> m_changes;
    QByteArray m_current;
    qint64 m_end = 0;
};
