#pragma once

#include "Store.h"

/// The workshifts of a department for an administrator, the latest first.
class ShiftBook
{
public:
    struct Shift {
        QByteArray key;
        bool isOpen = false;
        double start = 0; ///< 0 if there is none
        double end = 0;
    };
    /// An administrator's correction of a shift, and its reason.
    struct Correction {
        double time = 0;
        QString reason;
    };

    /// False if the store cannot be read.
    bool load(Store* store, const QByteArray& departmentKey, StoreError* error);
    /// The shift after which the next one begins, according to the store's rule; null if there is none.
    const Shift* last() const { return m_shifts.isEmpty() ? nullptr : &m_shifts.first(); }
    /// Null if the department has no such shift.
    const Shift* find(const QByteArray& key) const;
    /// The shifts that may be corrected: the open ones and the last.
    QVector<Shift> correctable() const;
    /// Why a shift cannot have these bounds; empty if it can.
    QString refusal(const QByteArray& key, double start, double end, int longestShift) const;

    /// Writes the bounds without the rules of the journal, in a transaction of the log that contains the
    /// reason.
    static bool correct(Store* loader, const QByteArray& key, double start, double end, const QString& reason,
                        StoreError* error);
    static QVector<Correction> corrections(Store* store, const QByteArray& key, StoreError* error);

    /// "01.02.2026 08:00" in the zone of the process; a dash if the time cannot be shown.
    static QString shown(double time);

private:
    QVector<Shift> m_shifts;
};
