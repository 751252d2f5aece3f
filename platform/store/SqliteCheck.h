#pragma once

#include "StoreAdmin.h"

class SqliteConnection;

/// The looks that a check of a SQLite store takes. Each appends what it finds; false when it could not look.
namespace SqliteCheck
{
/// Whether the file lies where SQLite can lock it.
bool place(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings);
/// What the engine itself can tell: pages, indexes, constraints, references.
bool engine(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Whether tables, indexes, rules and log triggers are those of this program.
bool schema(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// References by key between tables, states of records, trees, workshifts that were never finished opening.
bool content(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Whether the search finds the records as they stand.
bool search(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// The change log: contiguous numbers, the chain, and that it ends in the rows as they stand.
bool log(SqliteConnection& connection, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace SqliteCheck
