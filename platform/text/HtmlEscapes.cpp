#include "HtmlEscapes.h"

#include "HtmlScanner.h"

namespace
{
int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

bool isSpecial(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte <= 0x20 || byte == 0x7f || std::string_view("%;=&<>[]\"'").find(c) != std::string_view::npos;
}

struct Entity {
    std::string_view name;
    char character;
};
constexpr Entity entities[] = {{"amp", '&'},  {"lt", '<'},    {"gt", '>'},
                               {"quot", '"'}, {"apos", '\''}, {"nbsp", ' '}};
constexpr std::size_t longestEntity = 10;

/// The character of "#45" or "#x2d", or -1 if it is not ASCII; the no-break space counts as a space.
int numericEntity(std::string_view digits)
{
    const bool hexadecimal = !digits.empty() && (digits[0] == 'x' || digits[0] == 'X');
    if (hexadecimal)
        digits.remove_prefix(1);
    int code = digits.empty() ? -1 : 0;
    for (const char c : digits) {
        const int digit = hexValue(c);
        if (digit < 0 || (!hexadecimal && digit > 9) || code > 0xffff)
            return -1;
        code = code * (hexadecimal ? 16 : 10) + digit;
    }
    if (code == 0xa0)
        return ' ';
    return code > 0 && code < 0x80 ? code : -1;
}

/// Resolves the entity at the start of \a html; false if there is none that can be resolved.
bool readEntity(std::string_view html, char& character, std::size_t& length)
{
    const std::size_t end = html.substr(0, longestEntity).find(';');
    if (end == std::string_view::npos)
        return false;
    const std::string_view name = html.substr(1, end - 1);
    length = end + 1;
    if (!name.empty() && name[0] == '#') {
        const int code = numericEntity(name.substr(1));
        character = static_cast<char>(code);
        return code > 0;
    }
    for (const Entity& entity : entities) {
        if (entity.name == name) {
            character = entity.character;
            return true;
        }
    }
    return false;
}
} // namespace

std::string HtmlEscapes::toPercent(std::string_view text, char alsoEscaped)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        // Two hyphens in a row could end a comment that was left open before.
        const bool hyphens = c == '-' && !escaped.empty() && escaped.back() == '-';
        if (isSpecial(c) || hyphens || (alsoEscaped != '\0' && c == alsoEscaped)) {
            const auto byte = static_cast<unsigned char>(c);
            escaped += {'%', digits[byte >> 4], digits[byte & 15]};
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string HtmlEscapes::fromPercent(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexValue(text[i + 1]) : -1;
        const int low = high >= 0 ? hexValue(text[i + 2]) : -1;
        if (low >= 0) {
            plain += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

std::string HtmlEscapes::toHtml(std::string_view text)
{
    std::string html;
    html.reserve(text.size());
    bool behindTag = true;
    bool behindBlank = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool afterTag = behindTag;
        const bool afterBlank = behindBlank;
        behindTag = false;
        behindBlank = false;
        switch (c) {
        case '\0':
            behindTag = afterTag; // texts in records end with it, so it cannot be part of one
            behindBlank = afterBlank;
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '&':
            html += "&amp;";
            break;
        case '"':
            html += "&quot;";
            break;
        case '[':
            html += "&#91;";
            break;
        case ']':
            html += "&#93;";
            break;
        case '\t':
            html += "&#9;";
            break;
        case '\f':
            html += "&#12;";
            break;
        case '\r':
            if (i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
            [[fallthrough]];
        case '\n':
            html += "<br/>";
            behindTag = true;
            behindBlank = true;
            break;
        case ' ':
            html += afterBlank ? "&nbsp;" : " ";
            behindBlank = true;
            break;
        case ',':
            html += afterTag ? "&#44;" : ",";
            break;
        case '.':
            html += afterTag ? "&#46;" : ".";
            break;
        default:
            html += c;
        }
    }
    return html;
}

std::string HtmlEscapes::fromEntities(std::string_view html)
{
    std::string text;
    text.reserve(html.size());
    for (std::size_t i = 0; i < html.size();) {
        char character = '\0';
        std::size_t length = 0;
        if (html[i] == '&' && readEntity(html.substr(i), character, length)) {
            text += character;
            i += length;
        } else {
            text += html[i++];
        }
    }
    return text;
}

void HtmlEscapes::appendCollapsed(std::string_view html, std::string& text, bool& blank)
{
    for (std::size_t i = 0; i < html.size();) {
        char character = '\0';
        std::size_t length = 0;
        if (HtmlScanner<char>::isBlank(html[i])) {
            if (!blank)
                text += ' ';
            blank = true;
            ++i;
            continue;
        }
        blank = false;
        if (html[i] == '&' && readEntity(html.substr(i), character, length)) {
            text += character;
            i += length;
        } else {
            text += html[i++];
        }
    }
}
