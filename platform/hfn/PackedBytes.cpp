#include "PackedBytes.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <QtEndian>

namespace
{
constexpr std::uint8_t packedVersion = 1;
constexpr int headBytes = 4 + 1 + 4; // tag, version, length of the content
constexpr int sumBytes = 4;
constexpr int maxBytes = 1 << 30; // its base 64 form still fits in a byte array

constexpr std::array<std::uint32_t, 256> makeCrcTable()
{
    std::array<std::uint32_t, 256> table = {};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xedb88320U : value >> 1U;
        table[i] = value;
    }
    return table;
}

/// CRC-32: detects every change of a single byte.
std::uint32_t checksum(const char* data, qint64 size)
{
    static constexpr std::array<std::uint32_t, 256> table = makeCrcTable();
    std::uint32_t sum = 0xffffffffU;
    for (qint64 i = 0; i < size; ++i)
        sum = table[(sum ^ static_cast<unsigned char>(data[i])) & 0xffU] ^ (sum >> 8U);
    return ~sum;
}
} // namespace

PackedWriter::PackedWriter(const char (&tag)[5])
{
    append(tag, 4);
    byte(packedVersion);
    number(0); // the length, known at the end
}

void PackedWriter::byte(std::uint8_t value)
{
    m_bytes.append(static_cast<char>(value));
}

void PackedWriter::number(std::uint32_t value)
{
    char raw[sizeof value];
    qToLittleEndian(value, raw);
    append(raw, sizeof raw);
}

void PackedWriter::real(double value)
{
    m_failed = m_failed || !std::isfinite(value);
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    char raw[sizeof bits];
    qToLittleEndian(bits, raw);
    append(raw, sizeof raw);
}

void PackedWriter::text(const char* data, std::int32_t length)
{
    number(static_cast<std::uint32_t>(length));
    append(data, length);
}

QByteArray PackedWriter::finish()
{
    qToLittleEndian(static_cast<quint32>(m_bytes.size() - headBytes), m_bytes.data() + 5);
    number(checksum(m_bytes.constData(), m_bytes.size()));
    return m_failed ? QByteArray() : m_bytes;
}

void PackedWriter::append(const char* data, std::int32_t count)
{
    m_failed = m_failed || count > maxBytes - m_bytes.size();
    if (!m_failed)
        m_bytes.append(data, count);
}

PackedReader::PackedReader(const char (&tag)[5], const char* data, qint64 size)
{
    if (data == nullptr || size < headBytes + sumBytes)
        return;
    const qint64 content = size - headBytes - sumBytes;
    const char* sum = data + headBytes + content;
    m_ok = std::memcmp(data, tag, 4) == 0 && static_cast<std::uint8_t>(data[4]) == packedVersion &&
           qFromLittleEndian<quint32>(data + 5) == content &&
           qFromLittleEndian<quint32>(sum) == checksum(data, headBytes + content);
    if (m_ok) {
        m_next = data + headBytes;
        m_end = sum;
    }
}

std::uint8_t PackedReader::byte()
{
    const char* raw = take(1);
    return raw != nullptr ? static_cast<std::uint8_t>(*raw) : std::uint8_t(0);
}

std::uint32_t PackedReader::number()
{
    const char* raw = take(4);
    return raw != nullptr ? qFromLittleEndian<quint32>(raw) : 0;
}

double PackedReader::real()
{
    const char* raw = take(8);
    const quint64 bits = raw != nullptr ? qFromLittleEndian<quint64>(raw) : 0;
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    m_ok = m_ok && std::isfinite(value);
    return m_ok ? value : 0.0;
}

const char* PackedReader::text(std::int32_t* length)
{
    const std::uint32_t claimed = number();
    const char* raw = claimed <= std::numeric_limits<std::int32_t>::max() ? take(claimed) : take(-1);
    *length = raw != nullptr ? static_cast<std::int32_t>(claimed) : 0;
    return raw != nullptr ? raw : "";
}

const char* PackedReader::take(qint64 count)
{
    if (!m_ok || count < 0 || count > m_end - m_next) {
        m_ok = false;
        return nullptr;
    }
    const char* raw = m_next;
    m_next += count;
    return raw;
}
