#pragma once

#include "StoreAdmin.h"

class PgConnection;

/// Who may do what in the database of a store besides the store's own tables: the database itself, the functions of the
/// server, the language that any statement may be written in. A server gives every login more than persons need, and some
/// of it holds up all others.
namespace PostgresAccess
{
/// Closes the database of \a link to everybody but its clients, and to them what they could harm the others with. Runs
/// inside the caller's transaction.
bool close(PgConnection& link, StoreError* error);
/// Takes that back. Runs inside the caller's transaction.
bool reopen(PgConnection& link, StoreError* error);

/// A condition on the column of a function's name: what close() takes from everybody.
QByteArray isClosed(const QByteArray& name);

/// What a doctor has to say of it.
void examine(PgConnection& link, QVector<StoreAdmin::Symptom>* symptoms);
} // namespace PostgresAccess
