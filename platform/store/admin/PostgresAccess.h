#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// Access to a store's database apart from the store's own tables: the database itself, the server's
/// functions, the language of statements. A server gives every login more than persons need, and some of it
/// can block everybody else.
namespace PostgresAccess
{
/// Closes the database of \a link to everybody but its clients, and to them everything that could harm
/// others. Runs inside the caller's transaction.
bool close(PgConnection& link, StoreError* error);
/// Reverses close(). Runs inside the caller's transaction.
bool reopen(PgConnection& link, StoreError* error);

/// A condition on the column of a function's name: the functions that close() revokes from everybody.
QByteArray isClosed(const QByteArray& name);

/// The symptoms for a doctor's report.
void examine(PgConnection& link, QVector<StoreAdmin::Symptom>* symptoms);
} // namespace PostgresAccess
