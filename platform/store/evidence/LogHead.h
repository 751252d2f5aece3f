#pragma once

#include "SealKey.h"
#include "TreeHash.h"

#include <QByteArray>
#include <QDateTime>
#include <QVector>

/// A head of the change log: the root over its first transactions, as a signed note
/// (docs/evidence-format.md).
struct LogHead {
    QByteArray epoch; ///< of the store
    qint64 size = 0;
    TreeHash root;
    QDateTime time; ///< UTC, to the second; invalid if the note does not say it

    QByteArray origin() const { return "vrk-logbook/" + epoch; }
    /// Size and the first digits of the root, for paper.
    QByteArray onPaper() const { return QByteArray::number(size) + ' ' + root.onPaper(); }
    /// The note with the signatures of all keys; empty if one of them cannot sign.
    QByteArray note(const std::vector<std::unique_ptr<SealKey>>& keys) const;
};

/// A note as it was read.
class SignedNote
{
public:
    /// An invalid note if the text is not a head with signatures.
    explicit SignedNote(const QByteArray& text);

    bool isValid() const { return m_isValid; }
    const LogHead& head() const { return m_head; }
    /// The first of the keys that has signed it; an invalid key if there is none, or if a signature of one
    /// of them is wrong.
    VerifierKey signer(const QVector<VerifierKey>& keys) const;
    /// Whether it is a valid note with signatures of keys that are not among these only.
    bool isOfOtherKeys(const QVector<VerifierKey>& keys) const;

private:
    struct Signature {
        QByteArray name;
        QByteArray bytes; ///< the id of the key and the signature

        bool isBy(const VerifierKey& key) const;
    };

    QByteArray m_text; ///< what is signed
    QVector<Signature> m_signatures;
    LogHead m_head;
    bool m_isValid = false;
};
