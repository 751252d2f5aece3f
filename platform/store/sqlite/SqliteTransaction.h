#pragma once

#include "StoreError.h"

#include <QByteArray>

class SqliteConnection;

/// What the change log needs at the beginning and the end of a transaction that changes rows of a SQLite
/// store. Runs inside the caller's transaction; between begin() and close() the triggers log under its
/// number.
class SqliteTransaction
{
public:
    struct Writer {
        QByteArray login;
        QByteArray userKey;
        bool loader;
    };
    /// The administrator, to whom no rule applies, by the account of this process in the operating system.
    static Writer loader() { return {account(), QByteArray(), true}; }
    static QByteArray account();

    SqliteTransaction(SqliteConnection& connection, const Writer& writer)
        : m_connection(connection), m_writer(writer)
    {
    }

    bool begin(StoreError* error);
    /// Writes the transaction's own row to the log, with \a time in seconds.
    bool close(const QByteArray& batchKey, double time, StoreError* error);

private:
    bool fail(StoreError* error) const;

    SqliteConnection& m_connection;
    Writer m_writer;
    qint64 m_number = 0;
};
