#pragma once

#include <cstdint>
#include <QByteArray>

/// Writes a packed form: a tag, the version, the length, the content, and a checksum of everything before it. Numbers
/// are little-endian; a number that is not finite makes the form empty.
class PackedWriter
{
public:
    explicit PackedWriter(const char (&tag)[5]);

    void byte(std::uint8_t value);
    void number(std::uint32_t value);
    void real(double value);
    void text(const char* data, std::int32_t length);
    /// Completes the form; empty if it would exceed 1 GiB.
    QByteArray finish();

private:
    void append(const char* data, std::int32_t count);

    QByteArray m_bytes;
    bool m_failed = false;
};

/// Reads a packed form without trusting it: missing content and numbers that are not finite read as zero, and ok()
/// stays false from then on.
class PackedReader
{
public:
    /// ok() is false at once unless the bytes are an undamaged form with this tag in the current version.
    PackedReader(const char (&tag)[5], const char* data, qint64 size);

    bool ok() const { return m_ok; }
    /// Everything was read and nothing was missing.
    bool finished() const { return m_ok && m_next == m_end; }

    std::uint8_t byte();
    std::uint32_t number();
    double real();
    /// Returns a pointer into the packed form.
    const char* text(std::int32_t* length);

private:
    const char* take(qint64 count);

    const char* m_next = nullptr;
    const char* m_end = nullptr;
    bool m_ok = false;
};
