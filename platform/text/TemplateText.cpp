#include "TemplateText.h"

#include "HtmlScanner.h"

#include <algorithm>
#include <QTextCursor>
#include <QTextDocument>
#include <string_view>

namespace
{
using Scanner = HtmlScanner<char16_t>;
using TemplateText::Look;
using TemplateText::Looks;

struct Entity {
    std::string_view name;
    char16_t character;
};
constexpr Entity entities[] = {
    {"amp", u'&'},       {"lt", u'<'},     {"gt", u'>'},    {"quot", u'"'},   {"apos", u'\''},
    {"nbsp", u'\u00a0'}, {"laquo", u'«'},  {"raquo", u'»'}, {"ndash", u'–'},  {"mdash", u'—'},
    {"hellip", u'…'},    {"middot", u'·'}, {"deg", u'°'},   {"plusmn", u'±'}, {"times", u'×'},
    {"minus", u'−'},     {"numero", u'№'}, {"sect", u'§'},  {"bull", u'•'},   {"shy", u'\u00ad'},
    {"lsquo", u'‘'},     {"rsquo", u'’'},  {"ldquo", u'“'}, {"rdquo", u'”'},  {"bdquo", u'„'},
};
constexpr std::size_t longestEntity = 10;
constexpr std::size_t deepestNesting = 64;

Looks styleOf(Scanner::View style)
{
    const QString text = QString::fromUtf16(style.data(), static_cast<int>(style.size()));
    Looks looks;
    looks.setFlag(TemplateText::StruckOut, text.contains(QLatin1String("line-through"), Qt::CaseInsensitive));
    looks.setFlag(TemplateText::Underlined, text.contains(QLatin1String("underline"), Qt::CaseInsensitive));
    looks.setFlag(TemplateText::Italic, text.contains(QLatin1String("italic"), Qt::CaseInsensitive));
    const int weight = text.indexOf(QLatin1String("font-weight:"), 0, Qt::CaseInsensitive);
    if (weight >= 0) {
        const QString value = text.mid(weight + 12).section(QLatin1Char(';'), 0, 0).trimmed();
        looks.setFlag(TemplateText::Bold, value.startsWith(QLatin1String("bold")) || value.toInt() >= 600);
    }
    return looks;
}

struct Inline {
    std::string_view name;
    int looks;
};
constexpr Inline inlines[] = {
    {"b", TemplateText::Bold},      {"strong", TemplateText::Bold},      {"i", TemplateText::Italic},
    {"em", TemplateText::Italic},   {"u", TemplateText::Underlined},     {"ins", TemplateText::Underlined},
    {"s", TemplateText::StruckOut}, {"strike", TemplateText::StruckOut}, {"del", TemplateText::StruckOut},
    {"sup", TemplateText::Raised},  {"sub", TemplateText::Lowered},      {"span", 0},
};
constexpr std::string_view blocks[] = {"p",  "div", "li", "ul", "ol", "tr", "table", "body",
                                       "h1", "h2",  "h3", "h4", "h5", "h6", "hr",    "blockquote"};
constexpr std::string_view unseen[] = {"head", "style", "script", "title"};

/// Walks the markup and passes visible text to the sink: text(pointer, length, looks, parameter) and
/// parameter(index) at the start of each parameter.
template <class Sink>
class Walker
{
public:
    Walker(Scanner::View html, Sink& sink) : m_scanner(html), m_sink(sink) {}

    void walk()
    {
        Scanner::Token token;
        while (m_scanner.next(token)) {
            if (!m_unseen.empty()) {
                if (token.kind == Scanner::Close && Scanner::equals(token.name, m_unseen))
                    m_unseen = std::string_view();
                if (m_scanner.parameterLink(token).found)
                    m_sink.parameter(m_count++, Looks()); // counted, because the numbers must match the
                                                          // parser's
            } else if (token.kind == Scanner::Text) {
                text(m_scanner.view(token));
            } else if (token.kind == Scanner::Open) {
                open(token);
            } else if (token.kind == Scanner::Close) {
                close(token);
            }
        }
    }

private:
    struct Level {
        std::string_view name;
        Looks looks; ///< looks outside the parameter
    };

    void open(const Scanner::Token& token)
    {
        if (Scanner::equals(token.name, "br")) {
            lineBreak();
            return;
        }
        if (Scanner::equals(token.name, "a")) {
            closeAnchor();
            if (m_scanner.parameterLink(token).found) {
                showDue(); // the preceding text does not belong to the parameter
                m_parameter = m_count++;
                m_anchorDepth = m_depth;
                m_sink.parameter(m_parameter, m_looks);
            }
            return;
        }
        for (const std::string_view name : unseen) {
            if (Scanner::equals(token.name, name))
                m_unseen = name;
        }
        for (const Inline& element : inlines) {
            if (!Scanner::equals(token.name, element.name) || m_depth == deepestNesting)
                continue;
            m_levels[m_depth++] = {element.name, m_looks};
            m_looks |= Looks(element.looks);
            const Scanner::Span style = m_scanner.attribute(token, "style");
            if (style.found)
                m_looks |= styleOf(m_scanner.view(style));
        }
        block(token);
    }

    void close(const Scanner::Token& token)
    {
        if (Scanner::equals(token.name, "a")) {
            closeAnchor();
            return;
        }
        const std::size_t floor = m_parameter >= 0 ? m_anchorDepth : 0;
        for (std::size_t level = m_depth; level > floor; --level) {
            if (!Scanner::equals(token.name, m_levels[level - 1].name))
                continue;
            m_depth = level - 1;
            m_looks = m_levels[m_depth].looks;
            break;
        }
        block(token);
    }

    void closeAnchor()
    {
        if (m_parameter < 0)
            return;
        if (m_depth > m_anchorDepth) {
            m_depth = m_anchorDepth;
            m_looks = m_levels[m_depth].looks;
        }
        m_parameter = -1;
    }

    void block(const Scanner::Token& token)
    {
        const auto isName = [&token](std::string_view name) { return Scanner::equals(token.name, name); };
        if (std::any_of(std::begin(blocks), std::end(blocks), isName))
            m_newBlock = m_anything;
        if (token.kind == Scanner::Close && (isName("td") || isName("th")))
            m_blank = m_anything;
    }

    void lineBreak()
    {
        startBlock();
        ++m_breaks;
        m_blank = false;
        m_lineStart = true;
        m_anything = true;
    }

    void startBlock()
    {
        if (m_newBlock) {
            m_newBlock = false;
            m_blank = false;
            m_lineStart = true;
            ++m_breaks;
        }
    }

    void text(Scanner::View html)
    {
        std::size_t position = 0;
        while (position < html.size()) {
            if (Scanner::isBlank(html[position])) {
                if (!m_blank && !m_lineStart && !m_newBlock) {
                    m_blank = true;
                    m_blankLooks = m_looks;
                    m_blankParameter = m_parameter;
                }
                ++position;
                continue;
            }
            std::size_t end = position;
            while (end < html.size() && html[end] != u'&' && !Scanner::isBlank(html[end]))
                ++end;
            if (end > position)
                emitText(html.data() + position, end - position);
            else
                end = position + entity(html.substr(position));
            position = end;
        }
    }

    /// Shows the entity at the start of \a html, or a literal ampersand; returns the number of characters
    /// used.
    std::size_t entity(Scanner::View html)
    {
        const std::size_t end = html.substr(0, longestEntity).find(u';');
        const Scanner::View name = end == Scanner::View::npos ? Scanner::View() : html.substr(1, end - 1);
        for (const Entity& known : entities) {
            if (Scanner::equals(name, known.name)) {
                emitText(&known.character, 1);
                return end + 1;
            }
        }
        if (name.size() > 1 && name[0] == u'#') {
            const bool hexadecimal = name[1] == u'x' || name[1] == u'X';
            const Scanner::View digits = name.substr(hexadecimal ? 2 : 1);
            bool valid = false;
            const uint code = QString::fromUtf16(digits.data(), static_cast<int>(digits.size()))
                                  .toUInt(&valid, hexadecimal ? 16 : 10);
            if (valid && code > 0 && code <= 0x10ffff && !(code >= 0xd800 && code < 0xe000)) {
                const QString text = QString::fromUcs4(&code, 1);
                emitText(reinterpret_cast<const char16_t*>(text.utf16()),
                         static_cast<std::size_t>(text.size()));
                return end + 1;
            }
        }
        emitText(html.data(), 1);
        return 1;
    }

    void emitText(const char16_t* text, std::size_t length)
    {
        showDue();
        m_lineStart = false;
        m_anything = true;
        m_sink.text(text, length, m_looks, m_parameter);
    }

    /// Writes the pending line breaks and the pending space.
    void showDue()
    {
        startBlock();
        for (; m_breaks > 0; --m_breaks)
            m_sink.text(u"\n", 1, m_looks, m_parameter);
        if (m_blank) {
            m_sink.text(u" ", 1, m_blankLooks, m_blankParameter);
            m_lineStart = true;
        }
        m_blank = false;
    }

    Scanner m_scanner;
    Sink& m_sink;
    Level m_levels[deepestNesting];
    std::size_t m_depth = 0;
    std::size_t m_anchorDepth = 0;
    Looks m_looks;
    int m_parameter = -1;
    int m_count = 0;
    std::string_view m_unseen;
    bool m_anything = false; ///< there is visible text: a new block begins a line
    bool m_newBlock = false; ///< the next text begins a new line
    bool m_lineStart = true; ///< spaces are invisible here
    bool m_blank = false;    ///< a space is pending until more text follows in the line
    int m_breaks = 0;        ///< line breaks that are pending until more text follows
    Looks m_blankLooks;
    int m_blankParameter = -1;
};

struct PlainSink {
    void parameter(int, Looks) {}
    void text(const char16_t* data, std::size_t length, Looks, int)
    {
        plain.append(reinterpret_cast<const QChar*>(data), static_cast<int>(length));
    }

    QString plain;
};

struct RunSink {
    void parameter(int index, Looks looks) { runs.append({QString(), looks, index}); }
    void text(const char16_t* data, std::size_t length, Looks looks, int parameter)
    {
        const bool fits = !runs.isEmpty() && runs.last().parameter == parameter &&
                          (runs.last().looks == looks || runs.last().text.isEmpty());
        if (!fits)
            runs.append({QString(), looks, parameter});
        TemplateText::Run& run = runs.last();
        run.looks = looks;
        run.text.append(reinterpret_cast<const QChar*>(data), static_cast<int>(length));
    }

    QVector<TemplateText::Run> runs;
};

template <class Sink>
void walk(const QString& html, Sink& sink)
{
    const auto* units = reinterpret_cast<const char16_t*>(html.utf16());
    Walker<Sink>(Scanner::View(units, static_cast<std::size_t>(html.size())), sink).walk();
}
} // namespace

QVector<TemplateText::Run> TemplateText::runs(const QString& html)
{
    RunSink sink;
    walk(html, sink);
    return sink.runs;
}

QTextCharFormat TemplateText::charFormat(Looks looks)
{
    QTextCharFormat format;
    if (looks & Bold)
        format.setFontWeight(QFont::Bold);
    if (looks & Italic)
        format.setFontItalic(true);
    if (looks & Underlined)
        format.setFontUnderline(true);
    if (looks & StruckOut)
        format.setFontStrikeOut(true);
    if (looks & (Raised | Lowered))
        format.setVerticalAlignment(looks & Raised ? QTextCharFormat::AlignSuperScript
                                                   : QTextCharFormat::AlignSubScript);
    return format;
}

Looks TemplateText::looksOf(const QTextCharFormat& format)
{
    Looks looks;
    looks.setFlag(Bold, format.fontWeight() >= QFont::DemiBold);
    looks.setFlag(Italic, format.fontItalic());
    looks.setFlag(Underlined, format.fontUnderline());
    looks.setFlag(StruckOut, format.fontStrikeOut());
    looks.setFlag(Raised, format.verticalAlignment() == QTextCharFormat::AlignSuperScript);
    looks.setFlag(Lowered, format.verticalAlignment() == QTextCharFormat::AlignSubScript);
    return looks;
}

QString TemplateText::plain(const QString& html)
{
    PlainSink sink;
    sink.plain.reserve(html.size());
    walk(html, sink);
    sink.plain.replace(QChar::Nbsp, QLatin1Char(' '));
    return sink.plain;
}

void TemplateText::fill(QTextDocument* document, const QString& html, const QTextCharFormat& parameter)
{
    document->setUndoRedoEnabled(false);
    document->clear();
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    const QVector<Run> passages = runs(html);
    for (const Run& run : passages) {
        QTextCharFormat format = charFormat(run.looks);
        if (run.parameter >= 0)
            format.merge(parameter);
        cursor.insertText(run.text, format);
    }
    cursor.endEditBlock();
}
