#pragma once

#include "StoreError.h"

class SqliteConnection;

/// The schema of a SQLite store, made by the scripts of SchemaScript. The triggers of the change log are
/// derived from the catalog.
namespace SqliteSchema
{
/// Creates all tables in an empty file. Runs inside the caller's transaction.
bool install(SqliteConnection& connection, StoreError* error);

/// Runs the steps that a store of version \a from needs, and recreates all views and triggers. Runs inside
/// the caller's transaction.
bool upgrade(SqliteConnection& connection, int from, StoreError* error);

/// Rebuilds the search index in the order of the records' times. Runs inside the caller's transaction.
bool rebuildSearch(SqliteConnection& connection, StoreError* error);
} // namespace SqliteSchema
