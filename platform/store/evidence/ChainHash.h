#pragma once

#include "TreeHash.h"

/// The hash chain of the change log: a transaction's hash is SHA-256 over the previous hash, the
/// transaction's own head and every row that it logged. A changed, removed or inserted entry invalidates
/// all later hashes. A server computes the same bytes in vrk_chain.
class ChainHash
{
public:
    struct Head {
        qint64 number;
        QByteArray batchKey;
        QByteArray login;
        bool loader;
        double time;
    };

    /// Begins a transaction after the one with the hash \a before, which is empty for the first one.
    void begin(const QByteArray& before, const Head& head);
    /// The next column of a row: table, key, event in digits, old and new values.
    void add(const QByteArray& part);
    /// Ends the transaction.
    QByteArray result() { return m_hash.result().bytes(); }

private:
    Sha256 m_hash;
};
