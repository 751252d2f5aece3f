#pragma once

#include "QrCode.h"
#include "VrkPreviewTable.h"

#include <functional>
#include <QSizeF>

class QPainter;

/// Breaks a table into pages and paints them one by one. Every page repeats the header; a row is never
/// split unless it is higher than a page, and then only between two lines; a day line never ends a page.
/// Lengths are in units of 1/1200 inch, so that screen, printer and PDF have the same layout.
class VrkPreviewPages
{
public:
    static constexpr qreal unitsPerInch = 1200;
    static constexpr int manyRows = 300; ///< from this number on, progress is shown

    /// Receives the number of rows done and the total; returns false to cancel.
    using Progress = std::function<bool(int done, int total)>;

    void setTable(const VrkPreviewTable& table);
    const VrkPreviewTable& table() const { return m_table; }

    /// Lays the table out for pages of this size, which includes the line with the page number. Does
    /// nothing if the layout is current. False if \a progress cancelled it: then there are no pages.
    bool layOut(const QSizeF& page, const Progress& progress);
    /// 0 before layOut().
    int count() const { return m_pages.size(); }
    /// Paints a page with its number; its top left corner is at the origin.
    void paint(QPainter* painter, int page) const;

private:
    /// A part of a row: the whole row, or a range of each cell's lines.
    struct Piece {
        int row;
        qreal height;
        QVector<int> from;
        QVector<int> before;
    };
    struct Page {
        QVector<Piece> pieces;
        qreal footerTop = -1; ///< below 0: the footer is on another page
    };
    class Breaker;

    /// Widths that the texts of a column need so that no word, or no short line, is broken.
    struct Needs {
        qreal word = 0;
        qreal line = 0;
    };

    void fitColumns();
    Needs needsOf(int column) const;
    qreal bodyHeight() const;
    QRectF cellRect(const VrkPreviewTable::Row& row, int cell, qreal top, qreal height) const;
    void paintRow(QPainter* painter, const VrkPreviewTable::Row& row, const Piece& piece, qreal top) const;
    void paintNumber(QPainter* painter, int page) const;

    VrkPreviewTable m_table;
    QrCode m_code{QByteArray()};
    QFont m_font; ///< of a size in units
    QSizeF m_size;
    QVector<qreal> m_edges; ///< edges of the columns, one more than the number of columns
    qreal m_headerHeight = 0;
    QVector<Page> m_pages;
};
