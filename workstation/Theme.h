#pragma once

#include <QStringList>

/// The colours of the workstation: light for the day, dark for the night shift.
namespace Theme
{
/// Every theme: "light", "dark", "system" for the desktop's own colours, "contrast" for eyes that see badly.
QStringList names();
bool isKnown(const QString& name);
/// Applies a theme to the whole application, at once. False without a change for an unknown name.
bool apply(const QString& name);
/// The current theme.
QString current();
/// The last choice on this computer; "system" if there is none.
QString remembered();
/// Switches between light and dark and remembers the choice.
void toggle();
} // namespace Theme
