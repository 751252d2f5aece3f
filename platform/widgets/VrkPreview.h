#pragma once

#include "VrkExport.h"

#include <memory>
#include <QColor>
#include <QIcon>
#include <QObject>
#include <QString>

class QTableView;

/// Makes a document from the content of a table view (visible columns in their visual order, all rows of
/// its model) that can be viewed, printed and saved as PDF.
class VRK_EXPORT VrkPreview : public QObject
{
    Q_OBJECT

public:
    explicit VrkPreview(QObject* parent = nullptr);
    ~VrkPreview() override;

    /// Not owned.
    void setView(QTableView* view);
    void setWindowIcon(const QIcon& icon);
    void setWindowTitle(const QString& title);
    void setHeaderBackgroundColor(QColor color);
    /// Maximum width of a column, in pixels of the view; it does not apply to the last visible column,
    /// which gets the rest of the page.
    void setMaxColummnWidth(int width);
    /// A text at the end of the document.
    void setFooter(const QString& text);
    /// A short text at the foot of each page.
    void setImprint(const QString& text);
    /// A text on each page as a QR code; none if it is empty.
    void setCode(const QByteArray& text);
    /// Folder and name, without suffix, that are proposed when the document is saved as PDF; any text. Without them
    /// the window's title in the current folder.
    void setFile(const QString& folder, const QString& name);
    /// Rebuilds the document and opens the preview window.
    void showDocument();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
