#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// What stands beside the schema of a PostgreSQL store and lets somebody past its rules.
namespace PostgresStrangers
{
/// Objects outside the schema, grants on what is the server's own, attributes and memberships of roles, settings of roles
/// and of the database. A fresh store on a fresh server has none of them.
bool find(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace PostgresStrangers
