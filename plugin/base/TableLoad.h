#pragma once

#include "CMDArray.h"

#include <QString>

/// Helpers for pages that load their tables.
namespace TableLoad
{
/// The keys of all rows as a list for IN: quoted, joined by commas; empty without rows.
QString quotedKeys(const CMDArray& table);
/// Appends a row to \a records for each row of an answer whose fields are the first ones of \a records, in
/// order; contents of files stay in the store. Returns the last one, null if there was none.
MDRData* repack(const CMDArray& answer, CMDArray& records);
} // namespace TableLoad
