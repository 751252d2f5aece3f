#pragma once

#include "PgConnection.h"

#include <QPair>

struct CatalogTable;

/// The schema of a PostgreSQL store: tables and log triggers made from the catalog, the steps in
/// schema/postgresql-NNNN.sql, the change log in schema/postgresql-log.sql, the rules of SchemaScript, the search in
/// schema/postgresql-search.sql.
///
/// Everything belongs to the role vrk_owner, which cannot log in. Persons are members of vrk_client, which may read
/// all and write the tables of the catalog; members of vrk_loader may put the rules out of force.
namespace PostgresSchema
{
/// The roles that every store on a server needs.
bool makeRoles(PgConnection& link, StoreError* error);
/// Begins a transaction that is logged under the administrator's name, and that no rule binds.
bool beginLogged(PgConnection& link, StoreError* error);

/// Makes roles, tables, rules and grants in an empty database. Runs inside the caller's transaction.
bool install(PgConnection& link, StoreError* error);

/// Makes the same objects in another schema of the database of a store, to compare with. Runs inside the caller's
/// transaction, and sets its search path.
bool installAside(PgConnection& link, const QByteArray& schema, StoreError* error);

/// Takes the steps that a store of \a from lacks, and makes all functions, triggers and views anew. Runs inside the
/// caller's transaction.
bool upgrade(PgConnection& link, int from, StoreError* error);

/// Fills the index of the search anew. Runs inside the caller's transaction.
bool rebuildSearch(PgConnection& link, StoreError* error);

/// The version of the store in the database; -1 with the reason when there is none.
int versionOf(PgConnection& link, StoreError* error);
/// Whether the database is a store of this version.
bool isOurs(PgConnection& link, StoreError* error);

/// Declared table and field of every column, by the server's numbers of table and column.
bool columns(PgConnection& link, QHash<QPair<Oid, int>, QPair<QByteArray, QByteArray>>* columns,
             StoreError* error);

/// A name as it stands in a statement.
QByteArray identifier(const QString& name);
QByteArray literal(const QByteArray& text);

/// The values of a row as the change log keeps them, as an expression.
QByteArray rowOf(const CatalogTable& table, const QByteArray& alias);
} // namespace PostgresSchema
