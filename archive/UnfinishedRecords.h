#pragma once

#include "CMDArray.h"

#include <QString>

class Row;

/// Finds the records of a department in which something is unfinished (RecordRules).
namespace UnfinishedRecords
{
/// A select of the records that may be unfinished and meet a condition: R is the record, W its workshift.
QString select(const QByteArray& departmentKey, const QString& condition);
/// The same for records written at this time or later.
QString selectSince(const QByteArray& departmentKey, double time);
/// A combination of RecordRules::Lack.
int lacksOf(const Row& record, bool isShiftClosed);
/// Appends the unfinished records of an answer to \a judged, which has the fields of a RecordList, with what they lack.
void judge(const MDArray* answer, CMDArray* judged);
} // namespace UnfinishedRecords
