#pragma once

#include "Directory.h"

#include <QDir>

/// Writes the sheets of a store into a folder.
namespace SheetExport
{
/// One row of cells in the order of the sheet's columns.
QStringList cells(const Directory& directory, const Sheet& sheet, const DirectoryRow& row);
/// All sheets, those without rows with their headings only. False, and \a failure names the file.
bool write(const Directory& directory, const QDir& folder, QString* failure);
} // namespace SheetExport
