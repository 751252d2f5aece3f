#include "PgValues.h"

#include <cstring>
#include <limits>
#include <QtEndian>

namespace
{
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

template <class T>
QByteArray bigEndian(T number)
{
    const T turned = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&turned), sizeof turned);
}
} // namespace

QByteArray PgResult::bytes(int row, int column) const
{
    if (isNull(row, column))
        return QByteArray();
    const int length = PQgetlength(handle(), row, column);
    return length > 0 ? QByteArray(PQgetvalue(handle(), row, column), length) : QByteArray("");
}

qint64 PgResult::integer(int row, int column) const
{
    const char* data = PQgetvalue(handle(), row, column);
    switch (PQgetlength(handle(), row, column)) {
    case 1:
        return *data;
    case 2:
        return qFromBigEndian<qint16>(data);
    case 4:
        return qFromBigEndian<qint32>(data);
    case 8:
        return qFromBigEndian<qint64>(data);
    default:
        return 0;
    }
}

double PgResult::real(int row, int column) const
{
    const char* data = PQgetvalue(handle(), row, column);
    if (PQgetlength(handle(), row, column) == 4) {
        const auto bits = qFromBigEndian<quint32>(data);
        float number = 0;
        std::memcpy(&number, &bits, sizeof number);
        return static_cast<double>(number);
    }
    if (PQgetlength(handle(), row, column) != 8)
        return 0;
    const auto bits = qFromBigEndian<quint64>(data);
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

double PgRow::realOf(Oid type, int column) const
{
    switch (type) {
    case PgType::Numeric:
        return numericOf(data(column));
    case PgType::Int2:
    case PgType::Int4:
    case PgType::Int8:
        return static_cast<double>(integer(column));
    default:
        return m_rows.real(m_row, column);
    }
}

PgValues& PgValues::text(const QByteArray& utf8)
{
    m_values.append({PgType::Text, utf8.isNull() ? QByteArray("") : utf8});
    return *this;
}

PgValues& PgValues::blob(const QByteArray& bytes)
{
    m_values.append({PgType::Bytea, bytes.isNull() ? QByteArray("") : bytes});
    return *this;
}

PgValues& PgValues::real(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    m_values.append({PgType::Float8, bigEndian(bits)});
    return *this;
}

PgValues& PgValues::number(qint32 number)
{
    m_values.append({PgType::Int4, bigEndian(number)});
    return *this;
}

PgValues& PgValues::number(qint64 number)
{
    m_values.append({PgType::Int8, bigEndian(number)});
    return *this;
}

PgValues& PgValues::null()
{
    m_values.append({0, QByteArray()});
    return *this;
}
