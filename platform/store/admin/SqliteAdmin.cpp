#include "SqliteAdmin.h"

#include "ContentCheck.h"
#include "EpochHistory.h"
#include "GenGuid32.h"
#include "LongWork.h"
#include "SchemaScript.h"
#include "SqliteCheck.h"
#include "SqliteConnection.h"
#include "SqliteEvidence.h"
#include "SqliteSchema.h"
#include "SqliteTransaction.h"
#include "StoreErrors.h"
#include "StorePlace.h"

#include <algorithm>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace
{
constexpr int deadlineMs = 15000;

bool setProperty(SqliteConnection& connection, const QByteArray& name, const QByteArray& value,
                 StoreError* error)
{
    SqliteStatement statement = connection.prepare("INSERT INTO StoreProperties (name, value) VALUES (?, ?) "
                                                   "ON CONFLICT (name) DO UPDATE SET value = excluded.value");
    statement.bind(1, name).bind(2, value);
    if (statement.run())
        return true;
    *error = connection.lastError();
    return false;
}

/// Runs \a work inside a transaction of the log, under the administrator's name; the caller commits.
template <class Work>
bool logged(SqliteConnection& connection, StoreError* error, Work work)
{
    SqliteTransaction transaction(connection, SqliteTransaction::loader());
    return transaction.begin(error) && work() &&
           transaction.close(GenGuid32(), QDateTime::currentSecsSinceEpoch(), error);
}

int versionOf(SqliteConnection& connection)
{
    SqliteStatement version = connection.prepare("PRAGMA user_version");
    return version.step() ? static_cast<int>(version.integer(0)) : -1;
}

/// Copies the connection's snapshot into a new file.
bool copyInto(const QString& draft, SqliteConnection& connection, StoreError* error)
{
    const LongWork work("Копирование");
    SqliteConnection::removeFile(draft);
    const QByteArray draftName = draft.toUtf8();
    SqliteStatement vacuum = connection.prepare("VACUUM INTO ?");
    vacuum.bind(1, draftName);
    if (connection.exec("PRAGMA query_only = OFF", error) && vacuum.run())
        return true;
    *error = connection.lastError();
    const int code = vacuum.code() & 0xFF;
    if (code == SQLITE_FULL)
        *error = SqliteConnection::errorOf(code, draft, error->detail);
    else if (code == SQLITE_CANTOPEN || code == SQLITE_READONLY) {
        const QString detail = error->detail;
        StoreErrors::raise(error, StoreError::ReadOnly, StoreErrors::closedFolder,
                           QFileInfo(draft).absolutePath());
        error->detail = detail;
    }
    return false;
}

/// The epochs that the log of a copy names when it takes the place of a store: those that it lacks, and its own.
bool epochsAfter(const QString& copy, const EpochHistory& replaced, QByteArrayList* epochs, StoreError* error)
{
    EpochHistory own;
    const auto log = SqliteEvidence::open(copy, Store::Access::Read, deadlineMs, error);
    if (!log || !own.load(*log))
        return false;
    *epochs = replaced.missingFrom(own) << GenGuid32();
    return true;
}

/// Gives the copy its own history, which names that of the store that it replaces, and checks it, as far as this
/// program knows its version. Closes the connection, so that the file contains everything.
bool finishCopy(const QString& copy, const EpochHistory& replaced, StoreError* error)
{
    const auto connection = SqliteConnection::open(copy, SqliteConnection::Upgrade, deadlineMs, error);
    if (!connection)
        return false;
    const bool isPresent = versionOf(*connection) == SchemaScript::version;
    QByteArrayList epochs;
    if (isPresent && !epochsAfter(copy, replaced, &epochs, error))
        return false;
    const auto setEpochs = [&] {
        return std::all_of(epochs.cbegin(), epochs.cend(), [&](const QByteArray& epoch) {
            return setProperty(*connection, "epoch", epoch, error);
        });
    };
    if (isPresent && (!connection->exec("BEGIN IMMEDIATE", error) || !logged(*connection, error, setEpochs) ||
                      !connection->exec("COMMIT", error)))
        return false;
    QVector<StoreAdmin::Finding> findings;
    if (!SqliteCheck::engine(*connection, &findings, error) ||
        (isPresent && (!SqliteCheck::schema(*connection, &findings, error) ||
                       !SqliteCheck::log(*connection, &findings, error))))
        return false;
    return ContentCheck::isSound(findings, error) &&
           connection->exec("PRAGMA wal_checkpoint(TRUNCATE)", error);
}
} // namespace

bool SqliteAdmin::init(const QString& file, const QByteArray& codecName, const QByteArray& timeZone,
                       const std::function<bool()>& isFilled, StoreError* error)
{
    auto connection = SqliteConnection::open(file, SqliteConnection::Create, deadlineMs, error);
    if (!connection)
        return false;
    const auto setProperties = [&] {
        return setProperty(*connection, "codec", codecName, error) &&
               setProperty(*connection, "timeZone", timeZone, error) &&
               setProperty(*connection, "epoch", GenGuid32(), error) &&
               setProperty(*connection, "signatures", "1", error);
    };
    const bool isMade = connection->exec("BEGIN IMMEDIATE", error) &&
                        SqliteSchema::install(*connection, error) &&
                        logged(*connection, error, setProperties) && connection->exec("COMMIT", error);
    connection.reset();
    if (isMade && isFilled())
        return true;
    SqliteConnection::removeFile(file);
    return false;
}

bool SqliteAdmin::upgrade(const QString& file, StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::Upgrade, deadlineMs, error);
    if (!connection || !connection->exec("BEGIN IMMEDIATE", error))
        return false;
    const int from = versionOf(*connection);
    if (from < 1) {
        *error = StoreErrors::version(from, file);
        return false; // not a store of any program
    }
    return from == SchemaScript::version ||
           (SqliteSchema::upgrade(*connection, from, error) && connection->exec("COMMIT", error));
}

bool SqliteAdmin::rebuildSearch(const QString& file, StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadWrite, deadlineMs, error);
    QVector<StoreAdmin::Finding> findings;
    return connection && connection->exec("BEGIN IMMEDIATE", error) &&
           SqliteCheck::log(*connection, &findings, error) &&
           ContentCheck::isSound(findings, error, ContentCheck::unsoundLog) &&
           SqliteSchema::rebuildSearch(*connection, error) && connection->exec("COMMIT", error);
}

bool SqliteAdmin::changeProperty(const QString& file, const QByteArray& name, const QByteArray& value,
                                 StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadWrite, deadlineMs, error);
    return connection && connection->exec("BEGIN IMMEDIATE", error) &&
           logged(*connection, error, [&] { return setProperty(*connection, name, value, error); }) &&
           connection->exec("COMMIT", error);
}

bool SqliteAdmin::check(const QString& file, QVector<StoreAdmin::Finding>* findings, StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadOnly, deadlineMs, error);
    // One transaction, so that all queries see the same state of a store in use.
    if (!connection || !connection->exec("BEGIN", error))
        return false;
    return SqliteCheck::place(*connection, findings) && SqliteCheck::engine(*connection, findings, error) &&
           SqliteCheck::schema(*connection, findings, error) &&
           SqliteCheck::content(*connection, findings, error) &&
           SqliteCheck::search(*connection, findings, error) &&
           SqliteCheck::log(*connection, findings, error);
}

bool SqliteAdmin::checkSchema(const QString& file, QVector<StoreAdmin::Finding>* findings, StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadOnly, deadlineMs, error);
    return connection && SqliteCheck::schema(*connection, findings, error);
}

int SqliteAdmin::version(const QString& file, StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadOlder, deadlineMs, error);
    return connection ? versionOf(*connection) : -1;
}

bool SqliteAdmin::backup(const QString& file, const QString& copy, StoreError* error)
{
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadOlder, deadlineMs, error);
    return connection && copyInto(copy, *connection, error) && finishCopy(copy, {}, error);
}

bool SqliteAdmin::restore(const QString& file, const QString& copy, const EpochHistory& replaced,
                          QStringList* notes, StoreError* error)
{
    const QFileInfo source(copy);
    if (source.exists() && source.canonicalFilePath() == QFileInfo(file).canonicalFilePath())
        return StoreErrors::raise(error, StoreError::BadRequest,
                                  "Файл «%1» и есть хранилище. Переименуйте его и верните под новым именем.",
                                  copy);
    StorePlace place(file);
    if (!place.hold(error))
        return false;
    const QString draft = place.file() + QStringLiteral(".part");
    bool done = false;
    {
        const auto connection = SqliteConnection::open(copy, SqliteConnection::ReadOlder, deadlineMs, error);
        done = connection && copyInto(draft, *connection, error);
    }
    QString kept;
    done = done && upgrade(draft, error) && finishCopy(draft, replaced, error) &&
           place.take(draft, &kept, error);
    if (!done)
        SqliteConnection::removeFile(draft);
    else if (!kept.isEmpty())
        notes->append(QString::fromUtf8("Прежнее хранилище сохранено: %1").arg(kept));
    return done;
}

QStringList SqliteAdmin::files(const QString& file, StoreError* error)
{
    QStringList names;
    const auto connection = SqliteConnection::open(file, SqliteConnection::ReadOnly, deadlineMs, error);
    if (!connection)
        return names;
    SqliteStatement rows =
        connection->prepare("SELECT folder || '/' || name FROM StoreFiles ORDER BY folder, name");
    while (rows.step())
        names.append(QString::fromUtf8(rows.bytes(0)));
    if (rows.code() != SQLITE_DONE)
        *error = connection->lastError();
    return names;
}
