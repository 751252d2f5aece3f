#pragma once

#include <QString>
#include <QStringList>

/// The journal's texts with values in them, and its warning log.
namespace LogText
{
/// Fills %1, %2 and so on, any number of them, in one pass: what a value holds is never taken for a placeholder.
/// A number without a value stays as it is.
QString fill(const QString& format, const QStringList& values);
/// One line of the warning log: the function's signature, a blank, the text.
void warn(const QString& signature, const QString& text);
/// A message box's text as one centred block.
QString centered(const QString& text);
} // namespace LogText
