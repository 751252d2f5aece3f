#pragma once

#include "CMDArray.h"

#include <QString>

/// Helpers for pages that load their tables.
namespace TableLoad
{
/// The keys of all rows as a list for IN: quoted, joined by commas; empty without rows.
QString quotedKeys(const CMDArray& table);
} // namespace TableLoad
