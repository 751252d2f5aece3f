#include "AnswerShape.h"
#include "MDRValues.h"
#include "SqliteStore.h"
#include "StoreBlobSource.h"
#include "TableCatalog.h"

#include <limits>

namespace
{
constexpr int mostFields = 255;
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
    case SQLITE_INTEGER: {
        const sqlite3_int64 number = sqlite3_column_int64(statement, column);
        const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                          number <= std::numeric_limits<std::int32_t>::max();
        return fits ? mdr_TInt32 : mdr_TDouble;
    }
    case SQLITE_FLOAT:
        return mdr_TDouble;
    case SQLITE_BLOB:
        return mdr_TBlob;
    default:
        return mdr_TMemo;
    }
}

StoreError selectError(StoreError::Code code, const char* text)
{
    return {code, QString::fromUtf8(text), QString()};
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
        if (shape.columns.size() <= mostFields && shape.hasStoredBlobs()) {
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
        *error = selectError(StoreError::BadRequest, "Запрос должен состоять из одной выборки.");
        return nullptr;
    }
    AnswerShape shape = AnswerShape::of(originsOf(statement.handle()), sqlUtf8);
    if (shape.columns.size() > mostFields) {
        *error = selectError(StoreError::BadRequest, "В ответе на запрос слишком много полей.");
        return nullptr;
    }
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
    MDArray* answer = nullptr;
    MDACreate(&answer, 0);
    const QVector<MDRFieldDescr> fields = shape->descriptors();
    const MDRKeyDescr orderOfEntry = {};
    MDAFldAdd(answer, fields.size(), fields.constData());
    MDAKeyAdd(answer, 1, &orderOfEntry);

    qint64 held = 0;
    for (; more; more = statement.step()) {
        if (!addRow(statement, *shape, answer, &held, error)) {
            MDADestroy(answer);
            return nullptr;
        }
    }
    if (statement.code() != SQLITE_DONE) {
        fail(*m_read, error);
        MDADestroy(answer);
        return nullptr;
    }
    return answer;
}

bool SqliteStore::addRow(SqliteStatement& statement, const AnswerShape& shape, MDArray* answer, qint64* held,
                         StoreError* error)
{
    sqlite3_stmt* row = statement.handle();
    MDRData* record = MDARecNew(answer);
    const int count = shape.columns.size();
    *held += 64 + 8 * count;
    for (int i = 0; i < count; ++i) {
        if (sqlite3_column_type(row, i) == SQLITE_NULL)
            continue;
        const AnswerShape::Column& column = shape.columns.at(i);
        const MDRField* field = MDRFldByNum(answer, i);
        MDRVar value;
        value.type = column.field.type;
        int code = mdr_Ok;
        switch (column.field.type) {
        case mdr_TDouble:
            value.value.real = sqlite3_column_double(row, i);
            code = MDRSetVal(field, record, &value);
            break;
        case mdr_TChar:
        case mdr_TMemo: {
            const char* text = reinterpret_cast<const char*>(sqlite3_column_text(row, i));
            m_recoded.resize(0);
            m_codePage->fromUtf8(text, sqlite3_column_bytes(row, i), &m_recoded);
            value.value.text = {m_recoded.size(), m_recoded.constData()};
            *held += m_recoded.size() + 1;
            code = MDRSetVal(field, record, &value);
            break;
        }
        case mdr_TBlob:
            if (column.keyColumn >= 0) {
                const int length = sqlite3_column_int(row, i);
                auto source = std::make_shared<StoreBlobSource>(m_self, column.table, column.field.name,
                                                                statement.bytes(column.keyColumn));
                code = MDRSetBlobSource(field, record, length, std::move(source));
            } else {
                value.value.text.data = static_cast<const char*>(sqlite3_column_blob(row, i));
                value.value.text.length = sqlite3_column_bytes(row, i);
                *held += value.value.text.length;
                code = MDRSetVal(field, record, &value);
            }
            break;
        default: {
            const sqlite3_int64 number = sqlite3_column_int64(row, i);
            if (number < std::numeric_limits<std::int32_t>::min() ||
                number > std::numeric_limits<std::int32_t>::max()) {
                *error = selectError(StoreError::BadRequest, "Число в ответе на запрос слишком велико.");
                return false;
            }
            value.value.number = static_cast<std::int32_t>(number);
            code = MDRSetVal(field, record, &value);
        }
        }
        if (code != mdr_Ok || *held > m_options.memoryGuard) {
            *error = selectError(StoreError::TooLarge,
                                 "Ответ на запрос слишком велик: сузьте период или условия.");
            return false;
        }
    }
    MDARecPost(record, nullptr);
    return true;
}

bool SqliteStore::blob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
                       QByteArray* bytes, StoreError* error)
{
    const CatalogTable* known = TableCatalog::table(table);
    const int index = known ? known->fieldIndex(field) : -1;
    if (index < 0 || known->fields.at(index).type != mdr_TBlob) {
        *error = selectError(StoreError::BadRequest, "Такого двоичного поля в хранилище нет.");
        return false;
    }
    if (!ready(error))
        return false;
    SqliteStatement row = m_read->cached("SELECT " + known->fields.at(index).name + " FROM " + known->name +
                                         " WHERE KeyLink = ?");
    row.bind(1, key);
    if (row.step()) {
        *bytes = row.bytes(0);
        return true;
    }
    if (row.code() != SQLITE_DONE)
        return fail(*m_read, error);
    *error = selectError(StoreError::NoSuchRow, "Такой строки в хранилище нет.");
    return false;
}
