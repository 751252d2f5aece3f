#pragma once

#include "CMDArray.h"

#include <QString>

class QTextCodec;

/// Prints record arrays to the message log, for use at the bench. Each dump begins with a line of the signature of the
/// function that asked for it and a title. A null array prints nothing.
namespace RecordDump
{
/// One line a field: its number and its name.
void printStruct(const CMDArray* table, const QString& signature, const QString& title);
/// One line a key.
void printKeys(const CMDArray* table, const QString& signature, const QString& title);
/// The record's address, its flags, and one line a field: name, type, value.
void printRecord(const QTextCodec* codec, const CMDArray* table, const MDRData* record,
                 const QString& signature, const QString& title);
/// All records; \a signature is that of the function for one record.
void printTable(const QTextCodec* codec, const CMDArray* table, const QString& signature,
                const QString& title);
} // namespace RecordDump
