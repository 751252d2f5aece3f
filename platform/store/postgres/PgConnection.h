#pragma once

#include "PgAttempt.h"
#include "PgValues.h"
#include "StoreError.h"

#include <functional>
#include <memory>
#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QString>

/// One connection to a PostgreSQL server. It never blocks: every wait ends with the deadline; then the
/// statement is cancelled on the server and the connection dropped. One thread.
class PgConnection
{
public:
    /// Overrides parts of the address where not empty.
    struct Instead {
        QByteArray database;
        QByteArray login;
        QByteArray password;
    };
    /// Takes the address as libpq does, with all its options but one: PgAddress decides when the server
    /// must prove its identity. Does not connect yet.
    PgConnection(const QString& url, int deadlineMs, const Instead& instead);
    PgConnection(const QString& url, int deadlineMs) : PgConnection(url, deadlineMs, Instead()) {}
    ~PgConnection();
    PgConnection(const PgConnection&) = delete;
    PgConnection& operator=(const PgConnection&) = delete;
    /// A new one with the same address and credentials, not connected yet.
    std::unique_ptr<PgConnection> another(int deadlineMs) const
    {
        return std::make_unique<PgConnection>(QString::fromUtf8(m_url), deadlineMs, m_instead);
    }

    /// The same for the same login with another password.
    std::unique_ptr<PgConnection> withPassword(const QByteArray& password, int deadlineMs) const;

    /// Starts or continues to connect, for at most \a waitMs: false with Lost while the attempt runs or if
    /// it has failed. The attempt continues between the calls.
    bool connect(int waitMs, StoreError* error);
    bool isOpen() const { return m_isOpen; }
    void drop();
    /// How long a request should wait for a connection.
    int connectMs() const;

    /// Starts the deadline of the following statements; it is never longer than that of the connection.
    void startDeadline(int limitMs)
    {
        m_limitMs = qMin(limitMs, m_deadlineMs);
        m_clock.start();
    }
    /// Called repeatedly while a statement runs.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    /// Runs one statement. On failure the result is false and \a error is set.
    PgResult run(const QByteArray& sql, const PgValues& values, StoreError* error);
    PgResult run(const QByteArray& sql, StoreError* error) { return run(sql, PgValues(), error); }
    /// The same with a statement that the server prepares once per connection.
    PgResult prepared(const QByteArray& sql, const PgValues& values, StoreError* error);
    /// Runs any number of statements without values.
    bool exec(const QByteArray& script, StoreError* error);
    /// Describes the columns of a cursor's answer, without rows.
    PgResult describeCursor(const char* cursor, StoreError* error);

    /// The server's code for the last failure, such as "40001"; empty when the connection was lost.
    QByteArray failureState() const { return m_state; }
    /// The constraint of the last failure.
    QByteArray failureConstraint() const { return m_constraint; }

    /// Readable when there may be a notification, the connection may be broken, or a connection attempt has
    /// ended; the same for the object's lifetime.
    int descriptor() const { return m_epoll; }
    /// Reads notifications that have arrived. False if the connection is lost.
    bool takeNotifications(bool* any);

    /// Whether the server asked for a password to open the last connection.
    bool hasUsedPassword() const { return m_hasUsedPassword; }
    bool isEncrypted() const { return m_pg && PQsslInUse(m_pg) != 0; }
    /// What the server of the open connection has not proved (PgAddress::caution).
    QString caution() const;
    /// Over a socket of this machine, not over a network.
    bool isLocal() const { return m_pg && PQhost(m_pg) && *PQhost(m_pg) == '/'; }
    /// The hash that the server stores for a password (SCRAM); empty if it cannot be made.
    QByteArray passwordHash(const QString& login, const QString& password) const;
    /// The database in an address.
    static QByteArray databaseOf(const QString& url);

    /// The server's name for users: the address without login and password.
    QString place() const { return m_place; }
    /// The error for an error code of the server.
    StoreError errorOf(const QByteArray& state, const QString& message) const;
    StoreError lostError(const QString& detail) const;

private:
    bool wait(short events, qint64 untilMs, const QElapsedTimer& clock);
    PgAttempt* attempt();
    /// Makes the descriptor watch another one.
    void watch(int descriptor);
    /// Why the connection attempt failed.
    StoreError connectError() const;
    bool finishConnecting(StoreError* error);
    /// The result of the last statement sent, or null with \a error.
    PgResult collect(bool wasSent, StoreError* error);
    void cancel();
    static PgResult nothing() { return PgResult(); }

    QByteArray m_url;
    QByteArray m_sslMode; ///< empty if libpq decides
    Instead m_instead;
    QString m_place;
    int m_deadlineMs;
    int m_limitMs; ///< of the current request
    int m_epoll;
    PGconn* m_pg = nullptr;
    bool m_isOpen = false;
    bool m_hasUsedPassword = false;
    std::unique_ptr<PgAttempt> m_attempt; ///< while connecting
    QElapsedTimer m_clock;                ///< of the request
    std::function<void()> m_progress;
    QHash<QByteArray, QByteArray> m_prepared; ///< names by statement
    QByteArray m_state;
    QByteArray m_constraint;
};
