#pragma once

#include "StoreError.h"

#include <QByteArray>

class SqliteConnection;
struct CatalogTable;

/// The schema of a SQLite store: steps in schema/sqlite-NNNN.sql that each lead from one version to the next, the
/// rules of SchemaScript, and the triggers of the change log, which are made from the catalog.
namespace SqliteSchema
{
/// The version that this program writes and reads.
constexpr int version = 1;

/// Makes all tables in an empty file. Runs inside the caller's transaction.
bool install(SqliteConnection& connection, StoreError* error);

/// No error when a store of this version can be used.
StoreError versionError(int storeVersion, const QString& file);

/// The triggers that log every change of a table and refuse what does not come through the store.
QByteArray logTriggers(const CatalogTable& table);
} // namespace SqliteSchema
