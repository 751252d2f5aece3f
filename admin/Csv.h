#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// Tables as a spreadsheet keeps them in a text file.
namespace Csv
{
struct Row {
    int line = 0; ///< of the file, from 1, where the row begins
    QStringList cells;
};

/// Reads UTF-8 with or without a mark, UTF-16 with one, else Windows-1251; cells parted by semicolon, comma or tab,
/// whichever the first row holds most of; quoted cells may hold separators, doubled quotes and line ends. Blank rows
/// are passed over. False, and \a error names the line: a quote that is not closed or has text behind it.
bool read(const QByteArray& bytes, QVector<Row>* rows, QString* error);

/// A file that a Russian spreadsheet opens by double click: UTF-8 with a mark, semicolons, CRLF.
QByteArray write(const QVector<QStringList>& rows);
} // namespace Csv
