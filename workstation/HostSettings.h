#pragma once

#include <QString>

/// Where the workstation keeps what it remembers for the user of this computer.
namespace HostSettings
{
/// Names organisation and application, which every QSettings of the process goes by. What an earlier version kept without
/// an organisation is taken over once.
void useOwnPlace();
/// The folder of what was typed and not written yet (KeptTexts).
QString keptTextsFolder();
} // namespace HostSettings
