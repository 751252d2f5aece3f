#pragma once

#include "StoreError.h"

#include <QByteArray>

class SqliteConnection;
struct CatalogTable;

/// The schema of a SQLite store: steps in schema/sqlite-NNNN.sql, each from one version to the next; the
/// rules of SchemaScript, the triggers of the search in schema/sqlite-search.sql, and those of the change
/// log, which are made from the catalog.
namespace SqliteSchema
{
/// Creates all tables in an empty file. Runs inside the caller's transaction.
bool install(SqliteConnection& connection, StoreError* error);

/// Runs the steps that a store of version \a from needs, and recreates all views and triggers. Runs inside
/// the caller's transaction.
bool upgrade(SqliteConnection& connection, int from, StoreError* error);

/// Rebuilds the search index in the order of the records' times. Runs inside the caller's transaction.
bool rebuildSearch(SqliteConnection& connection, StoreError* error);

/// The triggers that log every change of a table and refuse changes that bypass the store.
QByteArray logTriggers(const CatalogTable& table);
} // namespace SqliteSchema
