#pragma once

#include "VrkExport.h"

#include <QIcon>

/// Markers of records are pictures of the program, under ":/markers/". The properties "first_mark" and
/// "second_mark" of a record or a template contain the path of one. The author of the text may have written
/// any other path, of a file or a pipe on this or another computer. Those are never opened.
namespace MarkerIcon
{
/// Whether the path is that of a marker; the picture need not exist.
VRK_EXPORT bool isPath(const QString& path);
/// The picture at the path; null for any other path.
VRK_EXPORT QIcon at(const QString& path);
} // namespace MarkerIcon
