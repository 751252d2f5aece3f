#pragma once

/// Descriptor tables of the journal: the fields of its tables, in the order on which server and client agree.

#include "Fields.h"

extern VRK_EXPORT const MDRFieldDescr LogbookWorkshiftFields[7];
extern VRK_EXPORT const MDRFieldDescr LogbookWorkersWorkshiftFields[4];
extern VRK_EXPORT const MDRFieldDescr LogbookRecordFields[15];
/// The fields of LogbookRecordFields, then three that exist only in the client: file, comment, object.
extern VRK_EXPORT const MDRFieldDescr LogbookRecordExtFields[18];
extern VRK_EXPORT const MDRFieldDescr LogbookCommentFields[6];
extern VRK_EXPORT const MDRFieldDescr LogbookFilesFields[5];
extern VRK_EXPORT const MDRFieldDescr LogbookTemplatesFields[4];
extern VRK_EXPORT const MDRFieldDescr LogbookCatsTemplateFields[5];

/// Number of rows of a descriptor table.
template <int N>
constexpr int fieldCount(const MDRFieldDescr (&)[N])
{
    return N;
}

/// Values of LogbookRecords.status.
enum RecordStatus { StatusApproved = 0, StatusDraft = 1, StatusDeleted = 2 };
/// Values of LogbookRecords.direction.
enum RecordDirection { DirectionNone = 0, DirectionLeft = 1, DirectionRight = 2 };
