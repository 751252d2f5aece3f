#include "TemplateEditorHtml.h"

#include "HtmlParser.h"
#include "HtmlScanner.h"
#include "TemplateEditorChip.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace
{
using Scanner = HtmlScanner<char16_t>;
using TemplateText::Looks;

Scanner::View viewOf(const QString& html)
{
    return Scanner::View(reinterpret_cast<const char16_t*>(html.utf16()),
                         static_cast<std::size_t>(html.size()));
}

const QString lineEnd = QStringLiteral("<br/>");

/// One character of a line in the form to be written.
struct Piece {
    QChar character;
    Looks looks;
    QTextFormat chip; ///< invalid if it is a character of the text
};

bool isBlank(const Piece& piece)
{
    return !piece.chip.isValid() && piece.character == QLatin1Char(' ');
}

bool showsNothing(const Piece& piece)
{
    return piece.chip.isValid() &&
           TemplateEditorChip::fromFormat(piece.chip.toCharFormat()).shownText.isEmpty();
}

/// Looks whose elements enclose runs of passages; strike-outs enclose each passage separately, because that
/// of a parameter must be inside its element.
struct Element {
    TemplateText::Look look;
    QLatin1String open;
    QLatin1String close;
};
const Element elements[] = {
    {TemplateText::Bold, QLatin1String("<b>"), QLatin1String("</b>")},
    {TemplateText::Italic, QLatin1String("<i>"), QLatin1String("</i>")},
    {TemplateText::Underlined, QLatin1String("<u>"), QLatin1String("</u>")},
    {TemplateText::Raised, QLatin1String("<sup>"), QLatin1String("</sup>")},
    {TemplateText::Lowered, QLatin1String("<sub>"), QLatin1String("</sub>")},
};

class Writer
{
public:
    /// \a keptBlank is the placeholder of spaces that a viewer would drop.
    explicit Writer(QChar keptBlank) : m_keptBlank(keptBlank) {}

    void line(QVector<Piece> pieces)
    {
        keepBlanks(pieces);
        for (const Piece& piece : qAsConst(pieces)) {
            if (piece.chip.isValid()) {
                const TemplateEditorChip chip = TemplateEditorChip::fromFormat(piece.chip.toCharFormat());
                beginPassage(chip.looks);
                m_html += chip.html();
            } else {
                if (piece.looks != m_passageLooks || outerOf(piece.looks) != m_outerLooks)
                    beginPassage(piece.looks);
                m_passageLooks = piece.looks;
                m_passage += piece.character;
            }
        }
        flush();
    }
    void lineBreak()
    {
        flush();
        m_html += lineEnd;
    }
    QString finished()
    {
        beginPassage(Looks());
        return m_html;
    }

private:
    static Looks outerOf(Looks looks) { return looks & ~Looks(TemplateText::StruckOut); }
    /// A viewer drops repeated spaces and those at the ends of a line.
    void keepBlanks(QVector<Piece>& pieces) const
    {
        int end = pieces.size();
        while (end > 0 && showsNothing(pieces.at(end - 1)))
            --end;
        bool dropped = true;
        for (int i = 0; i < pieces.size(); ++i) {
            if (showsNothing(pieces.at(i)))
                continue;
            const bool blank = isBlank(pieces.at(i));
            if (blank && (dropped || i + 1 == end))
                pieces[i].character = m_keptBlank;
            dropped = blank;
        }
    }
    void beginPassage(Looks looks)
    {
        flush();
        const Looks outer = outerOf(looks);
        if (outer == m_outerLooks)
            return;
        for (auto it = std::rbegin(elements); it != std::rend(elements); ++it)
            m_html += m_outerLooks & it->look ? it->close : QLatin1String();
        for (const Element& element : elements)
            m_html += outer & element.look ? element.open : QLatin1String();
        m_outerLooks = outer;
    }
    void flush()
    {
        if (m_passage.isEmpty())
            return;
        const QString words = QString::fromStdString(HtmlParser::escaped(m_passage.toStdString()));
        m_html += m_passageLooks & TemplateText::StruckOut
                      ? QStringLiteral("<span style=\" text-decoration: line-through;\">") + words +
                            QStringLiteral("</span>")
                      : words;
        m_passage.clear();
    }

    QChar m_keptBlank;
    QString m_html;
    QString m_passage;
    Looks m_passageLooks;
    Looks m_outerLooks;
};

QVector<Piece> piecesOf(const QTextBlock& block, int from, int to)
{
    QVector<Piece> pieces;
    pieces.reserve(block.length());
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        const QTextFormat chip = TemplateEditorChip::isChip(format) ? QTextFormat(format) : QTextFormat();
        const Looks looks = TemplateText::looksOf(format);
        const QString text = fragment.text();
        for (int i = 0; i < text.size(); ++i) {
            const int position = fragment.position() + i;
            const bool isObject = text.at(i) == QChar::ObjectReplacementCharacter;
            if (position >= from && position < to && (!isObject || chip.isValid()))
                pieces.append({text.at(i), looks, isObject ? chip : QTextFormat()});
        }
    }
    return pieces;
}

QString written(const QTextDocument* document, int from, int to, QChar keptBlank, bool keepLineEnds)
{
    Writer writer(keptBlank);
    int due = 0; // line breaks to be written if more text follows
    for (QTextBlock block = document->findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        QVector<Piece> line;
        const auto write = [&] {
            for (; !line.isEmpty() && due > 0; --due)
                writer.lineBreak();
            writer.line(line);
            line.clear();
        };
        for (const Piece& piece : piecesOf(block, from, to)) {
            if (piece.character == QChar::LineSeparator) {
                write();
                ++due;
            } else {
                line.append(piece);
            }
        }
        write();
        ++due;
    }
    return writer.finished() + (keepLineEnds ? lineEnd.repeated(due - 1) : QString());
}
} // namespace

void TemplateEditorHtml::insert(QTextCursor& cursor, const QString& html)
{
    const QString body = withoutProperties(html);
    const std::vector<TemplateEditorChip> chips = TemplateEditorChip::read(body);
    std::vector<bool> inserted(chips.size(), false);
    cursor.beginEditBlock();
    for (const TemplateText::Run& run : TemplateText::runs(body)) {
        if (run.parameter < 0) {
            QString words = run.text;
            words.remove(QChar::ObjectReplacementCharacter);
            words.remove(QChar::Null); // it shows nothing, and the spaces around it would become adjacent
            cursor.insertText(words, TemplateText::charFormat(run.looks));
        } else if (!inserted[static_cast<std::size_t>(run.parameter)]) {
            const auto index = static_cast<std::size_t>(run.parameter);
            cursor.insertText(QString(QChar::ObjectReplacementCharacter), chips[index].format());
            inserted[index] = true;
        }
    }
    cursor.endEditBlock();
}

void TemplateEditorHtml::insertFragment(QTextCursor& cursor, const QString& html)
{
    QString words = html;
    int lineEnds = 0;
    for (; words.endsWith(lineEnd); ++lineEnds)
        words.chop(lineEnd.size());
    cursor.beginEditBlock();
    insert(cursor, words);
    for (; lineEnds > 0; --lineEnds)
        cursor.insertBlock();
    cursor.endEditBlock();
}

void TemplateEditorHtml::insertPlain(QTextCursor& cursor, const QString& text)
{
    QString plain;
    plain.reserve(text.size());
    for (const QChar character : text) {
        const ushort code = character.unicode();
        if (code == '\n' || code == QChar::LineSeparator || code == QChar::ParagraphSeparator)
            plain += QLatin1Char('\n');
        else if (code == '\t')
            plain += QLatin1Char(' ');
        else if (code >= 0x20 && code != 0x7f && code != QChar::ObjectReplacementCharacter &&
                 !(code >= 0xFDD0 && code <= 0xFDEF))
            plain += character;
    }
    cursor.insertText(plain, TemplateEditorChip::withoutChip(cursor.charFormat()));
}

QString TemplateEditorHtml::text(const QTextDocument* document)
{
    return written(document, 0, document->characterCount(), QChar::Nbsp, false);
}

QString TemplateEditorHtml::fragment(const QTextDocument* document, int from, int to)
{
    constexpr QChar kept(0xE000); // not used in any text; an entity would be escaped
    return written(document, from, to, kept, true).replace(kept, QLatin1String("&#32;"));
}

QString TemplateEditorHtml::properties(const QString& html)
{
    QString found;
    Scanner scanner(viewOf(html));
    Scanner::Token token;
    while (scanner.next(token)) {
        if (token.kind == Scanner::Open && Scanner::equals(token.name, "meta") &&
            scanner.view(scanner.attribute(token, "name")) == u"template")
            found += html.mid(static_cast<int>(token.begin), static_cast<int>(token.end - token.begin));
    }
    return found;
}

QString TemplateEditorHtml::withoutProperties(const QString& html)
{
    return QString::fromStdString(HtmlParser(html.toStdString()).readyHtml(false));
}

QStringList TemplateEditorHtml::uncarried(const QString& html)
{
    struct Kind {
        std::string_view name;
        const char* words;
    };
    static constexpr Kind kinds[] = {
        {"table", QT_TRANSLATE_NOOP("TemplateEditor", "таблицы")},
        {"ul", QT_TRANSLATE_NOOP("TemplateEditor", "списки")},
        {"ol", QT_TRANSLATE_NOOP("TemplateEditor", "списки")},
        {"img", QT_TRANSLATE_NOOP("TemplateEditor", "рисунки")},
        {"h1", QT_TRANSLATE_NOOP("TemplateEditor", "заголовки")},
        {"h2", QT_TRANSLATE_NOOP("TemplateEditor", "заголовки")},
        {"h3", QT_TRANSLATE_NOOP("TemplateEditor", "заголовки")},
        {"hr", QT_TRANSLATE_NOOP("TemplateEditor", "линии")},
    };
    QStringList found;
    const auto add = [&found](const char* words) {
        const QString name = QCoreApplication::translate("TemplateEditor", words);
        if (!found.contains(name))
            found.append(name);
    };
    Scanner scanner(viewOf(html));
    Scanner::Token token;
    while (scanner.next(token)) {
        if (token.kind != Scanner::Open)
            continue;
        for (const Kind& kind : kinds) {
            if (Scanner::equals(token.name, kind.name))
                add(kind.words);
        }
        if (Scanner::equals(token.name, "a") && scanner.attribute(token, "href").found &&
            !scanner.parameterLink(token).found)
            add(QT_TRANSLATE_NOOP("TemplateEditor", "ссылки"));
    }
    return found;
}
