#include "VrkTableDelegate.h"
#include "VrkTableHeader.h"
#include "VrkTableLayout.h"
#include "VrkTableProxyModel.h"

#include <algorithm>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

namespace
{
constexpr int charactersOfWrapped = 16;     ///< wider names are wrapped
constexpr int charactersOfLeast = 14;       ///< longer words are broken when there is too little space
constexpr int charactersOfFill = 45;        ///< the text of records gets this width, even if names must be
                                            ///< wrapped
constexpr int charactersOfText = 20;        ///< below this width the table scrolls horizontally instead
constexpr int charactersOfReadable = 28;    ///< length of a text line that is easy to read
constexpr double charactersOfNarrowest = 2; ///< minimum width of a column
constexpr double charactersOfWidest = 120;
constexpr int rowsRead = 100; ///< maximum number of rows used to find the widths

// Russian letters are wider than the average character of a font.
int textWidth(const QFontMetrics& metrics, int characters)
{
    static const QString sample = QStringLiteral("Отключён выключатель, бригада допущена к работе.");
    return metrics.horizontalAdvance(sample) * characters / sample.size();
}
} // namespace

// The column that takes the remaining space: the text of records, otherwise the last visible one.
int VrkTableLayout::fillColumn() const
{
    const QHeaderView* header = m_view->horizontalHeader();
    int last = -1;
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (header->isSectionHidden(column))
            continue;
        last = column;
        if (m_model->tableModel()->isTemplateText(column))
            return column;
    }
    return last;
}

int VrkTableLayout::headerWidth(int column) const
{
    const auto* header = qobject_cast<const VrkTableHeader*>(m_view->horizontalHeader());
    return header ? header->neededWidth(column) : m_view->horizontalHeader()->sectionSizeHint(column);
}

// Computes the widths that the columns need for the visible rows. Without \a mayShrink, columns only grow.
void VrkTableLayout::readWidths(bool mayShrink)
{
    if (!m_fitted)
        return;
    const int columns = m_model->columnCount();
    bool grown = mayShrink || m_widths.size() != columns;
    if (grown) {
        m_widths = QVector<Width>(columns);
        m_contentRead.clear();
    }
    const int fill = fillColumn();
    const int first = qMax(0, m_view->rowAt(0));
    const int below = m_view->rowAt(m_view->viewport()->height() - 1);
    const int last = qMin((below < 0 ? m_model->rowCount() - 1 : below), first + rowsRead);
    const int character = m_view->fontMetrics().averageCharWidth();
    for (int column = 0; column < columns; ++column) {
        if (m_view->isColumnHidden(column) || column == fill)
            continue;
        Width& width = m_widths[column];
        const int header = headerWidth(column);
        int natural = qMax(width.natural, header);
        int least = qMax(width.least, header);
        for (int row = first; row <= last; ++row) {
            if (m_heights.contains(m_model->record(row)))
                continue; // computed when it was measured
            const QModelIndex cell = m_model->index(row, column);
            const int inOneLine = m_delegate->naturalWidth(cell, false);
            if (inOneLine <= natural && inOneLine <= least && inOneLine <= width.content)
                continue;
            const int word = m_delegate->naturalWidth(cell, true);
            width.content = qMax(width.content, qMin(word, charactersOfLeast * character));
            least = qMax(least, qMin(word, charactersOfLeast * character));
            natural = qMax(natural, qMax(word, qMin(inOneLine, charactersOfWrapped * character)));
        }
        grown = grown || natural != width.natural || least != width.least;
        width.natural = natural;
        width.least = least;
    }
    if (grown)
        distribute();
}

// Notes the columns in which a row on the screen has content; each row is read once. False if there is no
// further one.
bool VrkTableLayout::readContents()
{
    const int fill = fillColumn();
    QVector<int> open;
    for (int column = 0; column < m_widths.size(); ++column)
        if (column != fill && !m_widths[column].filled && !m_view->isColumnHidden(column))
            open.append(column);
    if (!m_fitted || open.isEmpty() || m_model->rowCount() == 0)
        return false;
    bool found = false;
    const int below = m_view->rowAt(m_view->viewport()->height() - 1);
    const int last = below < 0 ? m_model->rowCount() - 1 : below;
    for (int row = qMax(0, m_view->rowAt(0)); row <= last; ++row) {
        const MDRData* record = m_model->record(row);
        if (m_contentRead.contains(record))
            continue;
        m_contentRead.insert(record);
        for (int column : qAsConst(open)) {
            const int width = m_delegate->naturalWidth(m_model->index(row, column), false);
            if (width > VrkTableDelegate::emptyWidth())
                found = m_widths[column].filled = true;
        }
    }
    if (found)
        distribute();
    return found;
}

// Other rows are shown: columns may be empty now.
void VrkTableLayout::forgetContents()
{
    m_contentRead.clear();
    for (Width& width : m_widths)
        width.filled = false;
}

void VrkTableLayout::fitColumns()
{
    m_fitted = true;
    m_heights.clear();
    readWidths(true);
    schedule();
}

int VrkTableLayout::comfortableWidth()
{
    const int fill = fillColumn();
    if (!m_fitted || fill < 0 || !m_view->isVisible())
        return 0;
    measure();
    int width = qMax(charactersOfReadable * m_view->fontMetrics().averageCharWidth(), headerWidth(fill));
    for (int column = 0; column < m_widths.size(); ++column) {
        if (column != fill && !m_view->isColumnHidden(column))
            width += m_widths[column].byUser ? m_view->columnWidth(column) : m_widths[column].least;
    }
    return width + m_view->width() - m_view->viewport()->width();
}

QHash<int, double> VrkTableLayout::userWidths() const
{
    QHash<int, double> widths;
    for (int column = 0; column < m_widths.size(); ++column) {
        if (m_widths[column].byUser && !m_view->isColumnHidden(column))
            widths.insert(column,
                          double(m_view->columnWidth(column)) / m_view->fontMetrics().averageCharWidth());
    }
    return widths;
}

void VrkTableLayout::setUserWidths(const QHash<int, double>& widths)
{
    {
        const QScopedValueRollback<bool> guard(m_distributing, true);
        const int fill = fillColumn();
        for (auto it = widths.begin(); it != widths.end(); ++it) {
            if (it.key() < 0 || it.key() >= m_widths.size() || it.key() == fill)
                continue;
            m_widths[it.key()].byUser = true;
            m_view->horizontalHeader()->setSectionResizeMode(it.key(), QHeaderView::Interactive);
            m_view->setColumnWidth(it.key(),
                                   qRound(qBound(charactersOfNarrowest, it.value(), charactersOfWidest) *
                                          m_view->fontMetrics().averageCharWidth()));
        }
    }
    distribute();
    forgetHeights();
}

// The width of a column that gives its space to the text: of the beginning of its header, and of the words in
// it.
int VrkTableLayout::foldedWidth(int column) const
{
    const auto* header = qobject_cast<const VrkTableHeader*>(m_view->horizontalHeader());
    const Width& width = m_widths[column];
    if (!header)
        return width.least;
    return qMin(width.least, qMax(header->foldedWidth(column), width.filled ? width.content : 0));
}

// While the text has less space than \a wanted, columns without content in the rows on the screen give it what
// their headers do not need to be recognised, those that give most first; while it has less than \a least, the
// others, too. Returns their widths; \a rest grows.
QHash<int, int> VrkTableLayout::fold(QVector<int> columns, int wanted, int least, int* rest) const
{
    QHash<int, int> folded;
    if (m_model->rowCount() == 0 || !m_model->tableModel()->isTemplateText(fillColumn()))
        return folded;
    const auto gain = [this](int column) { return m_widths[column].least - foldedWidth(column); };
    std::stable_sort(columns.begin(), columns.end(), [gain](int a, int b) { return gain(a) > gain(b); });
    for (const bool isFilled : {false, true}) {
        const int aim = isFilled ? least : wanted;
        for (int column : qAsConst(columns)) {
            if (m_widths[column].filled != isFilled || *rest >= aim || gain(column) <= 0)
                continue;
            *rest += gain(column);
            folded.insert(column, foldedWidth(column));
        }
    }
    return folded;
}

// Sets the column widths. Columns get their one-line width as long as the text keeps enough, starting with
// those that need the least for it; the others get the width of their longest word.
void VrkTableLayout::distribute()
{
    const int fill = fillColumn();
    if (!m_fitted || m_distributing || fill < 0 || m_widths.size() != m_model->columnCount())
        return;
    const QScopedValueRollback<bool> guard(m_distributing, true);
    QHeaderView* header = m_view->horizontalHeader();
    const int character = m_view->fontMetrics().averageCharWidth();
    const int leastOfFill = qMax(charactersOfText * character, headerWidth(fill));
    int rest = m_view->viewport()->width();
    QVector<int> fitted;
    for (int column = 0; column < m_widths.size(); ++column) {
        if (column == fill || m_view->isColumnHidden(column))
            continue;
        rest -= m_widths[column].byUser ? m_view->columnWidth(column) : m_widths[column].least;
        if (!m_widths[column].byUser)
            fitted.append(column);
    }
    const int readable = qMax(leastOfFill, textWidth(m_view->fontMetrics(), charactersOfFill));
    const QHash<int, int> folded = fold(fitted, readable, leastOfFill, &rest);
    const auto cost = [this](int column) { return m_widths[column].natural - m_widths[column].least; };
    std::stable_sort(fitted.begin(), fitted.end(), [cost](int a, int b) { return cost(a) < cost(b); });
    const int wantedOfFill =
        folded.isEmpty() ? qMax(charactersOfFill * character, leastOfFill) : readable; // not taken back
    for (int column : qAsConst(fitted)) {
        const Width& width = m_widths[column];
        const bool inOneLine = !folded.contains(column) && rest - cost(column) >= wantedOfFill;
        rest -= inOneLine ? cost(column) : 0;
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        header->resizeSection(column, inOneLine ? width.natural : folded.value(column, width.least));
    }
    if (rest >= leastOfFill) {
        header->setSectionResizeMode(fill, QHeaderView::Stretch);
    } else {
        header->setSectionResizeMode(fill, QHeaderView::Interactive);
        header->resizeSection(fill, leastOfFill);
    }
}
