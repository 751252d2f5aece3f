#pragma once

#include <QString>

class QByteArray;

/// Tells files that could run as a program from documents: by the name, as desktops choose what to do with a file, and
/// by how the content begins, as the system itself does.
namespace RunnableFile
{
bool is(const QString& path);
bool isName(const QString& name);
/// \a head is the beginning of the file.
bool isContent(const QByteArray& head);
} // namespace RunnableFile
