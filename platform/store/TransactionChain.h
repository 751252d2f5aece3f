#pragma once

#include <QByteArray>

class SqliteConnection;

/// The hash chain of the change log: that of a transaction is SHA-256 over the one before it, its own head and every
/// row that it logged. A changed, removed or inserted entry breaks all that follow.
namespace TransactionChain
{
struct Head {
    qint64 number;
    QByteArray batchKey;
    QByteArray login;
    bool loader;
    double time;
};

/// The hash for a transaction whose rows stand in the log. False: the engine failed.
bool next(SqliteConnection& connection, const Head& head, QByteArray* chain);
} // namespace TransactionChain
