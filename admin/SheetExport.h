#pragma once

#include "Directory.h"

#include <QDir>

/// Writes the sheets of a store into a folder.
namespace SheetExport
{
/// How cells name the rows that they refer to.
enum References { Names, Keys };
/// One row of cells in the order of the sheet's columns. With \a references by keys, a cell that restricts the references
/// of its row is empty.
QStringList cells(const Directory& directory, const Sheet& sheet, const DirectoryRow& row,
                  References references = Names);
/// Writes all sheets; those without rows only with their headings. False with the file's name in \a
/// failure.
bool write(const Directory& directory, const QDir& folder, QString* failure);
} // namespace SheetExport
