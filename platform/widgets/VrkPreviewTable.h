#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>
#include <QTextLayout>
#include <QVector>

class QTableView;

/// What a table view shows, taken at one moment on its way to paper: the columns in sight in their order, all rows of
/// the view's model, a line with the date where the view has one. Paper has its own colours: of the theme nothing comes
/// along.
struct VrkPreviewTable {
    struct Cell {
        QString text; ///< lines end with QChar::LineSeparator
        QVector<QTextLayout::FormatRange> formats;
        QPixmap icon; ///< larger than it is shown: printers are finer than screens
        bool isCentred = false;
    };
    struct Row {
        bool isDayLine = false; ///< one cell across the whole table
        QVector<Cell> cells;
    };

    /// A null view gives an empty table.
    static VrkPreviewTable of(QTableView* view, int maxColumnWidth = 0);

    QFont font;
    QVector<int> widths;    ///< of the columns in pixels of the view; the last one gets the rest of the page
    int maxColumnWidth = 0; ///< in the same pixels, of all columns but the last one; 0 for no bound
    int pixelsPerInch = 96;
    QColor headerBackground = Qt::lightGray;
    Row header;
    QVector<Row> rows;
    QString footer; ///< at the end of the document
};
