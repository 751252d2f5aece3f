#pragma once

#include "VrkPreviewTable.h"

/// The same document as one HTML page: everything is in the file, it runs no scripts, loads nothing, and prints on A4. Texts
/// of the table never become markup.
namespace VrkPreviewHtml
{
/// A link above the table.
struct Link {
    QString address; ///< relative to the page
    QString text;
};

/// The page in UTF-8. The first line of the table's footer is its title, the others are below it; the imprint and the QR
/// code are at the end.
QByteArray page(const VrkPreviewTable& table, const QVector<Link>& links = {});
/// A text as it stands between tags and in quoted attributes; characters that HTML does not have are replaced.
QString escaped(const QString& text);
} // namespace VrkPreviewHtml
