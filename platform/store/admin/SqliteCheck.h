#pragma once

#include "StoreAdmin.h"

class SqliteConnection;

/// The parts of a check of a SQLite store. Each appends its findings; false if it could not be done.
namespace SqliteCheck
{
/// Whether SQLite can lock the file at its place.
bool place(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings);
/// The engine's own checks: pages, indexes, constraints, references.
bool engine(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Whether tables, indexes, rules and log triggers are those of this program.
bool schema(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// References by key between tables, states of records, trees, workshifts whose opening was never
/// completed.
bool content(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Whether the search index matches the records.
bool search(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// The change log: contiguous numbers, the chain, and that it leads to the current rows.
bool log(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace SqliteCheck
