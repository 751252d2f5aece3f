#pragma once

#include <QString>

/// Where the workstation keeps settings for the user of this computer. UserSettings has those that a person chooses
/// for himself.
namespace HostSettings
{
/// Sets the organisation and application used by every QSettings of the process. Copies once the settings
/// that an earlier version kept without an organisation.
void useOwnPlace();
/// The folder for what this workstation remembers of the histories of stores (HistoryGuard).
QString historyFolder();
/// The folder for typed texts that are not saved yet (KeptTexts).
QString keptTextsFolder();
/// The file for the words that a login has added to his dictionary (SpellDictionary).
QString ownWordsFile(const QString& login);
} // namespace HostSettings
