#pragma once

#include <array>
#include <memory>
#include <QByteArray>
#include <QString>

class QTextCodec;

/// Recodes texts between UTF-8, as the database holds them, and the code page of the records, in one pass by tables.
/// Serves every single-byte code page and UTF-8 itself, which passes as it is.
class CodePage
{
public:
    /// Null when there is no such codec or it is neither UTF-8 nor a single-byte code page over ASCII.
    static std::unique_ptr<CodePage> create(const QByteArray& name);

    QTextCodec* codec() const { return m_codec; }

    /// UTF-8 to the code page, at the end of \a to. A character that the page lacks, and each stray byte, gives "?".
    void fromUtf8(const char* text, int length, QByteArray* to) const;
    /// The code page to UTF-8, at the end of \a to. Every byte has its character, so it comes back by fromUtf8.
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
    std::array<char, 65536> m_fromBmp = {}; ///< of each character, "?" for what is not there
};
