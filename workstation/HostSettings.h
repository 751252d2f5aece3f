#pragma once

#include <QString>

/// Settings that the workstation keeps for the user of this computer.
namespace HostSettings
{
/// Sets the organisation and application used by every QSettings of the process. Copies once the settings
/// that an earlier version kept without an organisation.
void useOwnPlace();
/// The folder for typed texts that are not saved yet (KeptTexts).
QString keptTextsFolder();
} // namespace HostSettings
