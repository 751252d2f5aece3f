#pragma once

#include "DemoClock.h"
#include "DemoJournal.h"

class DemoPast;

/// The story of the open night shift of the dispatching service: some thirty-five records that contain
/// every state, marker and attachment of a record. Its times assume a shift that begins at 20:00 and move
/// with its real start.
class DemoStory
{
public:
    DemoStory(DemoJournal* journal, const DemoClock::Story& clock);

    /// \a past must be written before: one record is copied from it.
    void write(DemoPast* past, qint64 now);

private:
    using Values = DemoFiller::Values;

    void writeEvening();
    void writeOrders();
    void writeAccident();
    void writeMidnight();
    void writeRepair();
    void writeLateHours(DemoPast* past);
    void writeSince(qint64 now);
    void attach(const QByteArray& record);

    /// The real time of a time of day of the story.
    qint64 at(int hour, int minute, int second = 0) const;
    /// That time as shown text.
    QString shown(int hour, int minute, const char* format = "hh:mm") const;
    /// A record of this template by this author, about an event at this time; not written to the journal
    /// yet.
    DemoRecord entry(const DemoPerson& author, qint64 time, const QString& kind, const Values& values = {});
    QByteArray add(const DemoRecord& record);

    DemoJournal* m_journal;
    DemoClock::Story m_clock;
    DemoShift m_shift;
    DemoFiller m_filler;
    const DemoPerson& m_senior;    ///< opened the shift
    const DemoPerson& m_colleague; ///< the other dispatcher
    const DemoPerson& m_chief;
};
