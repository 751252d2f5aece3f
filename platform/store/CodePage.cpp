#include "CodePage.h"

#include <cstdint>
#include <cstring>
#include <QTextCodec>

namespace
{
constexpr std::uint64_t highBits = Q_UINT64_C(0x8080808080808080);

/// Length of the run of ASCII bytes at \a text.
int asciiRun(const char* text, const char* end)
{
    const char* at = text;
    std::uint64_t word;
    while (end - at >= 8) {
        std::memcpy(&word, at, 8);
        if (word & highBits)
            break;
        at += 8;
    }
    while (at < end && static_cast<signed char>(*at) >= 0)
        ++at;
    return static_cast<int>(at - text);
}

bool isTail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}
unsigned bits(char byte, unsigned mask)
{
    return static_cast<unsigned char>(byte) & mask;
}
/// Whether the byte never forms a character with the byte after it.
bool standsAlone(QTextCodec* codec, char byte)
{
    for (const char next : {'A', '\xA1'}) {
        const char pair[] = {byte, next};
        if (codec->toUnicode(pair, 2).size() != 2)
            return false;
    }
    return true;
}
} // namespace

std::unique_ptr<CodePage> CodePage::create(const QByteArray& name)
{
    QTextCodec* codec = QTextCodec::codecForName(name);
    if (!codec)
        return nullptr;
    std::unique_ptr<CodePage> page(new CodePage);
    page->m_codec = codec;
    page->m_isUtf8 = codec->mibEnum() == 106;
    if (page->m_isUtf8)
        return page;

    page->m_fromBmp.fill('?');
    for (int byte = 0; byte < 256; ++byte) {
        const char one = static_cast<char>(byte);
        const QString decoded = codec->toUnicode(&one, 1);
        // A byte without a character becomes the control character of its number, so that nothing is lost.
        QChar character(static_cast<ushort>(byte));
        if (decoded.size() == 1 && decoded.at(0) != QChar(QChar::ReplacementCharacter))
            character = decoded.at(0);
        if (!standsAlone(codec, one) || (byte < 128 && decoded != QString(QChar(byte))))
            return nullptr;
        const QByteArray utf8 = QString(character).toUtf8();
        if (character.isSurrogate() || utf8.size() > 3 || page->m_fromBmp[character.unicode()] != '?')
            if (one != '?')
                return nullptr;
        page->m_fromBmp[character.unicode()] = one;
        Utf8& entry = page->m_toUtf8[static_cast<std::size_t>(byte)];
        entry.length = static_cast<char>(utf8.size());
        std::memcpy(entry.bytes, utf8.constData(), static_cast<std::size_t>(utf8.size()));
    }
    return page;
}

void CodePage::fromUtf8(const char* text, int length, QByteArray* to) const
{
    if (m_isUtf8) {
        to->append(text, length);
        return;
    }
    const int before = to->size();
    to->resize(before + length);
    char* out = to->data() + before;
    const char* const end = text + length;
    while (text < end) {
        const int run = asciiRun(text, end);
        std::memcpy(out, text, static_cast<std::size_t>(run));
        out += run;
        text += run;
        while (text < end && static_cast<signed char>(*text) < 0) {
            const unsigned first = static_cast<unsigned char>(*text);
            if (first >= 0xC2 && first < 0xE0 && end - text >= 2 && isTail(text[1])) {
                *out++ = m_fromBmp[bits(text[0], 0x1F) << 6 | bits(text[1], 0x3F)];
                text += 2;
            } else if ((first & 0xF0u) == 0xE0u && end - text >= 3 && isTail(text[1]) && isTail(text[2])) {
                *out++ =
                    m_fromBmp[bits(text[0], 0x0F) << 12 | bits(text[1], 0x3F) << 6 | bits(text[2], 0x3F)];
                text += 3;
            } else if ((first & 0xF8u) == 0xF0u && end - text >= 4 && isTail(text[1]) && isTail(text[2]) &&
                       isTail(text[3])) {
                *out++ = '?';
                text += 4;
            } else {
                *out++ = '?';
                ++text;
            }
        }
    }
    to->resize(static_cast<int>(out - to->constData()));
}

void CodePage::toUtf8(const char* text, int length, QByteArray* to) const
{
    if (m_isUtf8) {
        to->append(text, length);
        return;
    }
    const int before = to->size();
    to->resize(before + 3 * length);
    char* out = to->data() + before;
    const char* const end = text + length;
    while (text < end) {
        const int run = asciiRun(text, end);
        std::memcpy(out, text, static_cast<std::size_t>(run));
        out += run;
        text += run;
        for (; text < end && static_cast<signed char>(*text) < 0; ++text) {
            const Utf8& entry = m_toUtf8[static_cast<unsigned char>(*text)];
            std::memcpy(out, entry.bytes, 3);
            out += entry.length;
        }
    }
    to->resize(static_cast<int>(out - to->constData()));
}
