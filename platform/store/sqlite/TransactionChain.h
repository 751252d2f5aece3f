#pragma once

#include "ChainHash.h"

class SqliteConnection;

/// The hash chain of a file.
namespace TransactionChain
{
using Head = ChainHash::Head;

/// The hash for a transaction whose rows are in the log. False: the engine failed.
bool next(SqliteConnection& connection, const Head& head, QByteArray* chain);
} // namespace TransactionChain
