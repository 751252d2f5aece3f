#pragma once

#include "StoreError.h"

#include <QByteArray>

class SqliteConnection;
struct CatalogTable;

/// The schema of a SQLite store: steps in schema/sqlite-NNNN.sql that each lead from one version to the next; the rules of
/// SchemaScript, the triggers of the search in schema/sqlite-search.sql, and those of the change log, which are made from
/// the catalog.
namespace SqliteSchema
{
/// The version that this program writes and reads.
constexpr int version = 4;

/// Makes all tables in an empty file. Runs inside the caller's transaction.
bool install(SqliteConnection& connection, StoreError* error);

/// Takes the steps that a store of \a from lacks, and makes all views and triggers anew. Runs inside the caller's
/// transaction.
bool upgrade(SqliteConnection& connection, int from, StoreError* error);

/// Fills the index of the search anew, in the order of the records' times. Runs inside the caller's transaction.
bool rebuildSearch(SqliteConnection& connection, StoreError* error);

/// No error when a store of this version can be used.
StoreError versionError(int storeVersion, const QString& file);

/// The triggers that log every change of a table and refuse what does not come through the store.
QByteArray logTriggers(const CatalogTable& table);
} // namespace SqliteSchema
