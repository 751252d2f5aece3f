#include "SqliteConnection.h"

#include "ChangeRow.h"
#include "RecordWords.h"
#include "RowLeaf.h"
#include "SqliteWal.h"
#include "StoreErrors.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <sys/stat.h>

namespace
{
constexpr int cachedStatements = 128;
constexpr int stepsBetweenLooks = 20000; // steps of SQLite's virtual machine: well under a millisecond
constexpr int longestNapMs = 25;         // between two attempts to get a lock

bool isReading(SqliteConnection::Mode mode)
{
    return mode == SqliteConnection::ReadOnly || mode == SqliteConnection::ReadOlder;
}

const char notAStore[] = "Файл «%1» не является хранилищем журнала.";
} // namespace

// Statements

SqliteStatement::~SqliteStatement()
{
    if (m_cached) {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    } else {
        sqlite3_finalize(m_statement);
    }
}

SqliteStatement& SqliteStatement::bind(int parameter, const QByteArray& text)
{
    sqlite3_bind_text(m_statement, parameter, text.constData(), text.size(), SQLITE_STATIC);
    return *this;
}

SqliteStatement& SqliteStatement::bindBlob(int parameter, const QByteArray& bytes)
{
    sqlite3_bind_blob(m_statement, parameter, bytes.constData(), bytes.size(), SQLITE_STATIC);
    return *this;
}

SqliteStatement& SqliteStatement::bind(int parameter, qint64 number)
{
    sqlite3_bind_int64(m_statement, parameter, number);
    return *this;
}

SqliteStatement& SqliteStatement::bind(int parameter, double number)
{
    sqlite3_bind_double(m_statement, parameter, number);
    return *this;
}

bool SqliteStatement::step()
{
    m_code = m_statement ? sqlite3_step(m_statement) : SQLITE_ERROR;
    return m_code == SQLITE_ROW;
}

bool SqliteStatement::run()
{
    while (step()) {
    }
    return m_code == SQLITE_DONE;
}

QByteArray SqliteStatement::bytes(int column) const
{
    if (isNull(column))
        return QByteArray();
    const char* data = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    const int length = sqlite3_column_bytes(m_statement, column);
    return length > 0 ? QByteArray(data, length) : QByteArray("");
}

// Connections

std::unique_ptr<SqliteConnection> SqliteConnection::open(const QString& file, Mode mode, int deadlineMs,
                                                         StoreError* error)
{
    const QFileInfo info(file);
    const auto fail = [&](StoreError::Code code, const char* text) {
        StoreErrors::raise(error, code, text, file);
        return nullptr;
    };
    if (mode == Create && (info.exists() || info.isSymLink()))
        return fail(StoreError::BadRequest, StoreErrors::existingFile);
    if (mode != Create && !info.exists())
        return fail(StoreError::Missing, "Файл хранилища «%1» не найден.");
    if (mode != Create && !info.isFile())
        return fail(StoreError::NotAStore, "«%1» не является файлом хранилища журнала.");
    if (mode == Create && !info.absoluteDir().exists())
        return fail(StoreError::Missing, "Папка для файла «%1» не найдена.");

    if (mode != Create && SqliteWal(file).isForeign())
        return fail(
            StoreError::NotAStore,
            "Рядом с хранилищем «%1» лежит журнал «%1-wal» от другого файла: вместе их открывать нельзя. "
            "Если на место хранилища положили копию, верните её командой vrk-admin restore.");

    // Where nothing can be written, SQLite cannot create a log, and this keeps it from leaving one that
    // would lock others out.
    const bool isFilled = isReading(mode) && SqliteWal(file).isFilled();
    const bool isWritable = info.isWritable() && QFileInfo(info.absolutePath()).isWritable();
    auto connection = connected(file, mode, deadlineMs, isReading(mode) && !isWritable && !isFilled, error);
    if (!connection && isFilled && error->code == StoreError::ReadOnly)
        return fail(
            StoreError::ReadOnly,
            "Хранилище «%1» не дописано: рядом лежит «%1-wal». Скопируйте оба файла туда, где разрешена "
            "запись.");
    return connection;
}

std::unique_ptr<SqliteConnection> SqliteConnection::connected(const QString& file, Mode mode, int deadlineMs,
                                                              bool isFrozen, StoreError* error)
{
    std::unique_ptr<SqliteConnection> connection(new SqliteConnection(file, deadlineMs));
    int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    flags |= isReading(mode) ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    QByteArray name = file.toUtf8();
    connection->m_isFrozen = isFrozen;
    connection->m_watched = QFile::encodeName(isFrozen ? file : SqliteWal::of(file));
    if (mode == Create)
        flags |= SQLITE_OPEN_CREATE;
    if (isFrozen) {
        flags |= SQLITE_OPEN_URI;
        name = "file:" + QUrl::toPercentEncoding(file, "/") + "?immutable=1";
        connection->m_stateThere = FileState::of(connection->m_watched);
    }
    const int code = sqlite3_open_v2(name.constData(), &connection->m_db, flags, nullptr);
    if (code != SQLITE_OK) {
        *error = errorOf(code, file, QString::fromUtf8(sqlite3_errstr(code)));
        return nullptr;
    }
    if (connection->setUp(mode, error)) {
        if (!isFrozen)
            connection->m_stateThere = FileState::of(connection->m_watched);
        return connection;
    }
    connection.reset();
    if (mode == Create)
        removeFile(file);
    return nullptr;
}

FileState FileState::of(const QByteArray& name)
{
    struct stat found = {};
    if (::stat(name.constData(), &found) != 0)
        return FileState();
    constexpr qint64 nsInSecond = 1000000000;
    return {found.st_dev, found.st_ino, found.st_size,
            found.st_mtim.tv_sec * nsInSecond + found.st_mtim.tv_nsec};
}

void SqliteConnection::removeFile(const QString& file)
{
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(file + QLatin1String(suffix));
}

bool SqliteConnection::setUp(Mode mode, StoreError* error)
{
    sqlite3_busy_handler(m_db, onBusy, this);
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    // The search triggers write into a virtual table, which this SQLite regards as potentially unsafe; no
    // function registered on these connections does more than compute.
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, isReading(mode) ? 0 : 1, nullptr);
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    ChangeRow::installFunction(m_db);
    RecordWords::installFunctions(m_db);
    RowLeaf::installFunction(m_db);

    if (mode != Create) {
        if (sqlite3_db_readonly(m_db, "main") == 1 && !isReading(mode)) {
            *error = errorOf(SQLITE_READONLY, m_file, QString());
            return false;
        }
        SqliteStatement marks = prepare("SELECT * FROM pragma_application_id, pragma_user_version");
        if (!marks.step()) {
            *error = lastError();
            return false;
        }
        if (marks.integer(0) != ApplicationId) {
            StoreErrors::raise(error, StoreError::NotAStore, notAStore, m_file);
            error->detail = QStringLiteral("application_id %1").arg(marks.integer(0));
            return false;
        }
        *error = StoreErrors::version(static_cast<int>(marks.integer(1)), m_file);
        const bool isOlderTaken = mode == Upgrade || mode == ReadOlder;
        if (*error && (!isOlderTaken || error->code != StoreError::TooOld))
            return false;
        error->clear();
    }
    QByteArray settings = "PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL;";
    settings += isReading(mode) ? "PRAGMA query_only = ON;" : "PRAGMA journal_mode = WAL;";
    return exec(settings, error);
}

SqliteConnection::~SqliteConnection()
{
    for (sqlite3_stmt* statement : qAsConst(m_statements))
        sqlite3_finalize(statement);
    sqlite3_close_v2(m_db);
}

SqliteStatement SqliteConnection::cached(const QByteArray& sql)
{
    const auto found = m_statements.constFind(sql);
    if (found != m_statements.constEnd())
        return SqliteStatement(found.value(), true);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(m_db, sql.constData(), sql.size() + 1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    const bool keep = statement && m_statements.size() < cachedStatements;
    if (keep)
        m_statements.insert(sql, statement);
    return SqliteStatement(statement, keep);
}

SqliteStatement SqliteConnection::prepare(const QByteArray& sql)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(m_db, sql.constData(), sql.size() + 1, &statement, nullptr);
    return SqliteStatement(statement, false);
}

bool SqliteConnection::exec(const QByteArray& sql, StoreError* error)
{
    if (sqlite3_exec(m_db, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    if (error)
        *error = lastError();
    return false;
}

void SqliteConnection::startDeadline()
{
    m_clock.start();
    sqlite3_progress_handler(m_db, stepsBetweenLooks, onProgress, this);
}

int SqliteConnection::onProgress(void* connection)
{
    auto* self = static_cast<SqliteConnection*>(connection);
    if (self->m_progress)
        self->m_progress();
    return self->m_clock.hasExpired(self->m_deadlineMs) ? 1 : 0;
}

int SqliteConnection::onBusy(void* connection, int count)
{
    auto* self = static_cast<SqliteConnection*>(connection);
    if (count == 0)
        self->m_busy.start();
    if (self->m_busy.hasExpired(self->m_deadlineMs))
        return 0;
    sqlite3_sleep(std::min(1 << std::min(count, 10), longestNapMs));
    if (self->m_progress)
        self->m_progress();
    return 1;
}

SqliteConnection::Place SqliteConnection::place() const
{
    if (m_isFrozen)
        return FileState::of(m_watched).isSameContent(m_stateThere) && !SqliteWal(m_file).isFilled() ? InPlace
                                                                                                     : Moved;
    int moved = 0;
    if (sqlite3_file_control(m_db, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0)
        return Moved;
    const FileState log = FileState::of(m_watched);
    if (log.isSameFile(m_stateThere))
        return InPlace;
    return log.inode == 0 ? LogGone : LogReplaced;
}

bool SqliteConnection::emptyLog(StoreError* error)
{
    SqliteStatement done = prepare("PRAGMA wal_checkpoint(FULL)");
    if (done.step() && done.integer(0) == 0)
        return true;
    *error = done.code() == SQLITE_ROW ? errorOf(SQLITE_BUSY, m_file, QString()) : lastError();
    return false;
}

StoreError SqliteConnection::lastError() const
{
    return errorOf(sqlite3_extended_errcode(m_db), m_file, QString::fromUtf8(sqlite3_errmsg(m_db)));
}

StoreError SqliteConnection::errorOf(int code, const QString& file, const QString& detail)
{
    const auto make = [&](StoreError::Code kind, const char* text) {
        StoreError error = StoreErrors::make(kind, text, file);
        error.detail = QStringLiteral("SQLite %1: %2").arg(code).arg(detail);
        return error;
    };
    switch (code) {
    case SQLITE_CONSTRAINT_TRIGGER:
        return {StoreError::Refused, detail, QStringLiteral("SQLite %1").arg(code)}; // the rule's own text
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return make(StoreError::Refused, StoreErrors::related);
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
        return make(StoreError::BadRequest, StoreErrors::sameKey);
    default:
        break;
    }
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return make(StoreError::Locked, "Файл хранилища «%1» слишком долго занят другой программой.");
    case SQLITE_FULL:
        return make(StoreError::Full, "На диске с файлом хранилища «%1» закончилось место.");
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return make(StoreError::ReadOnly, "Файл хранилища «%1» доступен только для чтения.");
    case SQLITE_CANTOPEN:
        return make(StoreError::ReadOnly, "Нет доступа к файлу хранилища «%1» или к его папке.");
    case SQLITE_NOTADB:
        return make(StoreError::NotAStore, notAStore);
    case SQLITE_CORRUPT:
        return make(StoreError::NotAStore, "Файл хранилища «%1» повреждён.");
    case SQLITE_IOERR:
        return make(StoreError::Lost, "Ошибка чтения или записи файла хранилища «%1».");
    case SQLITE_INTERRUPT:
        return make(StoreError::Lost, "Запрос к хранилищу «%1» не уложился в отведённое время.");
    case SQLITE_TOOBIG:
    case SQLITE_NOMEM:
        return make(StoreError::TooLarge, "Данные слишком велики для хранилища «%1».");
    case SQLITE_AUTH:
        return make(StoreError::BadRequest, StoreErrors::onlyReading);
    case SQLITE_ERROR:
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_RANGE:
        return make(StoreError::BadRequest, StoreErrors::notUnderstood);
    default:
        return make(StoreError::Internal, StoreErrors::internal);
    }
}
