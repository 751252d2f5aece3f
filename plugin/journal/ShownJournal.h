#pragma once

#include "RecordCensus.h"
#include "RecordTables.h"

#include <QDateTime>

/// What a page of the journal shows: a workshift or an interval, with its tables.
struct ShownJournal : RecordTables {
    enum Mode { NothingLoaded = 0, RealTime = 1, ArchiveInterval = 2, ArchiveWorkshift = 3 };

    /// The table of this name, or null.
    CModelTable* table(const QString& name);
    /// The key of the workshift, or empty.
    QString workshiftKeyLink() const;
    /// The department of a loaded workshift; empty if it is not loaded.
    QByteArray departmentOf(const QByteArray& key) const;
    /// Fills what exists only in the client, and counts: all records after a load, one after an event.
    void prepareRecords();
    void prepareRecord(MDRData* record);

    Mode mode = NothingLoaded;
    CModelTable workshifts{LogbookTable::Workshifts, LogbookWorkshiftFields, Field::KeyLink};
    CModelTable crew{LogbookTable::WorkersWorkshift, LogbookWorkersWorkshiftFields, Field::KeyLink};
    CModelTable shifts{LogbookTable::Shifts};
    CModelTable roles{LogbookTable::Roles};
    CModelTable workerRoles{LogbookTable::WorkerRoles};
    CModelTable categories{LogbookTable::CatsTemplate, LogbookCatsTemplateFields, ""};
    CModelTable templates{LogbookTable::Templates, LogbookTemplatesFields, ""};
    MDRData* workshift = nullptr; ///< in workshifts; null in an interval
    QDateTime intervalStart;
    QDateTime intervalEnd;
    RecordCensus census; ///< of the records
};
