#pragma once

#include "TEventNciParse.h"

#include <QPointer>

class AppendWorkerDialog;
class CloseWorkshiftDialog;
class CVrkCliMod;
class DateTimeRangeDialog;
class LocationInfo;
class MarkTimeDialog;
class OpenWorkshiftDialog;
class OrgStructDialog;
class RecordCreatorDialog;
class RecordTitle;
class ReportDialog;
class SecondMarkerDialog;
struct ShownJournal;
class TimeExecutionDialog;
class VisaPasswordDialog;
class WorkshiftDialog;
class WorkshiftInfoDialog;
class WorkshiftsDialog;

/// The dialogs of a page. They belong to the module's window, but use tables of the page, and are deleted
/// with this object.
class JournalDialogs
{
public:
    JournalDialogs(CVrkCliMod* module, LocationInfo* location, ShownJournal& shown);
    ~JournalDialogs();
    JournalDialogs(const JournalDialogs&) = delete;
    JournalDialogs& operator=(const JournalDialogs&) = delete;

    void MessageData(TEventNciParse* event);
    /// The tables of templates have changed.
    void reloadTemplates();
    /// Closes those that are about the open workshift.
    void closeShiftDialogs();

    /// Writes a new record, or edits this one.
    void showRecordCreator(MDRData* record);
    /// A new record from the pinned template with this number, from 1 on.
    void writePinned(int number);
    void showCloseWorkshift(bool approveDrafts);
    void showWorkshiftInfo();
    void showAppendWorker();
    /// Shows a dialog with the record to which its answer applies.
    void showMark(MarkTimeDialog* dialog, const MDRData* record);
    /// Asks for the password before the visa of this record, or of several if it is null.
    void showVisaPassword(const MDRData* record, int count);
    /// Another record has become current.
    void nameRecord(const MDRData* record);

    QPointer<OpenWorkshiftDialog> openWorkshift;
    QPointer<CloseWorkshiftDialog> closeWorkshift;
    QPointer<WorkshiftInfoDialog> workshiftInfo;
    QPointer<WorkshiftsDialog> workshifts;
    QPointer<DateTimeRangeDialog> dateTimeRange;
    QPointer<AppendWorkerDialog> appendWorker;
    QPointer<RecordCreatorDialog> recordCreator;
    QPointer<SecondMarkerDialog> secondMarker;
    QPointer<TimeExecutionDialog> timeExecution;
    QPointer<ReportDialog> report;
    QPointer<VisaPasswordDialog> visaPassword;

private:
    void setUp(WorkshiftDialog* dialog);
    void nameRecord(RecordTitle* title, const MDRData* record) const;

    CVrkCliMod* m_module;
    LocationInfo* m_location;
    ShownJournal& m_shown;
    QPointer<OrgStructDialog> m_orgStruct; ///< shared by all of them
};
