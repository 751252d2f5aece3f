#pragma once

#include "LogAudit.h"

#include <set>

class EpochHistory;

/// What became of the heads that were made before a restore, those of epochs that the log says have ended.
/// One note for each epoch, since there may be thousands of heads.
class FormerHeads
{
public:
    explicit FormerHeads(const EpochHistory& epochs) : m_epochs(epochs) {}

    /// Whether the log names the end of this head's epoch.
    bool isFormer(const LogAudit::Claim& claim) const;
    /// The head is contained in the log.
    void addContained(const LogAudit::Claim& claim);
    /// The head counts transactions that the copy did not have.
    void addLost(const LogAudit::Claim& claim);
    /// For the user, where a head differs from the log: where it comes from, and its epoch if that has ended.
    QString sourceOf(const LogAudit::Claim& claim) const;
    /// Appends the notes. Heads of the store itself that are contained are not news.
    void report(QVector<StoreAdmin::Finding>* findings) const;

private:
    struct Heads {
        std::set<qint64> contained; ///< their sizes
        std::set<qint64> lost;
        std::set<qint64> unverified; ///< of both, those whose key the store does not name
    };
    Heads* of(const LogAudit::Claim& claim);

    const EpochHistory& m_epochs;
    QMap<QByteArray, Heads> m_heads; ///< by epoch
};
