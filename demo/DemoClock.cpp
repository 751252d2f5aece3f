#include "DemoClock.h"

#include <algorithm>
#include <QDateTime>

namespace
{
constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr qint64 storyLength = 6 * hour + 25 * minute; // plus some minutes up to now
constexpr int dayChange = 8;
constexpr int nightChange = 20;

qint64 on(const QDate& date, int ofHour, int ofMinute = 0)
{
    return QDateTime(date, QTime(ofHour, ofMinute)).toSecsSinceEpoch();
}
} // namespace

qint64 DemoClock::shiftStart(qint64 now)
{
    const QDateTime time = QDateTime::fromSecsSinceEpoch(now);
    if (time.time().hour() >= nightChange)
        return on(time.date(), nightChange);
    if (time.time().hour() >= dayChange)
        return on(time.date(), dayChange);
    return on(time.date().addDays(-1), nightChange);
}

qint64 DemoClock::nextChange(qint64 time)
{
    const QDateTime start = QDateTime::fromSecsSinceEpoch(shiftStart(time));
    return start.time().hour() == nightChange ? on(start.date().addDays(1), dayChange)
                                              : on(start.date(), nightChange);
}

qint64 DemoClock::daysBefore(qint64 time, int days, int ofHour, int ofMinute)
{
    return on(QDateTime::fromSecsSinceEpoch(time).date().addDays(-days), ofHour, ofMinute);
}

DemoClock::Story DemoClock::story(qint64 now)
{
    Story story{shiftStart(now), nextChange(now)};
    if (QDateTime::fromSecsSinceEpoch(story.start).time().hour() == dayChange)
        story.start = daysBefore(now, 1, nightChange);
    else if (now - story.start < storyLength)
        story.start = (now - storyLength) / (5 * minute) * (5 * minute);
    story.end = std::max(story.end, (now / hour + 2) * hour); // at least an hour to go
    return story;
}
