#pragma once

#include "VrkPreviewTable.h"

/// The same document as a table for spreadsheets. A table with day lines gets the day as a column of its own, an icon is
/// written as its meaning, and no text becomes a formula.
namespace VrkPreviewCsv
{
QByteArray table(const VrkPreviewTable& table);
}
