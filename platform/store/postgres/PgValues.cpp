#include "PgValues.h"

#include <cstring>
#include <QtEndian>

namespace
{
// Types of values, from the server's catalog.
constexpr Oid typeBytea = 17;
constexpr Oid typeInt8 = 20;
constexpr Oid typeInt4 = 23;
constexpr Oid typeText = 25;
constexpr Oid typeFloat8 = 701;

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

PgValues& PgValues::text(const QByteArray& utf8)
{
    m_values.append({typeText, utf8.isNull() ? QByteArray("") : utf8});
    return *this;
}

PgValues& PgValues::blob(const QByteArray& bytes)
{
    m_values.append({typeBytea, bytes.isNull() ? QByteArray("") : bytes});
    return *this;
}

PgValues& PgValues::real(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    m_values.append({typeFloat8, bigEndian(bits)});
    return *this;
}

PgValues& PgValues::number(qint32 number)
{
    m_values.append({typeInt4, bigEndian(number)});
    return *this;
}

PgValues& PgValues::number(qint64 number)
{
    m_values.append({typeInt8, bigEndian(number)});
    return *this;
}

PgValues& PgValues::null()
{
    m_values.append({0, QByteArray()});
    return *this;
}
