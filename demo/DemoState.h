#pragma once

#include "Store.h"

#include <QByteArray>
#include <QString>

/// What the demo remembers of its store, kept as a named file in it.
struct DemoState {
    qint64 number = 0; ///< of the last transaction that was the demo's own; -1 when others wrote in between
    qint64 end = 0;    ///< of the night shift

    /// False when the store has none, or none that can be read.
    bool read(Store* store);
    bool write(const QString& url, StoreError* error) const;
};
