#pragma once

#include "CModelTable.h"
#include "LogbookTables.h"
#include "RecordCensus.h"
#include "RecordPreparer.h"

#include <QDateTime>

/// What a page of the journal shows: a workshift or an interval, with its tables.
struct ShownJournal {
    enum Mode { NothingLoaded = 0, RealTime = 1, ArchiveInterval = 2, ArchiveWorkshift = 3 };

    /// Gives their fields to the tables to which events add rows: before the first answer, so that a failed
    /// select does not leave rows without fields.
    ShownJournal();

    /// The table of this name, or null.
    CModelTable* table(const QString& name);
    /// The key of the workshift, or empty.
    QString workshiftKeyLink() const;
    /// Fills what exists only in the client, and counts: all records after a load, one after an event.
    void prepareRecords();
    void prepareRecord(MDRData* record);

    Mode mode = NothingLoaded;
    CModelTable workshifts{LogbookTable::Workshifts};
    CModelTable crew{LogbookTable::WorkersWorkshift};
    CModelTable records{LogbookTable::Records};
    CModelTable comments{LogbookTable::Comments};
    CModelTable files{LogbookTable::Files};
    CModelTable shifts{LogbookTable::Shifts};
    CModelTable roles{LogbookTable::Roles};
    CModelTable workerRoles{LogbookTable::WorkerRoles};
    CModelTable categories{LogbookTable::CatsTemplate};
    CModelTable templates{LogbookTable::Templates};
    MDRData* workshift = nullptr; ///< in workshifts; null in an interval
    QDateTime intervalStart;
    QDateTime intervalEnd;
    RecordCensus census; ///< of the records
    RecordPreparer preparer{records, comments, files};
};
