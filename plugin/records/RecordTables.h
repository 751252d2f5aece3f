#pragma once

#include "CModelTable.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "RecordPreparer.h"
#include "Row.h"

/// The records of a page with their comments and files. They have their fields before the first answer, so
/// that a failed select does not leave rows of events without fields.
struct RecordTables {
    bool contains(const CModelTable& table) const
    {
        return &table == &records || &table == &comments || &table == &files;
    }
    /// The record of a comment or a file, or null.
    MDRData* recordOf(const Row& attachment) const
    {
        return recordByKeyLink(&records, attachment.copy(Field::RecordKey).constData());
    }

    CModelTable records{LogbookTable::Records, LogbookRecordExtFields, ""};
    CModelTable comments{LogbookTable::Comments, LogbookCommentFields, ""};
    CModelTable files{LogbookTable::Files, LogbookFilesFields, ""};
    RecordPreparer preparer{records, comments, files};
};
