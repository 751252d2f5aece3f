#pragma once

#include <QColor>
#include <QDate>
#include <QFont>
#include <QPixmap>
#include <QString>
#include <QTextLayout>
#include <QVector>

class QTableView;

/// A copy of a table view's content for printing: the visible columns in their order, all rows of the
/// view's model, a day line where the view has one. Colours of the theme are not copied.
struct VrkPreviewTable {
    struct Cell {
        QString text; ///< lines end with QChar::LineSeparator
        QVector<QTextLayout::FormatRange> formats;
        QPixmap icon;                ///< larger than on the screen, since printers have a higher resolution
        QString meaning = QString(); ///< of an icon, in words
        QString link = QString();    ///< address of another page, only for HTML
        bool isCentred = false;
    };
    /// A remark on a row, only for HTML.
    struct Note {
        QString label;
        QString text;
        QString link = QString(); ///< address of a file
    };
    struct Row {
        bool isDayLine = false; ///< one cell across the whole table
        QVector<Cell> cells;
        QVector<Note> notes = {}; ///< shown below the text of the last cell
        QDate day = {};           ///< of the record, if the table has day lines
    };

    /// A null view gives an empty table.
    static VrkPreviewTable of(QTableView* view, int maxColumnWidth = 0);

    QFont font;
    QVector<int> widths;    ///< of the columns in pixels of the view; the last one gets the rest of the page
    int maxColumnWidth = 0; ///< in the same pixels, for all columns but the last one; 0 for no maximum
    int pixelsPerInch = 96;
    QColor headerBackground = Qt::lightGray;
    Row header;
    QVector<Row> rows;
    QString footer;  ///< at the end of the document
    QString imprint; ///< beside the number of each page
    QByteArray code; ///< a text that each page also has as a QR code
};
