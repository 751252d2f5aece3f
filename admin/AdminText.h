#pragma once

#include <QString>

/// The texts of vrk-admin that are files of this folder.
namespace AdminText
{
/// The whole text of a file such as "help.txt".
QString content(const char* file);
/// A text of the store for one line of a terminal: characters that would move the cursor, change colours, end the
/// line or turn its direction become visible escapes.
QString printable(const QString& text);
} // namespace AdminText
