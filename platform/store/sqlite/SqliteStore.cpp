#include "SqliteStore.h"

#include "GenGuid32.h"
#include "SqliteEvidence.h"
#include "SqliteTransaction.h"
#include "StoreErrors.h"

#include <QDateTime>
#include <QFileInfo>

std::unique_ptr<Store> SqliteStore::open(const QString& file, const Options& options, StoreError* error)
{
    std::unique_ptr<SqliteStore> store(new SqliteStore(file, options));
    if (!store->connect(error))
        return nullptr;
    return store;
}

bool SqliteStore::connect(StoreError* error)
{
    m_read.reset();
    m_write.reset();
    auto write = SqliteConnection::open(m_file, SqliteConnection::ReadWrite, m_options.deadlineMs, error);
    const bool isReadable = write || error->code == StoreError::ReadOnly;
    auto read = isReadable
                    ? SqliteConnection::open(m_file, SqliteConnection::ReadOnly, m_options.deadlineMs, error)
                    : nullptr;
    if (!read || !readProperties(*read, error))
        return false;
    // The login that was signed in before the file disappeared must still exist.
    if (!m_user.login.isEmpty() && !findLogin(*read, m_user.login, &m_user, error))
        return false;
    m_read = std::move(read);
    m_write = std::move(write);
    for (SqliteConnection* connection : {m_write.get(), m_read.get()}) {
        if (connection)
            connection->setProgress([this] {
                if (m_progress)
                    m_progress();
            });
    }
    m_dataVersion = -1;
    m_inRead = false;
    return true;
}

bool SqliteStore::readProperties(SqliteConnection& connection, StoreError* error)
{
    SqliteStatement row =
        connection.prepare("SELECT (SELECT value FROM StoreProperties WHERE name = 'codec'),"
                           " (SELECT value FROM StoreProperties WHERE name = 'timeZone')");
    return row.step() ? takeProperties(row.bytes(0), row.bytes(1), m_file, error) : fail(connection, error);
}

bool SqliteStore::ready(StoreError* error)
{
    const SqliteConnection::Place place = m_read ? m_read->place() : SqliteConnection::Moved;
    if (place == SqliteConnection::InPlace)
        return true;
    if (!QFileInfo::exists(m_file))
        return StoreErrors::raise(error, StoreError::Lost, "Файл хранилища «%1» исчез.", m_file);
    if (!leaveLog(place, error))
        return false;
    if (connect(error))
        return true;
    error->code = StoreError::Lost;
    return false;
}

bool SqliteStore::leaveLog(SqliteConnection::Place place, StoreError* error)
{
    if (place == SqliteConnection::LogGone) {
        qWarning("bool SqliteStore::ready(StoreError*) the log of the store's file was removed: %s",
                 qUtf8Printable(m_file));
        return !m_write || m_write->emptyLog(error); // we still have it open
    }
    for (const auto& connection : {m_write.get(), m_read.get()})
        if (connection && place == SqliteConnection::LogReplaced)
            connection->abandonLog();
    return true;
}

bool SqliteStore::fail(const SqliteConnection& connection, StoreError* error) const
{
    *error = connection.lastError();
    return false;
}

QVector<StoreLogin> SqliteStore::logins()
{
    QVector<StoreLogin> all;
    StoreError error;
    if (!ready(&error))
        return all;
    SqliteStatement rows = m_read->cached(loginsSql);
    while (rows.step())
        all.append(loginOf(rows));
    return all;
}

bool SqliteStore::signIn(const QString& login, StoreLogin* user, StoreError* error)
{
    if (!ready(error) || !findLogin(*m_read, login, user, error))
        return false;
    m_user = *user;
    return true;
}

bool SqliteStore::findLogin(SqliteConnection& connection, const QString& login, StoreLogin* user,
                            StoreError* error) const
{
    const QByteArray name = login.toUtf8();
    SqliteStatement row = connection.cached(loginSql);
    row.bind(1, name);
    if (row.step()) {
        *user = loginOf(row);
        return true;
    }
    if (row.code() != SQLITE_DONE)
        return fail(connection, error);
    return StoreErrors::raise(error, StoreError::Refused, StoreErrors::noLogin, login);
}

QVector<StoreDepartment> SqliteStore::departments(const QByteArray& userKey)
{
    QVector<StoreDepartment> all;
    StoreError error;
    if (!ready(&error))
        return all;
    SqliteStatement rows = m_read->cached(departmentsSql);
    rows.bind(1, userKey);
    while (rows.step())
        all.append(departmentOf(rows));
    return all;
}

bool SqliteStore::hasRight(const QByteArray& right)
{
    StoreError error;
    if (!ready(&error))
        return false;
    SqliteStatement row = m_read->cached(rightSql);
    row.bind(1, m_user.key).bind(2, right);
    return row.step();
}

double SqliteStore::serverTime()
{
    // The server is this computer.
    return static_cast<double>(QDateTime::currentSecsSinceEpoch());
}

std::unique_ptr<EvidenceLog> SqliteStore::evidence(Access access, StoreError* error)
{
    return ready(error) ? SqliteEvidence::open(m_file, access, m_options.deadlineMs, error) : nullptr;
}

bool SqliteStore::file(const QString& folder, const QString& name, QByteArray* content, StoreError* error)
{
    if (!ready(error))
        return false;
    const QByteArray folderBytes = folder.toUtf8();
    const QByteArray nameBytes = name.toUtf8();
    SqliteStatement row = m_read->cached(fileSql);
    row.bind(1, folderBytes).bind(2, nameBytes);
    if (row.step()) {
        *content = row.bytes(0);
        return true;
    }
    if (row.code() != SQLITE_DONE)
        return fail(*m_read, error);
    *error = StoreErrors::noFile(folder, name);
    return false;
}

bool SqliteStore::transact(const std::function<bool(SqliteTransaction&)>& work, StoreError* error)
{
    if (!m_write) {
        *error = SqliteConnection::errorOf(SQLITE_READONLY, m_file, QString());
        return false;
    }
    if (!m_write->exec("BEGIN IMMEDIATE", error))
        return false;
    SqliteTransaction transaction(*m_write, {writerName(), m_user.key, m_options.loader});
    if (work(transaction) && m_write->exec("COMMIT", error))
        return true;
    if (!sqlite3_get_autocommit(m_write->handle()))
        m_write->exec("ROLLBACK");
    return false;
}

bool SqliteStore::writeFile(const QString& folder, const QString& name, const QByteArray& content,
                            StoreError* error)
{
    if (!ready(error))
        return false;
    if (!m_options.loader && !hasRight("ADMINISTRATOR"))
        return StoreErrors::raise(error, StoreError::Refused,
                                  "Файлы хранилища записывает только администратор.");
    const auto change = [&] {
        const QByteArray folderBytes = folder.toUtf8();
        const QByteArray nameBytes = name.toUtf8();
        SqliteStatement statement = m_write->cached(
            content.isNull() ? "DELETE FROM StoreFiles WHERE folder = ? AND name = ?"
                             : "INSERT INTO StoreFiles (folder, name, content) VALUES (?, ?, ?)"
                               " ON CONFLICT (folder, name) DO UPDATE SET content = excluded.content");
        statement.bind(1, folderBytes).bind(2, nameBytes);
        if (!content.isNull())
            statement.bindBlob(3, content);
        if (!statement.run())
            return fail(*m_write, error);
        *error = StoreErrors::noFile(folder, name);
        return sqlite3_changes(m_write->handle()) > 0;
    };
    const auto work = [&](SqliteTransaction& transaction) {
        return transaction.begin(error) && change() && transaction.close(GenGuid32(), serverTime(), error);
    };
    return transact(work, error);
}
