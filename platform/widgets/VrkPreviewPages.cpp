#include "VrkPreviewPages.h"

#include <cmath>
#include <memory>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>

namespace
{
constexpr qreal point = VrkPreviewPages::unitsPerInch / 72;
constexpr qreal padding = 2 * point;
constexpr qreal rule = point / 3;
constexpr qreal fontSize = 9 * point;
constexpr qreal iconSide = 10 * point;
constexpr qreal codeSide = 40 * point;      ///< 14 mm, half a millimetre for a module
constexpr qreal shareOfLast = 0.4;          ///< names are wrapped into two lines to provide it
constexpr qreal smallestShareOfLast = 0.28; ///< words are broken to provide it
constexpr int linesWorthStarting = 4;       ///< for a row that is higher than a page
constexpr int shortText = 40;

using Cell = VrkPreviewTable::Cell;
using Row = VrkPreviewTable::Row;

/// A cell's text, laid out for a width; null for an empty text.
std::unique_ptr<QTextLayout> laidOut(const Cell& cell, const QFont& font, qreal width)
{
    if (cell.text.isEmpty())
        return nullptr;
    auto layout = std::make_unique<QTextLayout>(cell.text, font);
    QTextOption option(cell.isCentred ? Qt::AlignHCenter : Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->setFormats(cell.formats);
    layout->beginLayout();
    qreal top = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, top));
        top += line.height();
    }
    layout->endLayout();
    return layout;
}

qreal lineTop(const QTextLayout& layout, int line)
{
    return line < layout.lineCount() ? layout.lineAt(line).y()
                                     : layout.lineAt(line - 1).y() + layout.lineAt(line - 1).height();
}

qreal heightOf(const QTextLayout* layout)
{
    return layout ? lineTop(*layout, layout->lineCount()) : 0;
}

/// The icon is before the text, or centred without text.
qreal iconRoom(const Cell& cell)
{
    return cell.icon.isNull() || cell.text.isEmpty() ? 0 : iconSide + padding;
}

QString numberText(int page, int count)
{
    return QCoreApplication::translate("VrkPreviewPages", "Страница %1 из %2").arg(page).arg(count);
}
} // namespace

/// Distributes the rows to pages from top to bottom.
class VrkPreviewPages::Breaker
{
public:
    explicit Breaker(VrkPreviewPages* pages) : m_pages(pages), m_line(QFontMetricsF(pages->m_font).height())
    {
        m_pages->m_headerHeight =
            m_pages->m_table.header.cells.isEmpty() ? 0 : height(m_pages->m_table.header);
        newPage();
    }

    void add(int number)
    {
        const Row& row = rows()[number];
        const qreal needed = measure(number);
        const qreal fresh = m_pages->bodyHeight() - m_pages->m_headerHeight;
        qreal company = 0; // height of what must be on the same page below it
        if (row.isDayLine && number + 1 < rows().size())
            company = qMin(measure(number + 1), linesWorthStarting * m_line);
        if (needed > fresh) {
            split(number);
            return;
        }
        if (m_top + needed + company > m_pages->bodyHeight() && !isFresh())
            newPage();
        place({number, needed, {}, {}});
    }

    void addFooter()
    {
        if (m_pages->m_table.footer.isEmpty())
            return;
        const qreal gap = isFresh() && rows().isEmpty() ? padding : fontSize;
        if (m_top + gap + footerHeight() > m_pages->bodyHeight() && !isFresh())
            newPage();
        m_pages->m_pages.last().footerTop = m_top + gap;
    }

private:
    const QVector<Row>& rows() const { return m_pages->m_table.rows; }
    bool isFresh() const { return m_pages->m_pages.last().pieces.isEmpty(); }
    qreal footerHeight() const { return m_line * (m_pages->m_table.footer.count(QLatin1Char('\n')) + 1); }
    void newPage()
    {
        m_pages->m_pages.append(Page());
        m_top = m_pages->m_headerHeight;
    }
    void place(const Piece& piece)
    {
        m_pages->m_pages.last().pieces.append(piece);
        m_top += piece.height;
    }
    qreal cellWidth(const Row& row, int cell) const
    {
        return m_pages->cellRect(row, cell, 0, 0).width() - 2 * padding - iconRoom(row.cells[cell]);
    }

    qreal height(const Row& row)
    {
        qreal highest = m_line;
        for (int i = 0; i < row.cells.size(); ++i) {
            const Cell& cell = row.cells[i];
            highest = qMax(highest, cell.icon.isNull() ? 0 : iconSide);
            if (!cell.text.isEmpty())
                highest = qMax(highest, textHeight(row, i));
        }
        return highest + 2 * padding;
    }
    /// Times and names occur many times.
    qreal textHeight(const Row& row, int number)
    {
        const Cell& cell = row.cells[number];
        const auto measured = [&] {
            return heightOf(laidOut(cell, m_pages->m_font, cellWidth(row, number)).get());
        };
        if (row.isDayLine || cell.text.size() > shortText || !cell.icon.isNull() || cell.formats.size() > 1)
            return measured();
        qreal& known = m_heights[qMakePair(number, cell.text)];
        if (known == 0)
            known = measured();
        return known;
    }
    /// The row after a day line is measured twice.
    qreal measure(int number)
    {
        if (m_measured != number) {
            m_measured = number;
            m_measuredHeight = height(rows()[number]);
        }
        return m_measuredHeight;
    }

    void split(int number)
    {
        const Row& row = rows()[number];
        std::vector<std::unique_ptr<QTextLayout>> texts;
        texts.reserve(static_cast<std::size_t>(row.cells.size()));
        for (int i = 0; i < row.cells.size(); ++i)
            texts.push_back(laidOut(row.cells[i], m_pages->m_font, cellWidth(row, i)));
        QVector<int> from(row.cells.size(), 0);
        if (m_top + linesWorthStarting * m_line + 2 * padding > m_pages->bodyHeight() && !isFresh())
            newPage();
        for (;;) {
            const qreal room = m_pages->bodyHeight() - m_top - 2 * padding;
            Piece piece{number, m_line, from, from};
            bool isRest = true;
            bool isAny = false;
            for (int i = 0; i < row.cells.size(); ++i) {
                if (!texts[i])
                    continue;
                const QTextLayout& text = *texts[i];
                int& before = piece.before[i];
                while (before < text.lineCount() &&
                       lineTop(text, before + 1) - lineTop(text, from[i]) <= room)
                    ++before;
                if (before == from[i] && before < text.lineCount() && isFresh())
                    ++before; // a line higher than a page
                isAny |= before > from[i];
                isRest &= before == text.lineCount();
                piece.height = qMax(piece.height, lineTop(text, before) - lineTop(text, from[i]));
            }
            piece.height += 2 * padding;
            if (isAny || isRest)
                place(piece);
            if (isRest)
                return;
            from = piece.before;
            newPage();
        }
    }

    VrkPreviewPages* m_pages;
    qreal m_line;
    qreal m_top = 0;
    int m_measured = -1;
    qreal m_measuredHeight = 0;
    QHash<QPair<int, QString>, qreal> m_heights; ///< of short texts, by column
};

void VrkPreviewPages::setTable(const VrkPreviewTable& table)
{
    m_table = table;
    m_code = QrCode(table.code);
    m_pages.clear();
    m_font = table.font;
    m_font.setPixelSize(qRound(fontSize));
    m_font.setHintingPreference(QFont::PreferNoHinting); // widths are proportional to the size, on every
                                                         // device
}

bool VrkPreviewPages::layOut(const QSizeF& page, const Progress& progress)
{
    if (m_size == page && !m_pages.isEmpty())
        return true;
    m_pages.clear();
    m_size = page;
    fitColumns();
    Breaker breaker(this);
    for (int row = 0; row < m_table.rows.size(); ++row) {
        if (row % 16 == 0 && progress && !progress(row, m_table.rows.size())) {
            m_pages.clear();
            return false;
        }
        breaker.add(row);
    }
    breaker.addFooter();
    return true;
}

/// Columns grow until names fit in one line, up to the maximum, and then shrink so that the last one has
/// enough space: first down to their longest word, then in proportion.
void VrkPreviewPages::fitColumns()
{
    const qreal pixel = unitsPerInch / m_table.pixelsPerInch;
    const qreal forLines = m_size.width() * (1 - shareOfLast);
    const qreal forWords = m_size.width() * (1 - smallestShareOfLast);
    QVector<Needs> widths;
    Needs sum;
    for (int i = 0; i < m_table.widths.size() - 1; ++i) {
        Needs width = needsOf(i);
        width.line = qMax(width.line, m_table.widths[i] * pixel);
        if (m_table.maxColumnWidth > 0)
            width.line = qMin(width.line, m_table.maxColumnWidth * pixel);
        width.word = qMin(width.word, width.line);
        sum.word += width.word;
        sum.line += width.line;
        widths.append(width);
    }
    const qreal slack = sum.line - sum.word;
    const qreal share = slack > 0 ? qBound<qreal>(0, (forLines - sum.word) / slack, 1) : 1;
    const qreal scale = sum.word > forWords ? forWords / sum.word : 1;
    m_edges = {0};
    for (const Needs& width : qAsConst(widths))
        m_edges.append(m_edges.last() + (width.word + (width.line - width.word) * share) * scale);
    m_edges.append(m_size.width());
}

VrkPreviewPages::Needs VrkPreviewPages::needsOf(int column) const
{
    static const QRegularExpression gaps(QStringLiteral("[ \\t\u2028]+"));
    Needs needs;
    QSet<QString> seen;
    const auto measure = [&](const Cell& cell, const QFontMetricsF& metrics) {
        if (!cell.icon.isNull())
            needs.word = qMax(needs.word, iconSide + 2 * padding);
        if (seen.contains(cell.text))
            return;
        seen.insert(cell.text);
        const auto widest = [&](qreal* width, const QStringList& parts) {
            for (const QString& part : parts)
                *width = qMax(*width, metrics.horizontalAdvance(part) + iconRoom(cell) + 2 * padding + point);
        };
        widest(&needs.word, cell.text.split(gaps));
        if (cell.text.size() <= shortText)
            widest(&needs.line, cell.text.split(QChar::LineSeparator));
    };
    const QFontMetricsF metrics(m_font);
    for (const Row& row : m_table.rows)
        if (!row.isDayLine)
            measure(row.cells[column], metrics);
    QFont bold = m_font;
    bold.setBold(true);
    seen.clear();
    measure(m_table.header.cells[column], QFontMetricsF(bold));
    needs.line = qMax(needs.line, needs.word);
    return needs;
}

qreal VrkPreviewPages::bodyHeight() const
{
    const qreal line = QFontMetricsF(m_font).height();
    return m_size.height() - line - qMax(line, m_code.side() == 0 ? 0 : codeSide);
}

QRectF VrkPreviewPages::cellRect(const Row& row, int cell, qreal top, qreal height) const
{
    const qreal left = row.isDayLine ? 0 : m_edges[cell];
    const qreal right = row.isDayLine ? m_size.width() : m_edges[cell + 1];
    return QRectF(left, top, right - left, height);
}

void VrkPreviewPages::paint(QPainter* painter, int page) const
{
    painter->save();
    painter->setFont(m_font);
    painter->setPen(QPen(Qt::black, rule)); // paper is white in dark themes too
    const Page& shown = m_pages[page];
    qreal top = 0;
    if (!m_table.header.cells.isEmpty()) {
        painter->fillRect(QRectF(0, 0, m_size.width(), m_headerHeight), m_table.headerBackground);
        paintRow(painter, m_table.header, {-1, m_headerHeight, {}, {}}, 0);
        top = m_headerHeight;
    }
    for (const Piece& piece : shown.pieces) {
        paintRow(painter, m_table.rows[piece.row], piece, top);
        top += piece.height;
    }
    if (shown.footerTop >= 0)
        painter->drawText(QRectF(0, shown.footerTop, m_size.width(), m_size.height()),
                          Qt::AlignLeft | Qt::AlignTop, m_table.footer);
    paintNumber(painter, page);
    painter->restore();
}

void VrkPreviewPages::paintRow(QPainter* painter, const Row& row, const Piece& piece, qreal top) const
{
    for (int i = 0; i < row.cells.size(); ++i) {
        const Cell& cell = row.cells[i];
        const QRectF frame = cellRect(row, i, top, piece.height);
        painter->drawRect(frame);
        QRectF inner = frame.adjusted(padding, padding, -padding, -padding);
        const bool isFirst = piece.from.isEmpty() || piece.from[i] == 0;
        if (!cell.icon.isNull() && isFirst) {
            const qreal left = cell.text.isEmpty() ? inner.center().x() - iconSide / 2 : inner.left();
            painter->drawPixmap(QRectF(left, inner.top(), iconSide, iconSide), cell.icon,
                                QRectF(cell.icon.rect()));
        }
        inner.setLeft(inner.left() + iconRoom(cell));
        const std::unique_ptr<QTextLayout> text = laidOut(cell, m_font, inner.width());
        if (!text)
            continue;
        const int from = piece.from.isEmpty() ? 0 : piece.from[i];
        const int before = piece.before.isEmpty() ? text->lineCount() : piece.before[i];
        for (int line = from; line < before; ++line)
            text->lineAt(line).draw(painter, inner.topLeft() - QPointF(0, lineTop(*text, from)));
    }
}

/// Paints the document's name, the imprint and the page number at the bottom of each page, because sheets get mixed up.
void VrkPreviewPages::paintNumber(QPainter* painter, int page) const
{
    const QFontMetricsF metrics(m_font);
    const qreal textWidth =
        m_code.side() == 0 ? m_size.width() : m_size.width() - codeSide * (1 + 4.0 / m_code.side()) - padding;
    m_code.paint(painter, QRectF(m_size.width() - codeSide, m_size.height() - codeSide, codeSide, codeSide));
    const QRectF foot(0, m_size.height() - metrics.height(), textWidth, metrics.height());
    QString number = numberText(page + 1, m_pages.size());
    if (!m_table.imprint.isEmpty())
        number.prepend(m_table.imprint + QStringLiteral("    "));
    painter->drawText(foot, Qt::AlignRight | Qt::AlignBottom, number);
    QString title = m_table.footer;
    title.replace(QLatin1Char('\n'), QStringLiteral(", "));
    const qreal room = textWidth - metrics.horizontalAdvance(number) - 4 * padding;
    painter->drawText(foot, Qt::AlignLeft | Qt::AlignBottom, metrics.elidedText(title, Qt::ElideRight, room));
}
