#pragma once

#include <libpq-fe.h>
#include <memory>
#include <QByteArray>
#include <QVector>

/// Types of values, from the server's catalog.
namespace PgType
{
enum : Oid {
    Bool = 16,
    Bytea = 17,
    Char = 18,
    Name = 19,
    Int8 = 20,
    Int2 = 21,
    Int4 = 23,
    Text = 25,
    Float4 = 700,
    Float8 = 701,
    Unknown = 705,
    BpChar = 1042,
    VarChar = 1043,
    Numeric = 1700,
};
}

/// The answer of a statement, in the server's binary format; freed with the object. False if the statement
/// failed.
class PgResult
{
public:
    PgResult() = default;
    explicit PgResult(PGresult* result) : m_result(result, PQclear) {}

    explicit operator bool() const { return m_result != nullptr; }
    PGresult* handle() const { return m_result.get(); }
    int rows() const { return PQntuples(handle()); }
    int columns() const { return PQnfields(handle()); }
    /// Number of rows that an insert, update or delete has changed.
    qint64 touched() const { return QByteArray(PQcmdTuples(handle())).toLongLong(); }

    bool isNull(int row, int column) const { return PQgetisnull(handle(), row, column) != 0; }
    /// A copy: a null array for NULL, an empty one for an empty value.
    QByteArray bytes(int row, int column) const;
    /// An integer of any width.
    qint64 integer(int row, int column) const;
    double real(int row, int column) const;

private:
    std::shared_ptr<PGresult> m_result;
};

/// One row of an answer.
class PgRow
{
public:
    PgRow(const PgResult& rows, int row) : m_rows(rows), m_row(row) {}

    bool isNull(int column) const { return m_rows.isNull(m_row, column); }
    QByteArray bytes(int column) const { return m_rows.bytes(m_row, column); }
    /// The same bytes in place.
    const char* data(int column) const { return PQgetvalue(m_rows.handle(), m_row, column); }
    int size(int column) const { return PQgetlength(m_rows.handle(), m_row, column); }
    qint64 integer(int column) const { return m_rows.integer(m_row, column); }
    /// Of any numeric type.
    double real(int column) const
    {
        const Oid type = PQftype(m_rows.handle(), column);
        return type == PgType::Float8 ? m_rows.real(m_row, column) : realOf(type, column);
    }

private:
    double realOf(Oid type, int column) const;

    const PgResult& m_rows;
    int m_row;
};

/// Values bound to a statement. They are sent separately, never as part of its text.
class PgValues
{
public:
    PgValues& text(const QByteArray& utf8);
    PgValues& blob(const QByteArray& bytes);
    PgValues& real(double number);
    PgValues& number(qint32 number);
    PgValues& number(qint64 number);
    PgValues& null();
    void clear() { m_values.clear(); }

private:
    friend class PgConnection;
    struct Value {
        Oid type;
        QByteArray bytes; ///< null for NULL
    };
    QVector<Value> m_values;
};
