#pragma once

#include "VrkExport.h"

#include <QDateTime>

/// HfnTime is a time as a double: whole seconds since 1970-01-01 00:00 UTC; 0 means no time. Ten significant digits
/// express it exactly. A time of day is stored as its seconds since midnight and is never converted. Times are shown
/// in the time zone of the process.

VRK_EXPORT double DateTime_To_HfnTime(const QDateTime& time);
/// \a reserved is -1 in all calls. 0 returns an invalid time.
VRK_EXPORT QDateTime HfnTime_to_DateTime(double time, int reserved);
