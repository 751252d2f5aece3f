#pragma once

#include "Store.h"

/// The workshifts of a department as an administrator sees them: the latest first.
class ShiftBook
{
public:
    struct Shift {
        QByteArray key;
        bool isOpen = false;
        double start = 0; ///< 0 when there is none
        double end = 0;
    };
    /// What an administrator has changed in a shift, and why.
    struct Correction {
        double time = 0;
        QString reason;
    };

    /// False when the store cannot be read.
    bool load(Store* store, const QByteArray& departmentKey, StoreError* error);
    /// The one behind which the next shift begins, by the rule of the store; null when there is none.
    const Shift* last() const { return m_shifts.isEmpty() ? nullptr : &m_shifts.first(); }
    /// Null when the department has no such shift.
    const Shift* find(const QByteArray& key) const;
    /// The shifts that may be corrected: the open ones and the last.
    QVector<Shift> correctable() const;
    /// Why a shift cannot get these bounds; empty when it can.
    QString refusal(const QByteArray& key, double start, double end, int longestShift) const;

    /// Writes the bounds past the rules of the journal, under a transaction of the log that names the reason.
    static bool correct(Store* loader, const QByteArray& key, double start, double end, const QString& reason,
                        StoreError* error);
    static QVector<Correction> corrections(Store* store, const QByteArray& key, StoreError* error);

    /// "01.02.2026 08:00" in the zone of the process; a dash where there is no time that can be shown.
    static QString shown(double time);

private:
    QVector<Shift> m_shifts;
};
