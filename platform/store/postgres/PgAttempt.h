#pragma once

#include <libpq-fe.h>
#include <memory>
#include <QByteArray>
#include <QVector>

/// One attempt to connect to a PostgreSQL server, in a separate thread: libpq always blocks while it looks
/// up a name or reads a service file or a ticket, and only when it may block does it move from a host that
/// does not answer to the next one. An abandoned attempt's thread ends by itself.
class PgAttempt
{
public:
    /// A name and a value of a connection, as PQconnectdbParams takes them; "dbname" may be an address.
    struct Setting {
        QByteArray name;
        QByteArray value;
    };

    /// Starts at once.
    explicit PgAttempt(const QVector<Setting>& settings);
    ~PgAttempt();
    PgAttempt(const PgAttempt&) = delete;
    PgAttempt& operator=(const PgAttempt&) = delete;

    /// True if the attempt has ended; waits at most \a ms for it.
    bool wait(int ms) const;
    /// Readable when the attempt has ended; -1 if no descriptors are left on this machine.
    int descriptor() const;
    /// The connection of an ended attempt, good or bad, which the caller must finish; null if memory or
    /// threads have run out.
    PGconn* take();

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
};
