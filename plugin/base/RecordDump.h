#pragma once

#include "CMDArray.h"

#include <QString>

class QTextCodec;

/// Prints record arrays to the message log, for debugging. Each dump begins with a line with the caller's
/// function signature and a title. A null array prints nothing.
namespace RecordDump
{
/// One line for each field: its number and its name.
void printStruct(const CMDArray* table, const QString& signature, const QString& title);
/// One line for each key.
void printKeys(const CMDArray* table, const QString& signature, const QString& title);
/// The record's address, its flags, and one line for each field: name, type, value.
void printRecord(const QTextCodec* codec, const CMDArray* table, const MDRData* record,
                 const QString& signature, const QString& title);
/// All records; \a signature is that of the function for one record.
void printTable(const QTextCodec* codec, const CMDArray* table, const QString& signature,
                const QString& title);
} // namespace RecordDump
