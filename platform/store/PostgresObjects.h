#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// Compares what the schema of a PostgreSQL store consists of, and who may do what with it, with a schema that is made by
/// the same scripts beside it and given up again.
namespace PostgresObjects
{
/// Every object of the schema: its definition, owner and grants. In a transaction of its own, which leaves nothing.
bool compare(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace PostgresObjects
