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

/// A prepared statement with one use: bound, stepped, and returned reset. Those of the connection's cache
/// go back to it, others are finalized.
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

    /// The bytes of texts and blobs must live until the statement is stepped.
    SqliteStatement& bind(int parameter, const QByteArray& text);
    SqliteStatement& bindBlob(int parameter, const QByteArray& bytes);
    SqliteStatement& bind(int parameter, qint64 number);
    SqliteStatement& bind(int parameter, double number);

    /// True if there is a row to read. The code is then SQLITE_ROW; at the end SQLITE_DONE, otherwise an
    /// error.
    bool step();
    /// Runs a statement without an answer to completion.
    bool run();
    int code() const { return m_code; }
    void reset() { sqlite3_reset(m_statement); }

    /// The bytes of a text or blob: a null array for NULL, an empty one for an empty value.
    QByteArray bytes(int column) const;
    /// The same bytes in place, until the next step.
    const char* data(int column) const
    {
        return static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    }
    int size(int column) const { return sqlite3_column_bytes(m_statement, column); }
    qint64 integer(int column) const { return sqlite3_column_int64(m_statement, column); }
    double real(int column) const { return sqlite3_column_double(m_statement, column); }
    bool isNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

private:
    sqlite3_stmt* m_statement;
    bool m_cached;
    int m_code = SQLITE_OK;
};

/// Distinguishes one file from another, and one content of a file from the next.
struct FileState {
    quint64 device = 0;
    quint64 inode = 0; ///< 0: no file
    qint64 size = 0;
    qint64 changedNs = 0;

    static FileState of(const QByteArray& name);
    bool isSameFile(const FileState& other) const { return device == other.device && inode == other.inode; }
    bool isSameContent(const FileState& other) const
    {
        return isSameFile(other) && size == other.size && changedNs == other.changedNs;
    }
};

/// One connection to the file of a store: settings, a cache of statements, a deadline, and messages for the
/// engine's error codes.
class SqliteConnection
{
public:
    enum Mode {
        Create,
        ReadWrite,
        ReadOnly,
        Upgrade,  ///< ReadWrite, also for a store of an older version
        ReadOlder ///< ReadOnly, also for a store of an older version
    };

    /// "VRKJ", the mark of a store in the file's header.
    static constexpr int ApplicationId = 0x56524B4A;

    /// Opens the file and checks that it is a store of this version; Create makes a new, empty file that
    /// must not exist yet. Null with \a error on failure. ReadOnly also reads files in places where nothing
    /// can be written.
    static std::unique_ptr<SqliteConnection> open(const QString& file, Mode mode, int deadlineMs,
                                                  StoreError* error);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    sqlite3* handle() const { return m_db; }
    QString file() const { return m_file; }

    /// A statement from the cache, prepared on first use. It must not be in use already.
    SqliteStatement cached(const QByteArray& sql);
    /// A statement outside the cache.
    SqliteStatement prepare(const QByteArray& sql);
    /// Runs any number of statements.
    bool exec(const QByteArray& sql, StoreError* error = nullptr);

    /// Called repeatedly while a statement runs under a deadline or waits for the lock of another process.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }
    /// From now until stopDeadline(), a statement that exceeds the deadline is interrupted.
    void startDeadline();
    void stopDeadline() { sqlite3_progress_handler(m_db, 0, nullptr, nullptr); }

    /// The last failure in the user's words.
    StoreError lastError() const;
    /// Whether the next process that opens the file will find what is written.
    enum Place {
        InPlace,
        Moved,      ///< the file is missing or another one; or it was read-only and has changed
        LogGone,    ///< the file exists, its write-ahead log is missing
        LogReplaced ///< another log is in its place
    };
    Place place() const;
    /// Copies the whole log into the file, also a log without a name. False with Locked while others read.
    bool emptyLog(StoreError* error);
    /// Leaves the log unchanged when the connection is closed.
    void abandonLog() { sqlite3_db_config(m_db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr); }

    /// Removes a database file that nobody has open, with its logs.
    static void removeFile(const QString& file);
    /// The error for an engine's code, for the file.
    static StoreError errorOf(int code, const QString& file, const QString& detail);

private:
    SqliteConnection(const QString& file, int deadlineMs) : m_file(file), m_deadlineMs(deadlineMs) {}
    /// \a isFrozen reads a file that nobody can change, without locks and without a log.
    static std::unique_ptr<SqliteConnection> connected(const QString& file, Mode mode, int deadlineMs,
                                                       bool isFrozen, StoreError* error);
    bool setUp(Mode mode, StoreError* error);
    static int onProgress(void* connection);
    /// Waits for the lock of another process until the deadline; then the statement fails with Locked.
    static int onBusy(void* connection, int count);

    sqlite3* m_db = nullptr;
    QString m_file;
    QByteArray m_watched;   ///< the log, or the file itself if it is frozen
    FileState m_stateThere; ///< its state when the connection was made
    bool m_isFrozen = false;
    int m_deadlineMs;
    QElapsedTimer m_clock;
    QElapsedTimer m_busy;
    std::function<void()> m_progress;
    QHash<QByteArray, sqlite3_stmt*> m_statements;
};
