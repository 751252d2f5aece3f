#pragma once

#include <libpq-fe.h>
#include <memory>
#include <QByteArray>
#include <QVector>

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
