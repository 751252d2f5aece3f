#pragma once

#include <QString>
#include <QStringList>

/// The journal's texts with values, and its warning log.
namespace LogText
{
/// Replaces %1, %2 and so on, any number of them, in one pass: the content of a value is never taken for a
/// placeholder. A number without a value is unchanged.
QString fill(const QString& format, const QStringList& values);
/// Writes one line to the warning log: the function's signature, a space, the text.
void warn(const QString& signature, const QString& text);
/// A message box's text as one centred block.
QString centered(const QString& text);
} // namespace LogText
