#pragma once

#include <QtGlobal>

/// When the demo's shifts are, in the zone of the process. Shifts change at 08:00 and at 20:00.
namespace DemoClock
{
/// Start of the shift of the timetable that runs at \a now.
qint64 shiftStart(qint64 now);
/// The next change of shifts after \a time.
qint64 nextChange(qint64 time);
/// A time of day so many days before the day of \a time.
qint64 daysBefore(qint64 time, int days, int hour, int minute = 0);

/// The night shift of the story.
struct Story {
    qint64 start; ///< of the shift and of the story: its "20:00"
    qint64 end;   ///< always in the future
};
/// The story takes six hours and twenty minutes. It is laid so that it is over shortly before \a now, or some hours ago
/// when that is what it takes to keep its night: after midnight it is last night's, by day it is last night's in a shift
/// prolonged to the evening, and in the evening, when the night has hardly begun, it starts that much before 20:00.
Story story(qint64 now);
} // namespace DemoClock
