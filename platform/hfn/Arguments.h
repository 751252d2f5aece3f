#pragma once

#include <QStringList>

/// Options in the arguments of a command.
namespace Arguments
{
/// Removes an option without a value; false if it is not there.
bool takeFlag(QStringList* arguments, const QString& option);
/// Removes an option and its value; a null text if it is not there or has no value.
QString takeValue(QStringList* arguments, const QString& option);
/// A time as users type it (d.M.yyyy h:mm, in the zone of the process); 0 if the text is none.
double timeOf(const QString& text);
} // namespace Arguments
