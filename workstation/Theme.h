#pragma once

#include <QString>

/// The colours of the workstation: light for the day, dark for the night shift.
namespace Theme
{
/// Puts the theme on the whole application: "light", "dark", or "system" for the desktop's own colours. False and no
/// change for another name.
bool apply(const QString& name);
/// The theme in force.
QString current();
/// The user's choice of an earlier session; "system" when there is none.
QString remembered();
/// Applies the other of light and dark and remembers it.
void toggle();
} // namespace Theme
