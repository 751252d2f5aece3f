#pragma once

#include "StoreError.h"

#include <QString>

/// The accounts that seal the change log on a server, as roles of the server. They read the log and write
/// only the evidence, so that neither a person nor the owner of the database holds the key.
namespace PostgresSealer
{
/// Creates the role of an account, or enables an existing one. Refused for whom the journal knows as a
/// person, and for administrators of the server: they could change what they seal.
bool admit(const QString& url, const QString& login, StoreError* error);
/// Disables the account and ends its sessions.
bool dismiss(const QString& url, const QString& login, StoreError* error);
/// Whether the role of this name seals.
bool isAdmitted(const QString& url, const QString& login, bool* admitted, StoreError* error);
} // namespace PostgresSealer
