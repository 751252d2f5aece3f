#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Splits markup into tags and the text between them, in one pass over bytes or UTF-16 units and without copies. A
/// "<" is text if another "<" comes before the next ">", or if no name follows it, so prose with stray brackets loses
/// nothing.
template <class Char>
class HtmlScanner
{
public:
    using View = std::basic_string_view<Char>;
    enum Kind { Text, Open, Close, Comment };
    struct Token {
        Kind kind = Text;
        std::size_t begin = 0;
        std::size_t end = 0;
        View name; ///< of a tag, as written
    };
    struct Span {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool found = false;
    };

    explicit HtmlScanner(View html) : m_html(html) {}

    /// The next piece, never empty; false at the end.
    bool next(Token& token)
    {
        if (m_position >= m_html.size())
            return false;
        token = Token();
        token.begin = m_position;
        if (m_html[m_position] == Char('<') && readMarkup(token)) {
            m_position = token.end;
            return true;
        }
        token.kind = Text;
        token.end = std::min(m_html.find(Char('<'), m_position + 1), m_html.size());
        m_position = token.end;
        return true;
    }

    /// The position of an attribute's value in the scanned text, without its quotes.
    Span attribute(const Token& tag, std::string_view name) const
    {
        std::size_t at = tag.begin + 1 + tag.name.size();
        const std::size_t end = tag.end - 1;
        while (at < end) {
            while (at < end && (isBlank(m_html[at]) || m_html[at] == Char('/')))
                ++at;
            const std::size_t nameBegin = at;
            while (at < end && !isBlank(m_html[at]) && m_html[at] != Char('=') && m_html[at] != Char('/'))
                ++at;
            const View found = m_html.substr(nameBegin, at - nameBegin);
            while (at < end && isBlank(m_html[at]))
                ++at;
            Span value{at, at, true};
            if (at < end && m_html[at] == Char('=')) {
                ++at;
                while (at < end && isBlank(m_html[at]))
                    ++at;
                value = readValue(at, end);
            } else if (found.empty()) {
                ++at;
            }
            if (equals(found, name))
                return value;
        }
        return Span();
    }

    View view(const Span& span) const { return m_html.substr(span.begin, span.end - span.begin); }
    View view(const Token& token) const { return m_html.substr(token.begin, token.end - token.begin); }

    /// The parameter link if the tag opens one: the text after "parameter:" in the target of an anchor.
    Span parameterLink(const Token& tag) const
    {
        if (tag.kind != Open || !equals(tag.name, "a"))
            return Span();
        Span href = attribute(tag, "href");
        constexpr std::string_view scheme = "parameter:";
        if (!href.found || !equals(view(href).substr(0, scheme.size()), scheme))
            return Span();
        href.begin += scheme.size();
        return href;
    }

    /// ASCII case is ignored.
    static bool equals(View text, std::string_view name)
    {
        if (text.size() != name.size())
            return false;
        for (std::size_t i = 0; i < name.size(); ++i) {
            const Char c = text[i];
            const Char lower = c >= Char('A') && c <= Char('Z') ? Char(c - Char('A') + Char('a')) : c;
            if (lower != Char(name[i]))
                return false;
        }
        return true;
    }

    static bool isBlank(Char c)
    {
        return c == Char(' ') || c == Char('\t') || c == Char('\n') || c == Char('\r') || c == Char('\f');
    }

private:
    static bool isLetter(Char c)
    {
        return (c >= Char('a') && c <= Char('z')) || (c >= Char('A') && c <= Char('Z'));
    }
    static bool isDigit(Char c) { return c >= Char('0') && c <= Char('9'); }

    bool readMarkup(Token& token)
    {
        std::size_t at = token.begin + 1;
        if (at >= m_html.size())
            return false;
        if (m_html[at] == Char('!') || m_html[at] == Char('?'))
            return readComment(token, at);
        token.kind = Open;
        if (m_html[at] == Char('/')) {
            token.kind = Close;
            ++at;
        }
        const std::size_t nameBegin = at;
        if (at >= m_html.size() || !isLetter(m_html[at]))
            return false;
        while (at < m_html.size() && (isLetter(m_html[at]) || isDigit(m_html[at])))
            ++at;
        token.name = m_html.substr(nameBegin, at - nameBegin);
        return readToBracket(token, at);
    }

    bool readComment(Token& token, std::size_t at)
    {
        token.kind = Comment;
        const bool dashed = m_html.substr(at, 3).size() == 3 && m_html[at] == Char('!') &&
                            m_html[at + 1] == Char('-') && m_html[at + 2] == Char('-');
        if (!dashed)
            return readToBracket(token, at);
        if (m_commentsEnd) // one failed search is enough for the whole text
            return false;
        for (at += 3; at + 2 < m_html.size(); ++at) {
            if (m_html[at] == Char('-') && m_html[at + 1] == Char('-') && m_html[at + 2] == Char('>')) {
                token.end = at + 3;
                return true;
            }
        }
        m_commentsEnd = true;
        return false;
    }

    bool readToBracket(Token& token, std::size_t at)
    {
        // Search only up to the next tag: with many stray brackets, searching to the end of the text each time would
        // be quadratic.
        const View piece = m_html.substr(at, m_html.find(Char('<'), at) - at);
        const std::size_t bracket = piece.find(Char('>'));
        token.end = at + bracket + 1;
        return bracket != View::npos;
    }

    Span readValue(std::size_t& at, std::size_t end) const
    {
        Span value{at, at, true};
        if (at < end && (m_html[at] == Char('"') || m_html[at] == Char('\''))) {
            const Char quote = m_html[at++];
            value.begin = at;
            at = std::min(m_html.substr(0, end).find(quote, at), end);
            value.end = at;
            if (at < end)
                ++at;
            return value;
        }
        while (at < end && !isBlank(m_html[at]))
            ++at;
        value.end = at;
        return value;
    }

    View m_html;
    std::size_t m_position = 0;
    bool m_commentsEnd = false;
};
