#include "HfnTime.h"

#include <cmath>

namespace
{
// The years 1 to 9999: what a date-time can show.
constexpr double firstTime = -62135596800.0;
constexpr double lastTime = 253402300799.0;
} // namespace

double DateTime_To_HfnTime(const QDateTime& time)
{
    if (!time.isValid())
        return 0.0;
    return std::floor(static_cast<double>(time.toMSecsSinceEpoch()) / 1000.0);
}

QDateTime HfnTime_to_DateTime(double time, int)
{
    if (time == 0.0 || !(time >= firstTime && time <= lastTime))
        return {};
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(time)));
}
