#pragma once

#include "Store.h"

#include <QHash>
#include <QSet>

/// The workshifts before a day that may leave the journal: the closed ones, except the last of each department, after
/// which the next one begins, and those with a record that one in a remaining shift replaces. What is removed stays
/// in the change log. For a store opened in the role of imports.
class OldShifts
{
public:
    struct Shift {
        QByteArray key;
        QByteArray department;
        double start = 0;
        double end = 0;
        bool isNeeded = false; ///< by a record of a shift that remains
        /// The keys of its rows by the places of tables().
        QVector<QSet<QByteArray>> rows;
    };
    /// The tables with the rows of a shift, in the order in which they can be removed.
    enum Table { Files, Comments, Records, Crew, Shifts };
    static const QByteArrayList& tables();

    explicit OldShifts(Store* loader) : m_store(loader) {}
    /// Those that ended before \a before, the oldest first, of one department unless it is empty. False if the store
    /// cannot be read.
    bool load(double before, const QByteArray& department, StoreError* error);
    /// Those that may leave, and those that are needed.
    const QVector<Shift>& leaving() const { return m_leaving; }
    const QVector<Shift>& staying() const { return m_staying; }

    enum class Outcome { Removed, Changed, Failed };
    /// Removes a shift with its rows in one transaction. Changed, and nothing is removed, if somebody wrote to it after
    /// load().
    Outcome remove(const Shift& shift, StoreError* error);

private:
    QSet<QByteArray> keys(const QByteArray& sql, StoreError* error) const;
    bool loadRows(Shift* shift, StoreError* error) const;
    /// Marks what is needed, also by what is needed itself.
    bool findNeeded(QVector<Shift>* shifts, StoreError* error) const;
    /// Adds the rows that were written after the last reading.
    bool readNews(StoreError* error);

    Store* m_store;
    QVector<Shift> m_leaving;
    QVector<Shift> m_staying;
    qint64 m_known = 0;         ///< number of the last transaction that was read
    QSet<QByteArray> m_written; ///< keys of the rows that were written since load()
};
