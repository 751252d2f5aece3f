#pragma once

struct sqlite3;

/// The leaf of a row of the change log for the triggers that sign.
namespace RowLeaf
{
/// Adds the function vrk_leaf(table, key, event, old, new) to a connection: LogLeaf as hexadecimal digits.
void installFunction(sqlite3* database);
} // namespace RowLeaf
