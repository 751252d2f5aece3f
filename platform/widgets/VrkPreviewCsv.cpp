#include "VrkPreviewCsv.h"

#include "Csv.h"

#include <algorithm>
#include <QCoreApplication>

namespace
{
QString textOf(const VrkPreviewTable::Cell& cell, QChar lineEnd)
{
    QString text = cell.text;
    text.replace(QChar::LineSeparator, lineEnd);
    const QString space = cell.meaning.isEmpty() || text.isEmpty() ? QString() : QStringLiteral(" ");
    return Csv::harmless(cell.meaning + space + text);
}
} // namespace

QByteArray VrkPreviewCsv::table(const VrkPreviewTable& table)
{
    const bool hasDays = std::any_of(table.rows.begin(), table.rows.end(),
                                     [](const VrkPreviewTable::Row& row) { return row.day.isValid(); });
    QStringList headings;
    if (hasDays)
        headings << QCoreApplication::translate("VrkPreviewCsv", "День");
    for (const VrkPreviewTable::Cell& cell : table.header.cells)
        headings << textOf(cell, QLatin1Char(' '));
    QVector<QStringList> rows{headings};
    for (const VrkPreviewTable::Row& row : table.rows) {
        if (row.isDayLine)
            continue;
        QStringList cells;
        if (hasDays)
            cells << row.day.toString(QStringLiteral("dd.MM.yyyy"));
        for (const VrkPreviewTable::Cell& cell : row.cells)
            cells << textOf(cell, QLatin1Char('\n'));
        rows.append(cells);
    }
    return Csv::write(rows);
}
