#include "VrkPreviewDocument.h"

#include "TemplateText.h"
#include "VrkTableDelegate.h"
#include "VrkTableProxyModel.h"

#include <QDate>
#include <QHeaderView>
#include <QIcon>
#include <QLocale>
#include <QTableView>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>

namespace
{
constexpr int fontPoints = 9;
constexpr int iconPixels = 14;

// Line breaks without new paragraphs, so that the alignment holds.
QString oneBlock(QString text)
{
    return text.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

class Writer
{
public:
    Writer(const VrkPreviewDocument& source, QTextDocument* document)
        : m_source(source), m_document(document), m_model(source.view->model())
    {
        const auto* proxy = qobject_cast<const VrkTableProxyModel*>(m_model);
        m_tableModel = proxy ? proxy->tableModel() : nullptr;
        const QHeaderView* header = source.view->horizontalHeader();
        for (int visual = 0; visual < header->count(); ++visual) {
            if (!header->isSectionHidden(header->logicalIndex(visual)))
                m_columns.append(header->logicalIndex(visual));
        }
    }

    void write()
    {
        QTextCursor cursor(m_document);
        cursor.beginEditBlock();
        if (!m_columns.isEmpty())
            writeTable(cursor);
        cursor.movePosition(QTextCursor::End);
        QTextBlockFormat space;
        space.setTopMargin(fontPoints);
        cursor.insertBlock(space);
        cursor.insertText(m_source.footer);
        cursor.endEditBlock();
    }

private:
    QTextTableFormat tableFormat() const
    {
        QTextTableFormat format;
        format.setHeaderRowCount(1);
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderCollapse(true);
        format.setCellSpacing(0);
        format.setCellPadding(2);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        QVector<QTextLength> widths;
        for (int column : m_columns) {
            int width = m_source.view->columnWidth(column);
            if (m_source.maxColumnWidth > 0)
                width = qMin(width, m_source.maxColumnWidth);
            // The last column takes the rest of the page.
            widths.append(column == m_columns.last() ? QTextLength()
                                                     : QTextLength(QTextLength::FixedLength, width));
        }
        format.setColumnWidthConstraints(widths);
        return format;
    }

    void writeTable(QTextCursor& cursor)
    {
        const int rows = m_model->rowCount();
        const auto* delegate = qobject_cast<const VrkTableDelegate*>(m_source.view->itemDelegate());
        QHash<int, QDate> days; // by the row that they stand above
        for (int row = 0; row < rows && delegate; ++row) {
            const QDate date = delegate->dayLine(row);
            if (date.isValid())
                days.insert(row, date);
        }
        QTextTable* table = cursor.insertTable(rows + days.size() + 1, m_columns.size(), tableFormat());
        for (int i = 0; i < m_columns.size(); ++i) {
            QTextTableCell cell = table->cellAt(0, i);
            QTextTableCellFormat format;
            format.setBackground(m_source.headerBackground);
            format.setVerticalAlignment(QTextCharFormat::AlignMiddle);
            cell.setFormat(format);
            QTextCursor text = cell.firstCursorPosition();
            centre(text);
            insertIcon(text, m_model->headerData(m_columns[i], Qt::Horizontal, Qt::DecorationRole));
            QTextCharFormat bold;
            bold.setFontWeight(QFont::Bold);
            text.insertText(oneBlock(m_model->headerData(m_columns[i], Qt::Horizontal).toString()), bold);
        }
        int printed = 1;
        for (int row = 0; row < rows; ++row, ++printed) {
            if (days.contains(row))
                writeDay(table, printed++, days.value(row));
            for (int i = 0; i < m_columns.size(); ++i)
                writeCell(table->cellAt(printed, i).firstCursorPosition(), m_model->index(row, m_columns[i]));
        }
    }

    /// A line with the date across the whole table, as the view has it.
    void writeDay(QTextTable* table, int printed, const QDate& date)
    {
        table->mergeCells(printed, 0, 1, m_columns.size());
        QTextCursor text = table->cellAt(printed, 0).firstCursorPosition();
        centre(text);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        text.insertText(QLocale(QLocale::Russian).toString(date, QStringLiteral("d MMMM yyyy, dddd")), bold);
    }

    void writeCell(QTextCursor cursor, const QModelIndex& index)
    {
        QTextCharFormat base;
        const QVariant font = index.data(Qt::FontRole);
        if (font.isValid() && font.value<QFont>().strikeOut())
            base.setFontStrikeOut(true);
        const QVariant foreground = index.data(Qt::ForegroundRole);
        if (foreground.isValid())
            base.setForeground(foreground.value<QBrush>());
        if (m_tableModel && m_tableModel->isTemplateText(index.column())) {
            const QVector<TemplateText::Run> runs = TemplateText::runs(index.data(Qt::UserRole).toString());
            for (const TemplateText::Run& run : runs) {
                QTextCharFormat format = base;
                format.merge(TemplateText::charFormat(run.looks));
                cursor.insertText(oneBlock(run.text), format);
            }
            return;
        }
        const QString text = index.data().toString();
        if (insertIcon(cursor, index.data(Qt::DecorationRole)) && text.isEmpty())
            centre(cursor);
        cursor.insertText(oneBlock(text), base);
    }

    bool insertIcon(QTextCursor& cursor, const QVariant& decoration)
    {
        const QIcon icon = decoration.value<QIcon>();
        if (icon.isNull())
            return false;
        // Rendered larger than it is shown: printers are finer than screens.
        const QUrl name(QStringLiteral("icon:%1").arg(icon.cacheKey()));
        m_document->addResource(QTextDocument::ImageResource, name,
                                icon.pixmap(4 * iconPixels, 4 * iconPixels).toImage());
        QTextImageFormat image;
        image.setName(name.toString());
        image.setWidth(iconPixels);
        image.setHeight(iconPixels);
        cursor.insertImage(image);
        return true;
    }

    static void centre(QTextCursor& cursor)
    {
        QTextBlockFormat format;
        format.setAlignment(Qt::AlignHCenter);
        cursor.mergeBlockFormat(format);
    }

    const VrkPreviewDocument& m_source;
    QTextDocument* m_document;
    const QAbstractItemModel* m_model;
    const VrkTableModel* m_tableModel = nullptr;
    QVector<int> m_columns; ///< those in sight, in their visual order
};
} // namespace

void VrkPreviewDocument::fill(QTextDocument* document) const
{
    document->clear();
    document->setUndoRedoEnabled(false);
    QFont font = view ? view->font() : document->defaultFont();
    font.setPointSize(fontPoints);
    document->setDefaultFont(font);
    if (view && view->model())
        Writer(*this, document).write();
}
