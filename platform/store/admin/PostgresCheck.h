#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// The parts of a check of a PostgreSQL store. Each appends its findings; false if it could not be done.
namespace PostgresCheck
{
/// References by key between tables, states of records, trees, workshifts whose opening was never
/// completed.
bool content(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Whether the search index matches the records.
bool search(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// The change log: contiguous numbers, the chain, and that it leads to the current rows.
bool log(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace PostgresCheck
