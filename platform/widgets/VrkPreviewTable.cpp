#include "VrkPreviewTable.h"

#include "TemplateText.h"
#include "VrkTableDelegate.h"
#include "VrkTableProxyModel.h"

#include <QBrush>
#include <QDate>
#include <QHeaderView>
#include <QIcon>
#include <QLocale>
#include <QTableView>

namespace
{
constexpr int iconPixels = 56;

QString lines(QString text)
{
    return text.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

VrkPreviewTable::Cell boldCell(const QString& text)
{
    VrkPreviewTable::Cell cell;
    cell.text = lines(text);
    cell.isCentred = true;
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cell.formats.append({0, int(cell.text.size()), bold});
    return cell;
}

QPixmap iconOf(const QVariant& decoration)
{
    const QIcon icon = decoration.value<QIcon>();
    return icon.isNull() ? QPixmap() : icon.pixmap(iconPixels, iconPixels);
}

/// The view's format for the whole cell.
QTextCharFormat cellFormat(const QModelIndex& index)
{
    QTextCharFormat format;
    const QVariant font = index.data(Qt::FontRole);
    if (font.isValid() && font.value<QFont>().strikeOut())
        format.setFontStrikeOut(true);
    const QVariant foreground = index.data(Qt::ForegroundRole);
    if (foreground.isValid())
        format.setForeground(foreground.value<QBrush>());
    return format;
}

void append(VrkPreviewTable::Cell* cell, const QString& text, const QTextCharFormat& format)
{
    if (!format.isEmpty())
        cell->formats.append({int(cell->text.size()), int(text.size()), format});
    cell->text += lines(text);
}

VrkPreviewTable::Cell recordCell(const QModelIndex& index, const VrkTableModel* model)
{
    VrkPreviewTable::Cell cell;
    const QTextCharFormat base = cellFormat(index);
    if (model && model->isTemplateText(index.column())) {
        const QVector<TemplateText::Run> runs = TemplateText::runs(index.data(Qt::UserRole).toString());
        for (const TemplateText::Run& run : runs) {
            QTextCharFormat format = base;
            format.merge(TemplateText::charFormat(run.looks));
            append(&cell, run.text, format);
        }
        return cell;
    }
    cell.icon = iconOf(index.data(Qt::DecorationRole));
    cell.meaning = index.data(Qt::AccessibleTextRole).toString();
    append(&cell, VrkTableDelegate::laidOutText(index.data().toString()), base);
    cell.isCentred = !cell.icon.isNull() && cell.text.isEmpty();
    return cell;
}
} // namespace

VrkPreviewTable VrkPreviewTable::of(QTableView* view, int maxColumnWidth)
{
    VrkPreviewTable table;
    const QAbstractItemModel* model = view ? view->model() : nullptr;
    if (!model)
        return table;
    table.font = view->font();
    table.maxColumnWidth = maxColumnWidth;
    table.pixelsPerInch = view->logicalDpiX();

    QVector<int> columns;
    const QHeaderView* header = view->horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (header->isSectionHidden(column))
            continue;
        columns.append(column);
        table.widths.append(view->columnWidth(column));
        Cell cell = boldCell(model->headerData(column, Qt::Horizontal).toString());
        cell.icon = iconOf(model->headerData(column, Qt::Horizontal, Qt::DecorationRole));
        cell.meaning = model->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
        table.header.cells.append(cell);
    }
    if (columns.isEmpty())
        return table;

    const auto* proxy = qobject_cast<const VrkTableProxyModel*>(model);
    const auto* delegate = qobject_cast<const VrkTableDelegate*>(view->itemDelegate());
    const int rows = model->rowCount();
    table.rows.reserve(rows);
    for (int row = 0; row < rows; ++row) {
        const QDate day = delegate ? delegate->dayLine(row) : QDate();
        if (day.isValid())
            table.rows.append(
                {true,
                 {boldCell(QLocale(QLocale::Russian).toString(day, QStringLiteral("d MMMM yyyy, dddd")))}});
        Row record;
        record.day = delegate ? delegate->dayOf(row) : QDate();
        record.cells.reserve(columns.size());
        for (int column : qAsConst(columns))
            record.cells.append(recordCell(model->index(row, column), proxy ? proxy->tableModel() : nullptr));
        table.rows.append(record);
    }
    return table;
}
