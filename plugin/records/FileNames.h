#pragma once

#include <QString>

class QTextCodec;

/// Names of attached files, converted between the user's disk and the journal.
namespace FileNames
{
/// The name with "_" for each character that the code page does not have.
QString fitted(const QString& name, const QTextCodec* codec);
/// A name that stays in its folder, for any content of the journal: only the last component, truncated to
/// the limit of file systems with the suffix kept. Never empty.
QString local(const QString& name);
/// The name for a question: without the marks that change the direction of writing, which could hide the
/// real suffix.
QString shown(const QString& name);
} // namespace FileNames
