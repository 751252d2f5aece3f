#pragma once

#include "CModelTable.h"
#include "CPopMessageBox.h"
#include "DurationOptions.h"
#include "LogBookTab.h"
#include "RecordCensus.h"
#include "RecordPreparer.h"
#include "VrkTableTool.h"

#include <initializer_list>
#include <QDateTime>
#include <QPointer>
#include <QVector>

class AppendWorkerDialog;
class CloseWorkshiftDialog;
class CRowBatch;
class DateTimeRangeDialog;
class FilterByStatus;
class MarkTimeDialog;
class OpenWorkshiftDialog;
class OrgStructDialog;
class QAbstractButton;
class QMenu;
class QTimer;
class RecordCreatorDialog;
class ReportDialog;
class SecondMarkerDialog;
class TimeExecutionDialog;
class WorkshiftInfoDialog;
class WorkshiftsDialog;

/// The journal of one department: its current workshift, live, or a workshift or an interval of the
/// archive. Loads the tables, updates them from change events, and writes the user's changes of records. An
/// action changes nothing here: it writes to the server, and the table follows the change event.
class LogBookWidget : public LogBookTab
{
    Q_OBJECT

public:
    enum Mode { NothingLoaded = 0, RealTime = 1, ArchiveInterval = 2, ArchiveWorkshift = 3 };

    explicit LogBookWidget(QWidget* parent = nullptr);
    ~LogBookWidget() override;

    /// Loads the current workshift and initialises the page.
    void init(CVrkCliMod* module, LocationInfo* location) override;
    bool MessageData(TEventNciParse* event) override;
    /// Reads the options of the duration control from the server; called only for the home page.
    void uploadWorkshiftDurationControl();

    /// "department, organization".
    QString title() const;
    /// A Mode.
    int mode() const { return m_mode; }
    /// The shown workshift, or null; always null in an interval.
    MDRData* currentWorkshift() const { return m_currentWorkshift; }
    /// Its key, or empty.
    QString workshiftKeyLink() const;
    /// Bounds of the interval or of the shown workshift; invalid if there is none.
    QDateTime displayedPeriodStart() const;
    QDateTime displayedPeriodEnd() const;
    /// A table of this page, otherwise a reference table; null for an unknown name.
    CModelTable* table(const QString& name);

    /// \name The currently allowed actions. They read only memory, and cost the same for any number of
    /// records.
    /// @{
    bool isOpenWorkshift() const;
    /// Not exactly the opposite of isOpenWorkshift: true without a workshift.
    bool isCloseWorkshift() const;
    /// The user has opened the shown workshift or is in its crew.
    bool isWorkerInWorkshift() const;
    bool isEditableWorkshift() const;
    bool isSelectedWorkshift() const;
    bool isRecordCreatable() const;
    bool isHideDraft() const;
    bool isRecordDraft() const;
    bool isRecordDeletable() const;
    bool isRecordSignable(MDRData* record) const;
    bool isRecordSignable() const;
    bool isExistNoSign() const;
    bool isExistDrafts() const;
    bool isExistMyDrafts() const;
    bool isRecordCopyable() const;
    bool isRecordPastable() const;
    bool isRecordHasOrigin() const;
    bool isFirstMarkSetted() const;
    bool isSecondMarkSetted() const;
    bool isFirstMarkSettable() const;
    bool isSecondMarkSettable() const;
    bool isTimeExecutionChangable() const;
    /// Wording and icon of the second marker that can be set now; empty if none can.
    QString secondMarkCommand() const;
    QString secondMarkIconPath() const;
    /// The name of a marker's picture; empty if it is not a marker.
    QString iconPathToName(const QString& path) const;
    /// @}

public slots:
    /// Shows the current workshift; does nothing if it is already shown.
    void uploadRealTimeWorkshift();
    /// Shows a workshift of the archive.
    void uploadRecordsIn(const QString& workshiftKey);
    /// Shows a workshift, unless it is already shown, and makes one of its records current, including a
    /// draft that is otherwise hidden. False if the record does not exist; nothing changes while a question
    /// is open above the table.
    bool showRecord(const QString& workshiftKey, const QByteArray& recordKey);
    /// Shows the records created in an interval.
    void uploadRecordsIn(const QDateTime& from, const QDateTime& to);

    /// Shows the dialog that opens a workshift.
    void openWorkshiftRequest();
    /// Shows the dialog that closes it; asks about its drafts first, if there are any.
    void closeWorkshiftRequest();
    /// Show the information about the workshift, and the dialog that adds workers to the open one.
    void showWorkshiftInfoDialog();
    void appendWorkerRequest();
    /// Choose an interval or a closed workshift to show.
    void showDateTimeDialog();
    void showWorkshiftsDialog();
    /// Shows the current records of this view as a report.
    void showReportDialog();
    void createRecordRequest();
    /// Shows the record dialog with a kept text: an edit on its record if that is still a draft, any other
    /// text as a new record.
    void showKeptRecord(const KeptTexts::Text& text);
    void editRecordRequest();
    void deleteRecordRequest();
    void deleteMyDraftsRequest();
    void deleteAllDraftsRequest();
    void approveRecordRequest();
    void approveRecord();
    void approveMyRecordsRequest();
    void approveAllRecordsRequest();
    void signRecordRequest();
    void signAllRecordsRequest();
    void goToOriginRecord();

    /// The second marker and the execution time of the current record. Setting an execution time on an
    /// approved record makes a successor; removing it changes the record in place.
    void changeSecondMarkRequest();
    void setSecondMarkRequest(const QDateTime& dt);
    void removeSecondMarkRequest();
    void changeTimeExecRequest();
    void setTimeExecRequest(const QDateTime& dt);
    void removeTimeExecRequest();

    /// Copies a reference to the current record to the clipboard; pasting creates a draft of the user in
    /// this shift.
    void copyRecordRequest();
    void pasteRecordRequest();

signals:
    /// Mode, workshift or crew has changed: everything that shows them must be updated.
    void statusChanged();
    void recordUpdated();
    void recordAdded();
    /// A row was removed, not necessarily the current one.
    void recordRemoved();
    /// This record has become current (null: none).
    void changedSelectedRecord(MDRData* record);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots: // connected by name: showMsgBox takes the slot's name
    void closeMsgBox(QAbstractButton* button);
    void closeWorkshiftAnswer(QAbstractButton* button);
    void deleteRecordAnswer(QAbstractButton* button);
    void approveRecordAnswer(QAbstractButton* button);

private:
    // LogBookWidget_init.cpp
    void initTables();
    void configurePanes();
    /// Why there are no records, and what to do.
    QString emptyText() const;
    void configureTableTool();
    void configureContextMenu();
    void createDialogs();
    void createConnections();
    void showRecordMenu(const QPoint& pos);
    void updateRecordsFilter();
    VrkTableTool::DayLines dayLines() const;
    void showMsgBox(const QString& title, const QString& text, TMessageBoxIcon icon, TMessageBoxType type,
                    const char* slot);
    /// Closes the box; true if its question was answered with yes.
    bool isConfirmed(QAbstractButton* button);

    // LogBookWidget_hfn.cpp
    void uploadCurrentWorkshift();
    void uploadShownWorkshift();
    void uploadOpenWorkshift();
    void uploadWorkshift(const QString& key);
    void uploadWorkersWorkshiftTable();
    void uploadRecordsWorkshift();
    void uploadRecordsInterval(const QDateTime& from, const QDateTime& to);
    void uploadCommentsAndFiles();
    void uploadShiftsTable();
    void uploadRolesTable();
    void uploadWorkerRolesTable();
    void uploadTemplatesTable();
    /// Runs a select into a table. A failure is logged under the signature and does not change the table.
    bool request(CModelTable& table, const QString& sql, const char* signature);
    void uploadByRecords(CModelTable& target, const QString& keys, const char* signature);
    void uploadOfDepartment(CModelTable& target, const char* signature);
    void clearTables(std::initializer_list<CModelTable*> tables);
    void finishLoad();
    void prepareRecords();
    void prepareRecord(MDRData* record);

    // LogBookWidget_events.cpp
    /// The event belongs to the department of this page. Compares table names with case, unlike the
    /// dispatch.
    bool isSuitableNCI(TEventNciParse* event);
    /// The department of a loaded workshift; empty if it is not loaded.
    QByteArray departmentOf(const QByteArray& workshiftKey) const;
    CModelTable* eventTable(const TEventNciParse* event);
    bool insertRow(TEventNciParse* event);
    bool insertAttachment(CModelTable& table, TEventNciParse* event);
    bool changeRow(TEventNciParse* event);
    bool deleteRow(TEventNciParse* event);
    void updateAttachments(const CModelTable& table, MDRData* record);
    void reloadTemplates();
    void closeShiftDialogs();

    // LogBookWidget_duration.cpp
    void startDurationControl();
    void controlWorkshiftDuration();
    void showNotifyWorkshiftLimit();

    // LogBookWidget_annex.cpp
    bool send(CRowBatch& batch);
    using Marks = std::initializer_list<std::pair<const char*, MDRVar>>;
    /// Writes values into a record in place. In the log line of a failure "%1" is the table, "%2" the
    /// record, the rest from "%3" on.
    void markRecord(const QByteArray& key, const Marks& marks, const char* function, const QString& logLine,
                    const QStringList& rest, const QString& message);
    void sendMark(CRowBatch& batch, const QByteArray& key, const char* function, const QString& logLine,
                  const QStringList& rest, const QString& message);
    void addSuccessor(CRowBatch& batch, const MDRData* record, const QByteArray& key, double time);
    void pasteRecord(const MDRData* source);
    /// Shows a dialog that displays the record to which its answer applies.
    void showMarkDialog(MarkTimeDialog* dialog);
    void nameRecord(const MarkTimeDialog* dialog, const MDRData* record) const;
    static void copyMarked(CRowBatch& batch, MDRData* row, const MDRData* record);
    void showError(const QString& title, const QString& text);
    void createShiftDialogs();
    void createSmallDialogs();
    void updateSecondMarkAction();
    void showCloseWorkshift(bool approveDrafts);
    void showRecordCreator(MDRData* record);
    bool deleteRecord(MDRData* record);
    bool setRecordDeleted(MDRData* record);
    QVector<MDRData*> drafts(bool onlyMine) const;
    void deleteDrafts(bool onlyMine, const char* signature);
    void approveDrafts(bool onlyMine, const char* signature);
    void addVisa(CRowBatch& batch, const MDRData* record) const;

    Mode m_mode = NothingLoaded;
    CModelTable m_workshifts;
    CModelTable m_crew;
    CModelTable m_records;
    CModelTable m_comments;
    CModelTable m_files;
    CModelTable m_shifts;
    CModelTable m_roles;
    CModelTable m_workerRoles;
    CModelTable m_categories;
    CModelTable m_templates;
    MDRData* m_currentWorkshift = nullptr; ///< in m_workshifts
    QDateTime m_intervalStart;
    QDateTime m_intervalEnd;
    RecordPreparer m_preparer;
    RecordCensus m_census;
    FilterByStatus* m_draftsFilter = nullptr;
    bool m_hasFailed = false; ///< a request of the shown load
    DurationOptions m_durationOptions;
    QTimer* m_controlTimer;
    QTimer* m_repeatTimer;
    QMenu* m_recordMenu = nullptr;
    QAction* m_timeExecAction = nullptr;
    QAction* m_secondMarkAction = nullptr;
    QAction* m_copyAction = nullptr;
    QAction* m_pasteAction = nullptr;
    QAction* m_originAction = nullptr;
    QAction* m_approveAction = nullptr;
    QAction* m_signAction = nullptr;
    QPointer<OrgStructDialog> m_orgStruct; ///< shared by all dialogs of the page
    QPointer<OpenWorkshiftDialog> m_openWorkshift;
    QPointer<CloseWorkshiftDialog> m_closeWorkshift;
    QPointer<WorkshiftInfoDialog> m_workshiftInfo;
    QPointer<WorkshiftsDialog> m_workshiftsDialog;
    QPointer<DateTimeRangeDialog> m_dateTimeRange;
    QPointer<AppendWorkerDialog> m_appendWorker;
    QPointer<RecordCreatorDialog> m_recordCreator;
    QPointer<ReportDialog> m_report;
    QPointer<SecondMarkerDialog> m_secondMarker;
    QPointer<TimeExecutionDialog> m_timeExecution;
    QVector<QWidget*> m_shiftDialogs; ///< those that are closed with the workshift
};
