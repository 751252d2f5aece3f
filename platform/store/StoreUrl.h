#pragma once

#include "StoreError.h"

/// The address of a store taken apart: "sqlite:///absolute/path" (percent-encoded where needed), "postgresql://...".
struct StoreUrl {
    enum Engine { None, Sqlite, PostgreSql };

    explicit StoreUrl(const QString& url);
    /// Why no store can be opened under this address.
    StoreError error() const;
    /// The address as it may be shown and logged: without a password.
    QString shown() const;
    /// The address without the password in it, as it may be kept.
    QString withoutPassword() const;
    /// The login in the address of a server; empty when there is none.
    QString login() const;

    QString url;
    Engine engine = None;
    QString file; ///< of SQLite
};
