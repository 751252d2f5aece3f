#pragma once

#include "VrkExport.h"

#include <QStringList>

/// How type-ahead finds names: every typed word must be part of the name, ignoring case; ё and е are equal,
/// and so are all kinds of dashes and of spaces.
namespace TextMatch
{
/// The form used to compare texts. Each character maps to one character, so positions are unchanged.
VRK_EXPORT QString folded(const QString& text);
/// The words of a query, folded.
VRK_EXPORT QStringList parts(const QString& query);
/// True if the folded text contains every part; no parts match everything.
VRK_EXPORT bool matches(const QString& foldedText, const QStringList& parts);
/// True if a word of the folded text begins with the part: such names are offered first.
VRK_EXPORT bool beginsWord(const QString& foldedText, const QString& part);
} // namespace TextMatch
