#pragma once

#include "DemoClock.h"
#include "DemoScript.h"

class DemoPast;

/// The story of the open night shift of the dispatching service, story.txt: some thirty-five records that
/// contain every state, marker and attachment of a record. Its times assume a shift that begins at 20:00 and move
/// with its real start.
class DemoStory
{
public:
    DemoStory(DemoJournal* journal, const DemoClock::Story& clock);

    /// \a past must be written before: one record is copied from it.
    void write(const DemoPast& past, qint64 now);

private:
    void paste(const DemoText::Block& block, const DemoPerson& author, const DemoPast& past);
    void writeSince(qint64 end, qint64 now);

    DemoJournal* m_journal;
    DemoShift m_shift;
    DemoFiller m_filler;
    DemoScript m_script;
};
