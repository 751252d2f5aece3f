#pragma once

#include <QIcon>

/// An icon for a table cell: the style does not tint it in the selected row, where a thin line would be
/// invisible.
inline QIcon cellIcon(const QString& path)
{
    QIcon icon(path);
    icon.addFile(path, QSize(), QIcon::Selected);
    return icon;
}
