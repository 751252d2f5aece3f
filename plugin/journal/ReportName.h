#pragma once

#include <QDateTime>
#include <QString>
#include <QTextCodec>

struct ShownJournal;

/// The name proposed for the file of a report: the department, the date on which the shift began, and the shift's name
/// in the timetable, or "день" and "ночь" if it begins at another time. An interval has its first and its last day
/// instead.
QString reportName(const QString& department, const ShownJournal& shown, const QDateTime& start,
                   const QDateTime& end, const QTextCodec* codec);
