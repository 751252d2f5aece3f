#pragma once

#include <QStringList>

class QTextCodec;
class Row;

/// What a record names in its template: markers and equipment.
namespace RecordThings
{
/// Paths of the pictures of its markers: the first one, and the second one if it is set.
QStringList markers(const Row& record);
/// The substations, lines, bays and pieces of equipment in its parameters, without repetitions.
QStringList equipment(const Row& record, const QTextCodec* codec);
} // namespace RecordThings
