#pragma once

#include <libpq-fe.h>
#include <memory>
#include <QByteArray>
#include <QVector>

/// One attempt to connect to a PostgreSQL server, in a thread of its own: looking up a name, reading a service file and
/// a ticket block in libpq whatever it is asked for, and only where it may block does it go on from a host that keeps
/// silent to the next one. Whoever gives an attempt up leaves its thread to end by itself.
class PgAttempt
{
public:
    /// A name and a value of a connection, as PQconnectdbParams takes them; an address may stand for "dbname".
    struct Setting {
        QByteArray name;
        QByteArray value;
    };

    /// Begins at once.
    explicit PgAttempt(const QVector<Setting>& settings);
    ~PgAttempt();
    PgAttempt(const PgAttempt&) = delete;
    PgAttempt& operator=(const PgAttempt&) = delete;

    /// True when the attempt has ended, for which it waits at most \a ms.
    bool wait(int ms) const;
    /// Readable when it has ended; -1 when this machine has no more descriptors.
    int descriptor() const;
    /// The connection of an attempt that has ended, good or bad, for the caller to finish; null where memory or
    /// threads have run out.
    PGconn* take();

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
};
