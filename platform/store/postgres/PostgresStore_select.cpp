#include "AnswerRows.h"
#include "PostgresStore.h"
#include "StoreErrors.h"
#include "TableCatalog.h"

#include <optional>

namespace
{
constexpr int rowsAtOnce = 2000;

bool isKnown(Oid type)
{
    switch (type) {
    case PgType::Bool:
    case PgType::Bytea:
    case PgType::Int8:
    case PgType::Int2:
    case PgType::Int4:
    case PgType::Float4:
    case PgType::Float8:
    case PgType::Numeric:
    case PgType::Text:
    case PgType::Char:
    case PgType::Name:
    case PgType::Unknown:
    case PgType::BpChar:
    case PgType::VarChar:
        return true;
    default:
        return false;
    }
}

/// Determined by the server's type; for wide types, by the first value.
MDRType computedType(const PgResult& rows, int column)
{
    switch (PQftype(rows.handle(), column)) {
    case PgType::Bool:
        return mdr_TBool;
    case PgType::Int2:
    case PgType::Int4:
        return mdr_TInt32;
    case PgType::Int8:
        return rows.rows() == 0 || AnswerRows::fits(rows.integer(0, column)) ? mdr_TInt32 : mdr_TDouble;
    case PgType::Float4:
    case PgType::Float8:
    case PgType::Numeric:
        return mdr_TDouble;
    case PgType::Bytea:
        return mdr_TBlob;
    default:
        return mdr_TMemo;
    }
}
} // namespace

AnswerShape PostgresStore::shapeOf(const PgResult& description, const QByteArray& sql) const
{
    QVector<AnswerShape::Origin> origins;
    for (int i = 0; i < description.columns(); ++i) {
        AnswerShape::Origin origin;
        origin.name = PQfname(description.handle(), i);
        const auto column =
            m_columns.value({PQftable(description.handle(), i), PQftablecol(description.handle(), i)});
        origin.table = TableCatalog::table(column.first);
        origin.field = origin.table ? origin.table->fieldIndex(column.second) : -1;
        if (origin.field < 0)
            origin.table = nullptr;
        origins.append(origin);
    }
    return AnswerShape::of(origins, sql);
}

bool PostgresStore::declareCursor(const QByteArray& sql, StoreError* error)
{
    // The server accepts only a single select for a cursor.
    return bool(m_link.run("DECLARE answer NO SCROLL CURSOR FOR " + sql, error));
}

MDArray* PostgresStore::select(const QByteArray& sqlUtf8, StoreError* error)
{
    if (!ready(error))
        return nullptr;
    if (m_inRead)
        endRead();
    if (!m_link.prepared("BEGIN ISOLATION LEVEL READ COMMITTED READ ONLY", {}, error))
        return nullptr;
    MDArray* answer = readCursor(sqlUtf8, error);
    StoreError ignored;
    // Reverts all settings that the select has made in its session.
    if (m_link.isOpen())
        m_link.prepared("ROLLBACK", {}, &ignored);
    return answer;
}

MDArray* PostgresStore::readCursor(const QByteArray& sql, StoreError* error)
{
    if (!declareCursor(sql, error))
        return nullptr;
    const PgResult description = m_link.describeCursor("answer", error);
    if (!description)
        return nullptr;
    if (description.columns() == 0) {
        StoreErrors::raise(error, StoreError::BadRequest, StoreErrors::oneSelect);
        return nullptr;
    }
    AnswerShape shape = shapeOf(description, sql);
    if (!shape.isNarrow(error))
        return nullptr;
    QVector<int> strangers;
    for (int i = 0; i < shape.columns.size(); ++i)
        if (!isKnown(PQftype(description.handle(), i)))
            strangers.append(i);
    if (shape.hasStoredBlobs() || !strangers.isEmpty()) {
        QByteArray wrapped =
            shape.wrapped(AnswerShape::withoutEnd(sql), [&](int column, const QByteArray& name) {
                return strangers.contains(column) ? name + "::text" : name;
            });
        if (!m_link.prepared("CLOSE answer", {}, error) || !declareCursor(wrapped, error))
            return nullptr;
    }

    std::optional<AnswerRows> answer;
    for (;;) {
        const PgResult rows =
            m_link.run("FETCH FORWARD " + QByteArray::number(rowsAtOnce) + " FROM answer", error);
        if (!rows)
            return nullptr;
        if (!answer) {
            for (int i = 0; i < shape.columns.size(); ++i)
                if (shape.columns.at(i).isComputed)
                    shape.columns[i].field.type = computedType(rows, i);
            answer.emplace(shape, *m_codePage, m_self, m_options.memoryGuard);
        }
        for (int i = 0; i < rows.rows(); ++i)
            if (!answer->add(PgRow(rows, i), error))
                return nullptr;
        if (rows.rows() < rowsAtOnce)
            return answer->take();
    }
}

bool PostgresStore::blob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
                         QByteArray* bytes, StoreError* error)
{
    const QByteArray sql = blobSql(table, field, error);
    if (sql.isEmpty() || !ready(error))
        return false;
    const PgResult rows = m_link.prepared(sql, PgValues().text(key), error);
    if (!rows)
        return false;
    if (rows.rows() > 0) {
        *bytes = rows.bytes(0, 0);
        return true;
    }
    return StoreErrors::raise(error, StoreError::NoSuchRow, StoreErrors::noRow);
}
