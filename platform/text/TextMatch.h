#pragma once

#include "VrkExport.h"

#include <QStringList>

/// How type-ahead finds names: every word typed is a part of the name, whatever the case; ё and е are one
/// letter, and so are all kinds of dashes and of blanks.
namespace TextMatch
{
/// The form in which texts are compared. One character for one: positions stay.
VRK_EXPORT QString folded(const QString& text);
/// The words of a query, folded.
VRK_EXPORT QStringList parts(const QString& query);
/// True when every part stands in the folded text; no parts match everything.
VRK_EXPORT bool matches(const QString& foldedText, const QStringList& parts);
/// True when the part begins a word of the folded text: such names are offered first.
VRK_EXPORT bool beginsWord(const QString& foldedText, const QString& part);
} // namespace TextMatch
