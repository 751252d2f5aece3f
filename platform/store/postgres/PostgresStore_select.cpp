#include "AnswerShape.h"
#include "PostgresStore.h"
#include "StoreBlobSource.h"
#include "TableCatalog.h"

#include <limits>
#include <QtEndian>

namespace
{
constexpr int mostFields = 255;
constexpr int rowsAtOnce = 2000;

// Types of computed columns, from the server's catalog.
enum ServerType : Oid {
    Bool = 16,
    Bytea = 17,
    Int8 = 20,
    Int2 = 21,
    Int4 = 23,
    Text = 25,
    Float4 = 700,
    Float8 = 701,
    Numeric = 1700,
};

StoreError selectError(StoreError::Code code, const char* text)
{
    return {code, QString::fromUtf8(text), QString()};
}

bool isKnownText(Oid type)
{
    return type == Text || type == 18 || type == 19 || type == 705 || type == 1042 || type == 1043;
}

bool isKnown(Oid type)
{
    switch (type) {
    case Bool:
    case Bytea:
    case Int8:
    case Int2:
    case Int4:
    case Float4:
    case Float8:
    case Numeric:
        return true;
    default:
        return isKnownText(type);
    }
}

/// A decimal number of any length in the server's binary format.
double numericOf(const char* data)
{
    const int digits = qFromBigEndian<qint16>(data);
    const int weight = qFromBigEndian<qint16>(data + 2);
    const auto sign = qFromBigEndian<quint16>(data + 4);
    if (sign == 0xC000)
        return std::numeric_limits<double>::quiet_NaN();
    QByteArray text = sign == 0x4000 ? "-" : "";
    for (int i = 0; i < digits; ++i)
        text += QByteArray::number(qFromBigEndian<qint16>(data + 8 + 2 * i)).rightJustified(4, '0');
    return digits > 0 ? QByteArray(text + 'e' + QByteArray::number(4 * (weight - digits + 1))).toDouble() : 0;
}

bool isWhole(Oid type)
{
    return type == Int2 || type == Int4 || type == Int8;
}

bool fits(qint64 number)
{
    return number >= std::numeric_limits<std::int32_t>::min() &&
           number <= std::numeric_limits<std::int32_t>::max();
}

double realOf(const PgResult& rows, int row, int column)
{
    const Oid type = PQftype(rows.handle(), column);
    if (type == Numeric)
        return numericOf(PQgetvalue(rows.handle(), row, column));
    return isWhole(type) ? static_cast<double>(rows.integer(row, column)) : rows.real(row, column);
}

/// Determined by the server's type; for wide types, by the first value.
MDRType computedType(const PgResult& rows, int column)
{
    switch (PQftype(rows.handle(), column)) {
    case Bool:
        return mdr_TBool;
    case Int2:
    case Int4:
        return mdr_TInt32;
    case Int8:
        return rows.rows() == 0 || fits(rows.integer(0, column)) ? mdr_TInt32 : mdr_TDouble;
    case Float4:
    case Float8:
    case Numeric:
        return mdr_TDouble;
    case Bytea:
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
        *error = selectError(StoreError::BadRequest, "Запрос должен состоять из одной выборки.");
        return nullptr;
    }
    if (description.columns() > mostFields) {
        *error = selectError(StoreError::BadRequest, "В ответе на запрос слишком много полей.");
        return nullptr;
    }
    AnswerShape shape = shapeOf(description, sql);
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

    MDArray* answer = nullptr;
    qint64 held = 0;
    for (;;) {
        const PgResult rows =
            m_link.run("FETCH FORWARD " + QByteArray::number(rowsAtOnce) + " FROM answer", error);
        if (rows && !answer) {
            for (int i = 0; i < shape.columns.size(); ++i)
                if (shape.columns.at(i).isComputed)
                    shape.columns[i].field.type = computedType(rows, i);
            MDACreate(&answer, 0);
            const QVector<MDRFieldDescr> fields = shape.descriptors();
            const MDRKeyDescr orderOfEntry = {};
            MDAFldAdd(answer, fields.size(), fields.constData());
            MDAKeyAdd(answer, 1, &orderOfEntry);
        }
        if (!rows || !addRows(rows, shape, answer, &held, error)) {
            if (answer)
                MDADestroy(answer);
            return nullptr;
        }
        if (rows.rows() < rowsAtOnce)
            return answer;
    }
}

bool PostgresStore::addRows(const PgResult& rows, const AnswerShape& shape, MDArray* answer, qint64* held,
                            StoreError* error)
{
    const int count = shape.columns.size();
    QVector<const MDRField*> fields;
    for (int i = 0; i < count; ++i)
        fields.append(MDRFldByNum(answer, i));
    for (int row = 0; row < rows.rows(); ++row) {
        MDRData* record = MDARecNew(answer);
        *held += 64 + 8 * count;
        for (int i = 0; i < count; ++i) {
            if (rows.isNull(row, i))
                continue;
            const AnswerShape::Column& column = shape.columns.at(i);
            const char* data = PQgetvalue(rows.handle(), row, i);
            const int length = PQgetlength(rows.handle(), row, i);
            MDRVar value;
            value.type = column.field.type;
            int code = mdr_Ok;
            switch (column.field.type) {
            case mdr_TDouble:
                value.value.real = realOf(rows, row, i);
                code = MDRSetVal(fields.at(i), record, &value);
                break;
            case mdr_TChar:
            case mdr_TMemo:
                m_recoded.resize(0);
                m_codePage->fromUtf8(data, length, &m_recoded);
                value.value.text = {m_recoded.size(), m_recoded.constData()};
                *held += m_recoded.size() + 1;
                code = MDRSetVal(fields.at(i), record, &value);
                break;
            case mdr_TBlob:
                if (column.keyColumn >= 0) {
                    auto source = std::make_shared<StoreBlobSource>(m_self, column.table, column.field.name,
                                                                    rows.bytes(row, column.keyColumn));
                    code =
                        MDRSetBlobSource(fields.at(i), record,
                                         static_cast<std::int32_t>(rows.integer(row, i)), std::move(source));
                } else {
                    value.value.text = {length, data};
                    *held += length;
                    code = MDRSetVal(fields.at(i), record, &value);
                }
                break;
            default: {
                const qint64 number = rows.integer(row, i);
                if (!fits(number)) {
                    *error = selectError(StoreError::BadRequest, "Число в ответе на запрос слишком велико.");
                    MDARecDel(record);
                    return false;
                }
                value.value.number = static_cast<std::int32_t>(number);
                code = MDRSetVal(fields.at(i), record, &value);
            }
            }
            if (code != mdr_Ok || *held > m_options.memoryGuard) {
                *error = selectError(StoreError::TooLarge,
                                     "Ответ на запрос слишком велик: сузьте период или условия.");
                MDARecDel(record);
                return false;
            }
        }
        MDARecPost(record, nullptr);
    }
    return true;
}

bool PostgresStore::blob(const QByteArray& table, const QByteArray& field, const QByteArray& key,
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
    const PgResult rows = m_link.prepared("SELECT " + known->fields.at(index).name + " FROM " + known->name +
                                              " WHERE KeyLink = $1",
                                          PgValues().text(key), error);
    if (!rows)
        return false;
    if (rows.rows() > 0) {
        *bytes = rows.bytes(0, 0);
        return true;
    }
    *error = selectError(StoreError::NoSuchRow, "Такой строки в хранилище нет.");
    return false;
}
