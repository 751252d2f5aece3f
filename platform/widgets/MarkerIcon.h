#pragma once

#include "VrkExport.h"

#include <QIcon>

/// Markers of records are pictures of the program, under ":/markers/". The properties "first_mark" and "second_mark" of
/// a record or a template name one by its path; whoever wrote the text may have put any other path there, of a file
/// or a pipe of this computer or of another one. Those are never opened.
namespace MarkerIcon
{
/// The path is one of a marker, whether there is such a picture or not.
VRK_EXPORT bool isPath(const QString& path);
/// The picture at the path, null for any other path.
VRK_EXPORT QIcon at(const QString& path);
} // namespace MarkerIcon
