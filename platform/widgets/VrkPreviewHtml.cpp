#include "VrkPreviewHtml.h"

#include "QrCode.h"

#include <QBuffer>
#include <QHash>
#include <QTextCharFormat>
#include <QUrl>

namespace
{
using Cell = VrkPreviewTable::Cell;
using Row = VrkPreviewTable::Row;

constexpr char style[] = R"css(
@page { size: A4 landscape; margin: 12mm }
* { box-sizing: border-box }
body { margin: 1.5em; font: 15px/1.35 "DejaVu Sans", "Liberation Sans", Arial, sans-serif; color: #111; background: #fff }
h1 { margin: 0 0 .2em; font-size: 1.35em }
header p, footer p { margin: .15em 0 }
nav { margin-bottom: .8em }
nav a { margin-right: 1.2em }
a { color: #0b4f9e }
table { width: 100%; margin: 1em 0; border-collapse: collapse }
th, td { border: 1px solid #777; padding: .25em .4em; text-align: left; vertical-align: top }
td { white-space: pre-wrap; overflow-wrap: anywhere }
td.short { overflow-wrap: normal }
td.centred, th { text-align: center }
thead { display: table-header-group }
thead th { background: #ddd }
tr { break-inside: avoid }
tr.day { break-after: avoid }
tr.day th { background: #f2f2f2 }
.faint { color: #6a6a6a }
ul.notes { margin: .4em 0 0; padding: .2em 0 0 1.2em; border-top: 1px dotted #777 }
.icon { display: inline-block; width: 1.25em; height: 1.25em; vertical-align: -.25em; background: no-repeat center / contain;
  -webkit-print-color-adjust: exact; print-color-adjust: exact }
svg.code { display: block; width: 14mm; height: 14mm; margin-top: .5em }
footer { margin-top: 1em; border-top: 1px solid #777; padding-top: .5em }
@media print {
  body { margin: 0 1px 0 0; font-size: 9pt }
  nav { display: none }
  a { color: inherit; text-decoration: none }
  thead th, tr.day th { -webkit-print-color-adjust: exact; print-color-adjust: exact }
}
)css";
constexpr int shortText = 24; ///< times and names: their column is not narrower than a word

/// A character that stands for none, or that would turn the direction of the text around it.
bool isRefused(QChar sign)
{
    const ushort code = sign.unicode();
    return (code < 0x20 && code != '\t' && code != '\n') || (code >= 0x7f && code <= 0x9f) ||
           code >= 0xfffe || (code >= 0xfdd0 && code <= 0xfdef) || (code >= 0x202a && code <= 0x202e) ||
           (code >= 0x2066 && code <= 0x2069);
}

QString lines(const QString& text)
{
    return VrkPreviewHtml::escaped(text).replace(QChar::LineSeparator, QStringLiteral("<br>"));
}

QString passage(const QString& text, const QTextCharFormat& format)
{
    QString html = lines(text);
    const auto wrap = [&html](bool isWanted, const char* tag) {
        if (isWanted)
            html = QStringLiteral("<%1>%2</%1>").arg(QLatin1String(tag), html);
    };
    wrap(format.fontWeight() >= QFont::Bold, "b");
    wrap(format.fontItalic(), "i");
    wrap(format.fontUnderline(), "u");
    wrap(format.fontStrikeOut(), "s");
    wrap(format.verticalAlignment() == QTextCharFormat::AlignSuperScript, "sup");
    wrap(format.verticalAlignment() == QTextCharFormat::AlignSubScript, "sub");
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        html = QStringLiteral("<span class=\"faint\">%1</span>").arg(html);
    return html;
}

/// Each picture is in the page once.
class Pictures
{
public:
    QString shown(const Cell& cell)
    {
        const QString name = VrkPreviewHtml::escaped(cell.meaning);
        return QStringLiteral("<span class=\"icon p%2\" role=\"img\" aria-label=\"%1\" title=\"%1\"></span>")
            .arg(name)
            .arg(number(cell.icon));
    }
    QString style() const
    {
        QString css;
        for (int i = 0; i < m_pictures.size(); ++i)
            css += QStringLiteral(".p%1 { background-image: url(data:image/png;base64,%2) }\n")
                       .arg(i)
                       .arg(QString::fromLatin1(m_pictures[i].toBase64()));
        return css;
    }

private:
    int number(const QPixmap& icon)
    {
        const auto known = m_numbers.constFind(icon.cacheKey());
        if (known != m_numbers.constEnd())
            return *known;
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        icon.save(&buffer, "PNG");
        int place = m_pictures.indexOf(png);
        if (place < 0) {
            place = m_pictures.size();
            m_pictures.append(png);
        }
        m_numbers.insert(icon.cacheKey(), place);
        return place;
    }

    QVector<QByteArray> m_pictures;
    QHash<qint64, int> m_numbers;
};

QString linkHtml(const QString& address, const QString& html)
{
    return QStringLiteral("<a href=\"%1\">%2</a>")
        .arg(QString::fromLatin1(QUrl::toPercentEncoding(address, "/._-")), html);
}

QString cellHtml(const Cell& cell, Pictures* pictures)
{
    QString html;
    int done = 0;
    for (const QTextLayout::FormatRange& range : cell.formats) {
        html += lines(cell.text.mid(done, range.start - done));
        html += passage(cell.text.mid(range.start, range.length), range.format);
        done = range.start + range.length;
    }
    html += lines(cell.text.mid(done));
    if (!cell.link.isEmpty())
        html = linkHtml(cell.link, html);
    if (!cell.icon.isNull())
        html.prepend(pictures->shown(cell) + (html.isEmpty() ? QString() : QStringLiteral(" ")));
    return html;
}

QString notesHtml(const QVector<VrkPreviewTable::Note>& notes)
{
    QString html;
    for (const VrkPreviewTable::Note& note : notes) {
        const QString text = lines(note.text);
        html += QStringLiteral("<li><span class=\"faint\">%1:</span> %2</li>")
                    .arg(lines(note.label), note.link.isEmpty() ? text : linkHtml(note.link, text));
    }
    return html.isEmpty() ? html : QStringLiteral("<ul class=\"notes\">%1</ul>").arg(html);
}

QString rowHtml(const Row& row, int columns, Pictures* pictures)
{
    if (row.isDayLine)
        return QStringLiteral("<tr class=\"day\"><th colspan=\"%1\" scope=\"rowgroup\">%2</th></tr>\n")
            .arg(columns)
            .arg(lines(row.cells.value(0).text));
    QString html = QStringLiteral("<tr>");
    for (int i = 0; i < row.cells.size(); ++i) {
        const Cell& cell = row.cells[i];
        const bool isShort = cell.text.size() < shortText;
        html +=
            QStringLiteral("<td%1>%2%3</td>")
                .arg(cell.isCentred ? QStringLiteral(" class=\"centred\"")
                     : isShort      ? QStringLiteral(" class=\"short\"")
                                    : QString(),
                     cellHtml(cell, pictures), i + 1 == row.cells.size() ? notesHtml(row.notes) : QString());
    }
    return html + QStringLiteral("</tr>\n");
}

QString tableHtml(const VrkPreviewTable& table, Pictures* pictures)
{
    QString html = QStringLiteral("<table>\n<thead><tr>");
    for (const Cell& cell : table.header.cells) {
        Cell plain = cell;
        plain.formats.clear(); // the style makes headings bold
        html += QStringLiteral("<th scope=\"col\">%1</th>").arg(cellHtml(plain, pictures));
    }
    html += QStringLiteral("</tr></thead>\n<tbody>\n");
    for (const Row& row : table.rows)
        html += rowHtml(row, table.header.cells.size(), pictures);
    return html + QStringLiteral("</tbody>\n</table>\n");
}

QString codeHtml(const QrCode& code)
{
    if (code.side() == 0)
        return QString();
    QString path;
    for (int row = 0; row < code.side(); ++row)
        for (int column = 0; column < code.side(); ++column)
            if (code.isDark(column, row))
                path += QStringLiteral("M%1 %2h1v1h-1z").arg(column).arg(row);
    return QStringLiteral("<svg class=\"code\" viewBox=\"0 0 %1 %1\" role=\"img\" aria-label=\"QR\">"
                          "<path d=\"%2\"/></svg>\n")
        .arg(code.side())
        .arg(path);
}
} // namespace

QString VrkPreviewHtml::escaped(const QString& text)
{
    QString html = text.toHtmlEscaped();
    html.replace(QLatin1Char('\''), QStringLiteral("&#39;"));
    for (int i = 0; i < html.size(); ++i) {
        const QChar sign = html.at(i);
        const bool isPair = sign.isHighSurrogate() && i + 1 < html.size() && html.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (isRefused(sign) || sign.isSurrogate())
            html[i] = QChar::ReplacementCharacter;
    }
    return html;
}

QByteArray VrkPreviewHtml::page(const VrkPreviewTable& table, const QVector<Link>& links)
{
    const QStringList about = table.footer.split(QLatin1Char('\n'));
    Pictures pictures;
    const QString body = tableHtml(table, &pictures);
    // Nothing may be loaded or run, whatever a text contains.
    QString html =
        QStringLiteral("<!DOCTYPE html>\n<html lang=\"ru\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                       "img-src data:; style-src 'unsafe-inline'\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>");
    html += escaped(about.constFirst()) + QStringLiteral("</title>\n<style>") + QLatin1String(style) +
            pictures.style() + QStringLiteral("</style>\n</head>\n<body>\n");
    if (!links.isEmpty()) {
        html += QStringLiteral("<nav>");
        for (const Link& link : links)
            html += linkHtml(link.address, escaped(link.text));
        html += QStringLiteral("</nav>\n");
    }
    html += QStringLiteral("<header>\n<h1>%1</h1>\n").arg(escaped(about.constFirst()));
    for (const QString& line : about.mid(1))
        html += QStringLiteral("<p>%1</p>\n").arg(escaped(line));
    html += QStringLiteral("</header>\n") + body + QStringLiteral("<footer>\n");
    if (!table.imprint.isEmpty())
        html += QStringLiteral("<p class=\"imprint\">%1</p>\n").arg(escaped(table.imprint));
    html += codeHtml(QrCode(table.code)) + QStringLiteral("</footer>\n</body>\n</html>\n");
    return html.toUtf8();
}
