#pragma once

#include <QString>

class QTextCodec;

/// Names of attached files on their way between the user's disk and the journal.
namespace FileNames
{
/// The name with "_" for each character that the code page lacks.
QString fitted(const QString& name, const QTextCodec* codec);
/// A name that stays in the folder it is put into, whatever the journal holds: the last component alone, cut to what a
/// file system takes with the suffix kept. Never empty.
QString local(const QString& name);
/// The name as it is shown in a question: without the marks that turn the direction of writing, behind which the real
/// suffix could hide.
QString shown(const QString& name);
} // namespace FileNames
