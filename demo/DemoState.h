#pragma once

#include "Store.h"

#include <QByteArray>
#include <QString>

/// The demo's notes about its store, kept as a named file in the store.
struct DemoState {
    qint64 number = 0; ///< number of the demo's own last transaction; -1 if others have written in between
    qint64 end = 0;    ///< of the night shift

    /// False if the store has none, or none that can be read.
    bool read(Store* store);
    bool write(const QString& url, StoreError* error) const;
};
