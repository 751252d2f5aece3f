#include "DemoPast.h"

#include "DemoScript.h"
#include "DemoStore.h"

#include <algorithm>
#include <QDateTime>

namespace
{
constexpr int minute = 60;
constexpr int shiftsOfFortnight = 28;
constexpr int stormRecords = 400;
constexpr quint32 seed = 20261;

using Network = DemoNetwork;

bool isNight(const DemoShift& shift)
{
    return QDateTime::fromSecsSinceEpoch(shift.start).time().hour() == 20;
}
} // namespace

DemoPast::DemoPast(DemoJournal* journal) : m_journal(journal) {}

void DemoPast::write(qint64 now, const DemoClock::Story& story)
{
    for (int department = 0; department < Network::DepartmentCount; ++department)
        writeDepartment(department, now, story);
    writeRunning(Network::Ods, now);
    writeRunning(Network::Zarechnaya, now);
    writeRepair(now);
    writeYearAgo(now);
}

void DemoPast::writeDepartment(int department, qint64 now, const DemoClock::Story& story)
{
    const qint64 until = department == Network::Cds ? story.start : DemoClock::shiftStart(now);
    QVector<qint64> starts;
    for (int day = 16; day >= 0; --day)
        for (int change : {8, 20}) {
            const qint64 start = DemoClock::daysBefore(now, day, change);
            if (start < until)
                starts.append(start);
        }
    starts = starts.mid(starts.size() - shiftsOfFortnight);

    DemoFiller filler(m_journal->network(), seed + static_cast<quint32>(department));
    const QVector<const DemoTemplate*> kinds = m_journal->recordsOf(department);
    int storm = starts.size() - 10;
    for (int i = 0; i < starts.size(); ++i) {
        const qint64 end = std::min(DemoClock::nextChange(starts[i]), until);
        // The crews take turns so that the crew after the last shift is the first one again.
        DemoShift shift =
            m_journal->plan(department, starts[i], end, i - starts.size() + 12 * shiftsOfFortnight);
        const bool last = i + 1 == starts.size();
        shift.open = last && department == Network::Lugovaya; // the one that nobody closed in time
        if (last && department == Network::Cds)
            writeChief(&shift, &filler);
        m_journal->add(shift);
        m_shifts.append(shift);
        m_journal->opening(shift, &filler, shift.start + filler.number(1, 6) * minute);
        if (department == Network::Cds && i >= storm && isNight(shift)) {
            writeStorm(shift, &filler);
            storm = starts.size(); // one is enough
        } else {
            const int most = department == Network::Cds ? 39 : 25;
            m_journal->routine(shift, &filler, filler.number(6, most), shift.start + 10 * minute,
                               shift.end - 20 * minute, kinds);
        }
        if (!shift.open)
            m_journal->closing(shift, &filler, shift.end - filler.number(2, 9) * minute);
    }
}

void DemoPast::writeRunning(int department, qint64 now)
{
    DemoFiller filler(m_journal->network(), seed + 100 + static_cast<quint32>(department));
    const qint64 start = DemoClock::shiftStart(now);
    DemoShift shift = m_journal->plan(department, start, DemoClock::nextChange(now), 0);
    shift.open = true;
    m_journal->add(shift);
    m_shifts.append(shift);
    m_journal->opening(shift, &filler, std::min(start + minute, now));
    m_journal->routine(shift, &filler, filler.number(8, 20), start + 2 * minute, now - 8 * minute,
                       m_journal->recordsOf(department));
}

void DemoPast::writeStorm(const DemoShift& shift, DemoFiller* filler)
{
    m_journal->routine(shift, filler, stormRecords - 2, shift.start + 10 * minute, shift.end - 20 * minute,
                       m_journal->everydayRecords(QStringLiteral("storm")));
}

/// The chief replaces a dispatcher; three comments on his records are unread.
void DemoPast::writeChief(DemoShift* shift, DemoFiller* filler)
{
    shift->crew.append(&m_journal->network().person(DemoStore::chief()));
    const qint64 start = shift->start;
    const DemoScript script(m_journal, QStringLiteral("chief"), 3 * minute,
                            [start](int, const QTime& time) { return start + QTime(0, 0).secsTo(time); });
    for (const DemoText::Block& block : DemoText::blocks(QStringLiteral("chief.txt")))
        script.write(block, *shift, script.record(block, *shift, filler));
}

void DemoPast::writeRepair(qint64 now)
{
    const DemoScript script(m_journal, QStringLiteral("repair"), 2 * minute,
                            [now](int day, const QTime& time) {
                                return DemoClock::daysBefore(now, 9 - day, time.hour(), time.minute());
                            });
    for (const DemoText::Block& block : DemoText::blocks(QStringLiteral("repair.txt"))) {
        const qint64 time = script.eventTime(block);
        const DemoShift shift = shiftAt(Network::Cds, time);
        if (shift.key.isEmpty())
            continue; // on this day the story's shift began earlier than in the timetable
        DemoFiller filler(m_journal->network(), static_cast<quint32>(time));
        DemoRecord record = script.record(block, shift, &filler);
        if (record.secondMarkTime > 0)
            record.secondMarkWorker = shiftAt(Network::Cds, record.secondMarkTime).crew.first();
        script.write(block, shift, record);
    }
}

void DemoPast::writeYearAgo(qint64 now)
{
    DemoFiller filler(m_journal->network(), seed + 200);
    const DemoPerson& gone = m_journal->network().person(QStringLiteral("beregov"));
    const QVector<const DemoTemplate*> kinds = m_journal->recordsOf(Network::Cds);
    for (int day = 395; day > 365; --day)
        for (int change : {8, 20}) {
            const qint64 start = DemoClock::daysBefore(now, day, change);
            DemoShift shift =
                m_journal->plan(Network::Cds, start, DemoClock::nextChange(start), 2 * day + change / 20);
            if (day % 2 == 0)
                shift.crew[0] = &gone;
            m_journal->add(shift);
            m_journal->opening(shift, &filler, start + 3 * minute);
            m_journal->routine(shift, &filler, filler.number(4, 11), start + 10 * minute,
                               shift.end - 20 * minute, kinds);
            m_journal->closing(shift, &filler, shift.end - 5 * minute);
        }
}

DemoShift DemoPast::shiftAt(int department, qint64 time) const
{
    for (const DemoShift& shift : m_shifts)
        if (shift.department == department && shift.start <= time && time < shift.end)
            return shift;
    return {};
}
