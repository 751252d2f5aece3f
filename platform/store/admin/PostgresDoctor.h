#pragma once

#include "StoreAdmin.h"

/// Checks whether a server is fit for a store: reachable, of the right version, in the right encoding, safe
/// against power cuts and against eavesdropping.
namespace PostgresDoctor
{
QVector<StoreAdmin::Symptom> examine(const QString& url);
} // namespace PostgresDoctor
