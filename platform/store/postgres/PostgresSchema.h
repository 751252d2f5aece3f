#pragma once

#include "PgConnection.h"

#include <QPair>

struct CatalogTable;

/// The schema of a PostgreSQL store, made by the scripts of SchemaScript. The triggers of the change log are
/// derived from the catalog.
///
/// Everything belongs to the role vrk_owner, which cannot log in. Persons are members of vrk_client, which
/// may read everything and write the tables of the catalog; members of vrk_loader may switch the rules off;
/// members of vrk_seal read the change log and write the evidence (LogTiles, LogHeads), nothing else.
namespace PostgresSchema
{
/// Creates the roles that every store on a server needs.
bool makeRoles(PgConnection& link, StoreError* error);
/// Begins a transaction that is logged under the administrator's name; no rule applies to it.
bool beginLogged(PgConnection& link, StoreError* error);

/// Creates roles, tables, rules and grants in an empty database. Runs inside the caller's transaction.
bool install(PgConnection& link, StoreError* error);

/// Creates the same objects in another schema of a store's database, for comparison. Runs inside the
/// caller's transaction, and sets its search path.
bool installAside(PgConnection& link, const QByteArray& schema, StoreError* error);

/// Runs the steps that a store of version \a from needs, and recreates all functions, triggers and views.
/// Runs inside the caller's transaction.
bool upgrade(PgConnection& link, int from, StoreError* error);

/// Rebuilds the search index. Runs inside the caller's transaction.
bool rebuildSearch(PgConnection& link, StoreError* error);

/// The version of the store in the database; -1 with the reason if there is none.
int versionOf(PgConnection& link, StoreError* error);
/// Whether the database is a store of this version.
bool isOurs(PgConnection& link, StoreError* error);

/// Declared table and field of every column, by the server's table and column numbers.
bool columns(PgConnection& link, QHash<QPair<Oid, int>, QPair<QByteArray, QByteArray>>* columns,
             StoreError* error);

/// A name quoted for statements.
QByteArray identifier(const QString& name);

/// An expression for a row's values in the format of the change log.
QByteArray rowOf(const CatalogTable& table, const QByteArray& alias);
} // namespace PostgresSchema
