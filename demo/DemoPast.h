#pragma once

#include "DemoClock.h"
#include "DemoJournal.h"

/// Everything except the story: a fortnight of shifts in five departments with a storm night and a repair
/// over three days, the running shifts of the other departments, and a month one year ago.
class DemoPast
{
public:
    explicit DemoPast(DemoJournal* journal);

    void write(qint64 now, const DemoClock::Story& story);

    /// The shift of a department that covers a time; a shift without key if there is none.
    DemoShift shiftAt(int department, qint64 time) const;

private:
    void writeDepartment(int department, qint64 now, const DemoClock::Story& story);
    void writeRunning(int department, qint64 now);
    void writeStorm(const DemoShift& shift, DemoFiller* filler);
    void writeChief(DemoShift* shift, DemoFiller* filler);
    void writeRepair(qint64 now);
    void writeYearAgo(qint64 now);

    DemoJournal* m_journal;
    QVector<DemoShift> m_shifts; ///< of the fortnight
};
