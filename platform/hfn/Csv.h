#pragma once

#include "VrkExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// Tables in the text format of spreadsheets.
namespace Csv
{
struct Row {
    int line = 0; ///< line of the file, from 1, where the row begins
    QStringList cells;
};

/// Reads UTF-8 with or without a byte order mark, UTF-16 with one, otherwise Windows-1251; cells are
/// separated by semicolon, comma or tab, the one that occurs most often in the first row; quoted cells may
/// contain separators, doubled quotes and line ends. Blank rows are ignored. False, and \a error names the
/// line, if a quote is not closed or followed by text.
VRK_EXPORT bool read(const QByteArray& bytes, QVector<Row>* rows, QString* error);

/// A file that a Russian spreadsheet opens by double click: UTF-8 with a byte order mark, semicolons, CRLF.
VRK_EXPORT QByteArray write(const QVector<QStringList>& rows);
/// A cell for a file that people open in a spreadsheet: a text that it would run as a formula gets an apostrophe. Not
/// for files that are read again.
VRK_EXPORT QString harmless(const QString& cell);
} // namespace Csv
