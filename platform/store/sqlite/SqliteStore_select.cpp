#include "AnswerRows.h"
#include "SqliteStore.h"
#include "StoreErrors.h"
#include "TableCatalog.h"

namespace
{
constexpr int longSelect = 4096; // bytes of text

/// Allows nothing but reading.
int allowReading(void*, int action, const char*, const char* function, const char*, const char*)
{
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE:
        return SQLITE_OK;
    case SQLITE_FUNCTION:
        return qstricmp(function, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

QVector<AnswerShape::Origin> originsOf(sqlite3_stmt* statement)
{
    QVector<AnswerShape::Origin> origins;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        AnswerShape::Origin origin;
        origin.name = sqlite3_column_name(statement, i);
        if (const char* field = sqlite3_column_origin_name(statement, i)) {
            origin.table = TableCatalog::table(sqlite3_column_table_name(statement, i));
            origin.field = origin.table ? origin.table->fieldIndex(field) : -1;
            if (origin.field < 0)
                origin.table = nullptr;
        }
        origins.append(origin);
    }
    return origins;
}

MDRType computedType(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return AnswerRows::fits(sqlite3_column_int64(statement, column)) ? mdr_TInt32 : mdr_TDouble;
    case SQLITE_FLOAT:
        return mdr_TDouble;
    case SQLITE_BLOB:
        return mdr_TBlob;
    default:
        return mdr_TMemo;
    }
}

/// The deadline of one request on a connection.
class Deadline
{
public:
    explicit Deadline(SqliteConnection& connection) : m_connection(connection)
    {
        m_connection.startDeadline();
    }
    ~Deadline() { m_connection.stopDeadline(); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

private:
    SqliteConnection& m_connection;
};

/// A reading statement that is the only one in the text, otherwise none; \a understood says whether the
/// engine accepts the text at all.
SqliteStatement singleSelect(sqlite3* db, const QByteArray& sql, bool* understood = nullptr)
{
    const auto prepared = [db](const char* text, int bytes, const char** tail) {
        sqlite3_stmt* made = nullptr;
        sqlite3_prepare_v2(db, text, bytes, &made, tail);
        return SqliteStatement(made, false);
    };
    sqlite3_set_authorizer(db, allowReading, nullptr);
    const char* tail = nullptr;
    SqliteStatement statement = prepared(sql.constData(), sql.size() + 1, &tail);
    const bool isRead = sqlite3_errcode(db) == SQLITE_OK;
    const bool more = isRead && *tail && (prepared(tail, -1, nullptr) || sqlite3_errcode(db) != SQLITE_OK);
    sqlite3_set_authorizer(db, nullptr, nullptr);
    if (understood)
        *understood = isRead;
    const bool isSingle = isRead && !more && statement && sqlite3_stmt_readonly(statement.handle()) &&
                          !sqlite3_stmt_isexplain(statement.handle());
    return isSingle ? std::move(statement) : SqliteStatement(nullptr, false);
}
} // namespace

MDArray* SqliteStore::select(const QByteArray& sqlUtf8, StoreError* error)
{
    if (!ready(error))
        return nullptr;
    sqlite3* db = m_read->handle();
    const Deadline deadline(*m_read);
    if (sqlUtf8.size() > longSelect) {
        // The engine parses a list of thousands of keys only once, not a second time for the shape of the
        // answer.
        const SqliteStatement sample = singleSelect(db, AnswerShape::withoutLists(sqlUtf8));
        AnswerShape shape;
        if (sample)
            shape = AnswerShape::of(originsOf(sample.handle()), sqlUtf8);
        if (!shape.isNarrow(error))
            return nullptr;
        if (shape.hasStoredBlobs()) {
            SqliteStatement lean = singleSelect(db, shape.wrapped(AnswerShape::withoutEnd(sqlUtf8)));
            if (lean)
                return answerOf(lean, &shape, error);
        }
    }
    bool understood = false;
    SqliteStatement statement = singleSelect(db, sqlUtf8, &understood);
    if (!understood) {
        fail(*m_read, error);
        return nullptr;
    }
    if (!statement) {
        StoreErrors::raise(error, StoreError::BadRequest, StoreErrors::oneSelect);
        return nullptr;
    }
    AnswerShape shape = AnswerShape::of(originsOf(statement.handle()), sqlUtf8);
    if (!shape.isNarrow(error))
        return nullptr;
    if (!shape.hasStoredBlobs())
        return answerOf(statement, &shape, error);
    SqliteStatement lean =
        m_read->prepare(shape.wrapped(AnswerShape::withoutEnd(sqlite3_sql(statement.handle()))));
    if (!lean) {
        fail(*m_read, error);
        return nullptr;
    }
    return answerOf(lean, &shape, error);
}

MDArray* SqliteStore::answerOf(SqliteStatement& statement, AnswerShape* shape, StoreError* error)
{
    bool more = statement.step();
    // The types of computed columns are those of the first row.
    for (int i = 0; more && i < shape->columns.size(); ++i)
        if (shape->columns.at(i).isComputed)
            shape->columns[i].field.type = computedType(statement.handle(), i);
    AnswerRows answer(*shape, *m_codePage, m_self, m_options.memoryGuard);
    for (; more; more = statement.step())
        if (!answer.add(statement, error))
            return nullptr;
    if (statement.code() == SQLITE_DONE)
        return answer.take();
    fail(*m_read, error);
    return nullptr;
}

bool SqliteStore::blob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
                       QByteArray* bytes, StoreError* error)
{
    const QByteArray sql = blobSql(table, field, error);
    if (sql.isEmpty() || !ready(error))
        return false;
    SqliteStatement row = m_read->cached(sql);
    row.bind(1, key);
    if (row.step()) {
        *bytes = row.bytes(0);
        return true;
    }
    if (row.code() != SQLITE_DONE)
        return fail(*m_read, error);
    return StoreErrors::raise(error, StoreError::NoSuchRow, StoreErrors::noRow);
}
