#pragma once

#include <QColor>
#include <QString>

class QTableView;
class QTextDocument;

/// The printable form of a table view.
struct VrkPreviewDocument {
    QTableView* view = nullptr;
    QColor headerBackground = Qt::lightGray;
    int maxColumnWidth = 0; ///< 0: no bound
    QString footer;

    /// Replaces the document's content by the table: a header that each page repeats, a row for each row of the view's
    /// model, a line with the date where the view has one, then the footer.
    void fill(QTextDocument* document) const;
};
