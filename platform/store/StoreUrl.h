#pragma once

#include "StoreError.h"

/// The parsed address of a store: "sqlite:///absolute/path" (percent-encoded where needed),
/// "postgresql://...".
struct StoreUrl {
    enum Engine { None, Sqlite, PostgreSql };

    explicit StoreUrl(const QString& url);
    /// Why no store can be opened at this address.
    StoreError error() const;
    /// The address for display and logs: without a password.
    QString shown() const;
    /// The address without its password, safe to keep.
    QString withoutPassword() const;
    /// The login in the address of a server; empty if there is none.
    QString login() const;

    QString url;
    Engine engine = None;
    QString file; ///< of SQLite
};
