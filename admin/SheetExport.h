#pragma once

#include "Directory.h"

#include <QDir>

/// Writes the sheets of a store into a folder.
namespace SheetExport
{
/// One row of cells in the order of the sheet's columns.
QStringList cells(const Directory& directory, const Sheet& sheet, const DirectoryRow& row);
/// Writes all sheets; those without rows only with their headings. False with the file's name in \a
/// failure.
bool write(const Directory& directory, const QDir& folder, QString* failure);
} // namespace SheetExport
