#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// Compares the objects of a PostgreSQL store's schema and their grants with a fresh schema, which the same
/// scripts create next to it and which is rolled back.
namespace PostgresObjects
{
/// Compares every object of the schema: its definition, owner and grants. Runs in its own transaction,
/// which leaves nothing behind.
bool compare(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace PostgresObjects
