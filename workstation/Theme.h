#pragma once

#include <QString>

/// The colours of the workstation: light for the day, dark for the night shift.
namespace Theme
{
/// Applies a theme to the whole application: "light", "dark", or "system" for the desktop's own colours.
/// False without a change for another name.
bool apply(const QString& name);
/// The current theme.
QString current();
/// The user's choice in an earlier session; "system" if there is none.
QString remembered();
/// Switches between light and dark and remembers the choice.
void toggle();
} // namespace Theme
