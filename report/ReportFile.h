#pragma once

#include <QByteArray>
#include <QString>

/// Writes a whole file or nothing: under another name first, then renamed. A reader never sees a part of it.
namespace ReportFile
{
/// Without \a replace an existing file stays as it is, also one that appears in the meantime. False with \a error in the
/// user's words; nothing is left then.
bool write(const QString& file, const QByteArray& bytes, bool replace, QString* error);
/// Writes only what differs from the present content of the file; \a isWritten may be null.
bool update(const QString& file, const QByteArray& bytes, bool* isWritten, QString* error);
} // namespace ReportFile
