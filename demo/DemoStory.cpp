#include "DemoStory.h"

#include "DemoKey.h"
#include "DemoPast.h"

namespace
{
constexpr int minute = 60;
constexpr int hour = 3600;
constexpr int day = 24 * hour;
constexpr int length = 6 * hour + 20 * minute;
constexpr quint32 seed = 2217;

DemoScript::Clock clockFrom(qint64 start)
{
    return [start](int afterDays, const QTime& time) {
        const int sinceEight = QTime(20, 0).secsTo(time);
        return start + afterDays * day + (sinceEight + day) % day;
    };
}
} // namespace

DemoStory::DemoStory(DemoJournal* journal, const DemoClock::Story& clock)
    : m_journal(journal),
      m_shift(journal->plan(DemoNetwork::Cds, clock.start, clock.end, 0)),
      m_filler(journal->network(), seed),
      m_script(journal, QStringLiteral("story %1").arg(clock.start), minute, clockFrom(clock.start))
{
    m_shift.open = true;
}

void DemoStory::write(const DemoPast& past, qint64 now)
{
    m_journal->add(m_shift);
    for (const DemoText::Block& block : DemoText::blocks(QStringLiteral("story.txt"))) {
        const DemoText::Line* pasted = block.line(QStringLiteral("pasted"));
        if (pasted)
            paste(block, m_journal->network().person(pasted->value), past);
        else
            m_script.write(block, m_shift, m_script.record(block, m_shift, &m_filler));
    }
    writeSince(m_shift.start + length, now);
}

/// A record of a neighbouring department, copied and pasted here: a draft with the times of its source.
void DemoStory::paste(const DemoText::Block& block, const DemoPerson& author, const DemoPast& past)
{
    const DemoShift neighbours = past.shiftAt(DemoNetwork::Zarechnaya, m_script.eventTime(block));
    DemoRecord record = m_script.record(block, m_shift, &m_filler, neighbours.crew.first());
    m_journal->add(neighbours, record);
    record.key = demoKey(QStringLiteral("story %1 pasted").arg(m_shift.start));
    record.author = &author;
    record.status = StatusDraft;
    m_journal->add(m_shift, record);
}

/// The records written since the end of the story, if it ended hours ago.
void DemoStory::writeSince(qint64 end, qint64 now)
{
    m_journal->routine(m_shift, &m_filler, static_cast<int>((now - end) / hour), end + 20 * minute,
                       now - 10 * minute, m_journal->everydayRecords(QStringLiteral("since")));
}
