#pragma once

#include <QtGlobal>

/// The times of the demo's shifts, in the zone of the process. Shifts change at 08:00 and at 20:00.
namespace DemoClock
{
/// Start of the timetable's shift that is running at \a now.
qint64 shiftStart(qint64 now);
/// The first change of shifts after \a time.
qint64 nextChange(qint64 time);
/// A time of day, the given number of days before the day of \a time.
qint64 daysBefore(qint64 time, int days, int hour, int minute = 0);

/// The night shift of the story.
struct Story {
    qint64 start; ///< of the shift and of the story: its "20:00"
    qint64 end;   ///< always in the future
};
/// The story takes six hours and twenty minutes. It is placed so that it ends shortly before \a now, or
/// some hours earlier if it must remain a night: after midnight it is in this night; by day it is in the
/// last night, in a shift extended to the evening; in the evening, when the night has just begun, it starts
/// correspondingly before 20:00.
Story story(qint64 now);
} // namespace DemoClock
