#pragma once

#include <QVariant>

/// The values of changed fields, as the change log has them.
namespace LogValue
{
constexpr double earliestTime = 1e8; // numbers with a fraction above it are times

/// Whether a number is a time. Times of a day and other numbers are smaller.
inline bool isTime(const QVariant& value)
{
    return value.userType() == QMetaType::Double && value.toDouble() >= earliestTime;
}
} // namespace LogValue
