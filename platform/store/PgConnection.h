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

/// One connection to a PostgreSQL server. It never blocks: every wait ends with the deadline, after which the
/// statement is cancelled on the server and the connection dropped. One thread.
class PgConnection
{
public:
    /// What stands for a part of the address, where it is not empty.
    struct Instead {
        QByteArray database;
        QByteArray login;
        QByteArray password;
    };
    /// Takes the address as libpq does, with all its options but one: PgAddress says when the server must prove who it
    /// is. Nothing is connected yet.
    PgConnection(const QString& url, int deadlineMs, const Instead& instead);
    PgConnection(const QString& url, int deadlineMs) : PgConnection(url, deadlineMs, Instead()) {}
    ~PgConnection();
    PgConnection(const PgConnection&) = delete;
    PgConnection& operator=(const PgConnection&) = delete;

    /// Begins to connect, or goes on with it, for at most \a waitMs: false with Lost while it is under way or when it
    /// has failed. An attempt goes on between the calls.
    bool connect(int waitMs, StoreError* error);
    bool isOpen() const { return m_isOpen; }
    void drop();
    /// How long a request should wait for a connection.
    int connectMs() const;

    /// The deadline of what follows begins now; it is never longer than that of the connection.
    void startDeadline(int limitMs)
    {
        m_limitMs = qMin(limitMs, m_deadlineMs);
        m_clock.start();
    }
    /// Called now and then while a statement runs.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }

    /// Runs one statement. A false result, and \a error says why.
    PgResult run(const QByteArray& sql, const PgValues& values, StoreError* error);
    PgResult run(const QByteArray& sql, StoreError* error) { return run(sql, PgValues(), error); }
    /// The same with a statement that the server prepares once a connection.
    PgResult prepared(const QByteArray& sql, const PgValues& values, StoreError* error);
    /// Runs any number of statements without values.
    bool exec(const QByteArray& script, StoreError* error);
    /// What a cursor's answer will look like, without rows.
    PgResult describeCursor(const char* cursor, StoreError* error);

    /// The server's code for the last failure, such as "40001"; empty when the connection was lost.
    QByteArray failureState() const { return m_state; }
    /// The constraint that the last failure is about.
    QByteArray failureConstraint() const { return m_constraint; }

    /// Readable when there may be a notification, the connection may have broken or an attempt to connect has ended; the
    /// same for the object's life.
    int descriptor() const { return m_epoll; }
    /// Takes in what the server has sent unasked. False when the connection is gone.
    bool takeNotifications(bool* any);

    bool isEncrypted() const { return m_pg && PQsslInUse(m_pg) != 0; }
    /// What the open connection leaves unproved (PgAddress::caution).
    QString caution() const;
    /// Over a socket of this machine, which no network carries.
    bool isLocal() const { return m_pg && PQhost(m_pg) && *PQhost(m_pg) == '/'; }
    /// What the server keeps instead of a password (SCRAM); empty when there can be none.
    QByteArray passwordHash(const QString& login, const QString& password) const;
    /// The database of an address.
    static QByteArray databaseOf(const QString& url);

    /// The name under which users know the server: the address without the name and the password.
    QString place() const { return m_place; }
    /// The error for a code of the server.
    StoreError errorOf(const QByteArray& state, const QString& message) const;
    StoreError lostError(const QString& detail) const;

private:
    bool wait(short events, qint64 untilMs, const QElapsedTimer& clock);
    PgAttempt* attempt();
    /// Has the descriptor tell of another one.
    void watch(int descriptor);
    /// Why the attempt to connect has failed.
    StoreError connectError() const;
    bool finishConnecting(StoreError* error);
    /// The result of what was sent, or null with \a error.
    PgResult collect(bool wasSent, StoreError* error);
    void cancel();
    static PgResult nothing() { return PgResult(); }

    QByteArray m_url;
    QByteArray m_sslMode; ///< empty where libpq chooses
    Instead m_instead;
    QString m_place;
    int m_deadlineMs;
    int m_limitMs; ///< of the present request
    int m_epoll;
    PGconn* m_pg = nullptr;
    bool m_isOpen = false;
    std::unique_ptr<PgAttempt> m_attempt; ///< while connecting
    QElapsedTimer m_clock;                ///< of the request
    std::function<void()> m_progress;
    QHash<QByteArray, QByteArray> m_prepared; ///< names by statement
    QByteArray m_state;
    QByteArray m_constraint;
};
