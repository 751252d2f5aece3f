#pragma once

#include <QByteArray>

class SqliteConnection;

/// The hash chain of the change log: a transaction's hash is SHA-256 over the previous hash, the
/// transaction's own head and every row that it logged. A changed, removed or inserted entry invalidates
/// all later hashes.
namespace TransactionChain
{
struct Head {
    qint64 number;
    QByteArray batchKey;
    QByteArray login;
    bool loader;
    double time;
};

/// The hash for a transaction whose rows are in the log. False: the engine failed.
bool next(SqliteConnection& connection, const Head& head, QByteArray* chain);
} // namespace TransactionChain
