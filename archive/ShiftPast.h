#pragma once

#include "RowChange.h"

#include <QHash>
#include <QMap>

/// A workshift with its crew, records, comments and files as they were after any of its changes.
class ShiftPast
{
public:
    ShiftPast() = default;
    /// \a changes are in the order of the log.
    explicit ShiftPast(const QVector<RowChange>& changes);

    const QVector<RowChange>& changes() const { return m_changes; }
    /// The place of the last change until \a time; -1 before the first one.
    int placeAt(double time) const;
    /// The state after the next transaction, and after the one before; the same place if there is none.
    int next(int place) const;
    int previous(int place) const;

    /// The rows of a table after the change at \a place, by their keys: each its last change until then.
    QMap<QByteArray, const RowChange*> rows(const QByteArray& table, int place) const;

private:
    /// The last change of the transaction to which \a place belongs.
    int endOf(int place) const;

    QVector<RowChange> m_changes;
};
