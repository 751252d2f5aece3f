#pragma once

#include "EditablePage.h"
#include "VrkTableTool.h"

#include <functional>
#include <memory>
#include <QDateTime>

class FilterByStatus;
class JournalDialogs;
class JournalLoader;
class QAbstractButton;
class ShiftClock;

/// The journal of one department: its current workshift, live, or a workshift or an interval of the
/// archive. Arranges the page: a loader fills the tables, change events update them, and the user's actions
/// write to the server without changing anything here: the table follows the change event.
class LogBookWidget : public EditablePage
{
    Q_OBJECT

public:
    explicit LogBookWidget(QWidget* parent = nullptr);
    ~LogBookWidget() override;

    /// Loads the current workshift and initialises the page.
    void init(CVrkCliMod* module, LocationInfo* location) override;
    bool MessageData(TEventNciParse* event) override;
    /// Reads the options of the duration control from the server; called only for the home page.
    void uploadWorkshiftDurationControl();

    /// "department, organization".
    QString title() const;
    /// Bounds of the interval or of the shown workshift; invalid if there is none.
    QDateTime displayedPeriodStart() const;
    QDateTime displayedPeriodEnd() const;
    /// A table of this page, otherwise a reference table; null for an unknown name.
    CModelTable* table(const QString& name);
    /// Wording and icon of the second marker that can be set now; empty if none can.
    QString secondMarkCommand() const;
    QString secondMarkIconPath() const;
    /// The name of a marker's picture; empty if it is not a marker.
    QString iconPathToName(const QString& path) const;

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
    /// A new record from the pinned template with this number, from 1 on.
    void writePinnedRequest(int number);
    /// Shows the record dialog with a kept text: an edit on its record if that is still a draft, any other
    /// text as a new record.
    void showKeptRecord(const KeptTexts::Text& text);
    void editRecordRequest();
    void goToOriginRecord();
    /// Show the dialogs for the second marker and the execution time of the current record.
    void changeSecondMarkRequest();
    void changeTimeExecRequest();

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

private slots: // connected by name: the message box takes the slot's name
    void closeMsgBox(QAbstractButton* button);
    void closeWorkshiftAnswer(QAbstractButton* button);

private:
    QString departmentName() const;
    void configurePanes();
    void createConnections();
    /// Why there are no records, and what to do.
    QString emptyText() const;
    void updateRecordsFilter();
    VrkTableTool::DayLines dayLines() const;
    void showNotifyWorkshiftLimit();
    void announceRecord(MDRData* record);

    // LogBookWidget_load.cpp
    void uploadCurrentWorkshift();
    void load(ShownJournal::Mode mode, const std::function<void()>& upload);
    void reload(const std::function<void()>& upload);

    // LogBookWidget_events.cpp
    /// The event belongs to the department of this page. Compares table names with case, unlike the
    /// dispatch.
    bool isSuitableNCI(TEventNciParse* event);
    bool insertRow(CModelTable& table, const TEventNciParse& event);
    bool changeRow(CModelTable& table, const TEventNciParse& event);
    bool deleteRow(CModelTable& table, const TEventNciParse& event);

    std::unique_ptr<JournalLoader> m_loader;   ///< created by init, like the next one
    std::unique_ptr<JournalDialogs> m_dialogs; ///< deleted with the page: they use its tables
    ShiftClock* m_clock;
    FilterByStatus* m_draftsFilter = nullptr;
};
