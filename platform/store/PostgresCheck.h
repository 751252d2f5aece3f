#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// The looks that a check of a PostgreSQL store takes. Each appends what it finds; false when it could not look.
namespace PostgresCheck
{
/// References by key between tables, states of records, trees, workshifts that were never finished opening.
bool content(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Whether the search finds the records as they stand.
bool search(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// The change log: contiguous numbers, the chain, and that it ends in the rows as they stand.
bool log(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace PostgresCheck
