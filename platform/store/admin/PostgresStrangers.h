#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// Finds what exists on a server outside the schema of a store and lets somebody bypass its rules.
namespace PostgresStrangers
{
/// Objects outside the schema, grants on the server's own objects, attributes and memberships of roles,
/// settings of roles and of the database. A fresh store on a fresh server has none of them.
bool find(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error);
} // namespace PostgresStrangers
