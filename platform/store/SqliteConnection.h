#pragma once

#include "StoreError.h"

#include <functional>
#include <memory>
#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QString>
#include <sqlite3.h>

class SqliteConnection;

/// A prepared statement with one life: bound, stepped, and given back reset. Those of the connection's cache go back
/// there, others are finalized.
class SqliteStatement
{
public:
    SqliteStatement(sqlite3_stmt* statement, bool cached) : m_statement(statement), m_cached(cached) {}
    SqliteStatement(SqliteStatement&& other) noexcept
        : m_statement(other.m_statement), m_cached(other.m_cached)
    {
        other.m_statement = nullptr;
    }
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement();

    explicit operator bool() const { return m_statement != nullptr; }
    sqlite3_stmt* handle() const { return m_statement; }

    /// The bytes of texts and blobs must live until the statement was stepped.
    SqliteStatement& bind(int parameter, const QByteArray& text);
    SqliteStatement& bindBlob(int parameter, const QByteArray& bytes);
    SqliteStatement& bind(int parameter, qint64 number);
    SqliteStatement& bind(int parameter, double number);

    /// True when there is a row to read. The code is then SQLITE_ROW, at the end SQLITE_DONE, otherwise an error.
    bool step();
    /// Runs a statement without an answer to its end.
    bool run();
    int code() const { return m_code; }
    void reset();

    /// The bytes of a text or blob: a null array for NULL, an empty one for an empty value.
    QByteArray bytes(int column) const;
    qint64 integer(int column) const { return sqlite3_column_int64(m_statement, column); }
    double real(int column) const { return sqlite3_column_double(m_statement, column); }
    bool isNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

private:
    sqlite3_stmt* m_statement;
    bool m_cached;
    int m_code = SQLITE_OK;
};

/// One connection to the file of a store, with the settings that every connection has, a cache of statements, a
/// deadline, and the engine's codes told in the user's words.
class SqliteConnection
{
public:
    enum Mode {
        Create,
        ReadWrite,
        ReadOnly,
        Upgrade ///< ReadWrite, for a store of an older version too
    };

    /// "VRKJ", the mark of a store in the file's header.
    static constexpr int ApplicationId = 0x56524B4A;

    /// Opens the file and checks that it is a store of this version; with Create a new, empty file that must not be
    /// there yet. Null, and \a error says why.
    static std::unique_ptr<SqliteConnection> open(const QString& file, Mode mode, int deadlineMs,
                                                  StoreError* error);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    sqlite3* handle() const { return m_db; }
    QString file() const { return m_file; }

    /// A statement out of the cache, made at its first use. It must not be in use already.
    SqliteStatement cached(const QByteArray& sql);
    /// A statement of its own.
    SqliteStatement prepare(const QByteArray& sql);
    /// Runs any number of statements.
    bool exec(const QByteArray& sql, StoreError* error = nullptr);

    /// Called now and then while a statement runs under a deadline or waits for the lock of another process.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }
    /// From now until stopDeadline() a statement that outlives the deadline is broken off.
    void startDeadline();
    void stopDeadline();

    /// What the last failed operation means for the user.
    StoreError lastError() const;
    /// True when the file is no longer at its place, so that nobody would find what is written.
    bool hasMoved() const;

    /// Removes a database file that nobody has open, with its logs.
    static void removeFile(const QString& file);
    /// The error of an engine's code, for the file.
    static StoreError errorOf(int code, const QString& file, const QString& detail);

private:
    SqliteConnection(const QString& file, int deadlineMs) : m_file(file), m_deadlineMs(deadlineMs) {}
    bool setUp(Mode mode, StoreError* error);
    static int onProgress(void* connection);
    /// Waits for the lock of another process, as long as the deadline; then the statement fails with Locked.
    static int onBusy(void* connection, int count);

    sqlite3* m_db = nullptr;
    QString m_file;
    int m_deadlineMs;
    QElapsedTimer m_clock;
    QElapsedTimer m_busy;
    std::function<void()> m_progress;
    QHash<QByteArray, sqlite3_stmt*> m_statements;
};
