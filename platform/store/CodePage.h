#pragma once

#include <array>
#include <memory>
#include <QByteArray>
#include <QString>

class QTextCodec;

/// Converts texts between UTF-8, used in the database, and the code page of the records, in one pass by
/// tables. Supports every single-byte code page, and UTF-8, which is passed unchanged.
class CodePage
{
public:
    /// Null if there is no such codec or it is neither UTF-8 nor a single-byte code page over ASCII.
    static std::unique_ptr<CodePage> create(const QByteArray& name);

    QTextCodec* codec() const { return m_codec; }

    /// Converts UTF-8 to the code page and appends to \a to. A character that the page does not have, and
    /// each stray byte, becomes "?".
    void fromUtf8(const char* text, int length, QByteArray* to) const;
    /// Converts the code page to UTF-8 and appends to \a to. Every byte has its character, so fromUtf8
    /// restores it.
    void toUtf8(const char* text, int length, QByteArray* to) const;

private:
    CodePage() = default;

    QTextCodec* m_codec = nullptr;
    bool m_isUtf8 = false;
    struct Utf8 {
        char length;
        char bytes[3];
    };
    std::array<Utf8, 256> m_toUtf8 = {};    ///< of each byte
    std::array<char, 65536> m_fromBmp = {}; ///< of each character; "?" for missing ones
};
