#pragma once

#include <QString>

class QByteArray;

/// Distinguishes files that could run as a program from documents: by the name, like desktops do, and by
/// the beginning of the content, like the system does.
namespace RunnableFile
{
bool is(const QString& path);
bool isName(const QString& name);
/// \a head is the beginning of the file.
bool isContent(const QByteArray& head);
} // namespace RunnableFile
