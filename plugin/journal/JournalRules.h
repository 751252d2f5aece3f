#pragma once

#include "ShownJournal.h"

/// What the user may do with the workshift that a page shows, and with its current record. The answers read
/// only memory, and cost the same for any number of records. The user is the worker of the census.
class JournalRules
{
public:
    virtual ~JournalRules() = default;

    /// The record under the current row, or null.
    virtual MDRData* currentRecord() const = 0;
    const ShownJournal& shown() const { return m_shown; }
    const QByteArray& workerKey() const { return m_shown.census.workerKey(); }
    /// A ShownJournal::Mode.
    int mode() const { return m_shown.mode; }
    /// The shown workshift, or null; always null in an interval.
    MDRData* currentWorkshift() const { return m_shown.workshift; }
    /// Its key, or empty.
    QString workshiftKeyLink() const { return m_shown.workshiftKeyLink(); }

    /// \name The workshift
    /// @{
    bool isOpenWorkshift() const;
    /// Not exactly the opposite of isOpenWorkshift: true without a workshift.
    bool isCloseWorkshift() const;
    /// The user has opened the shown workshift or is in its crew.
    bool isWorkerInWorkshift() const;
    bool isEditableWorkshift() const;
    bool isSelectedWorkshift() const;
    bool isRecordCreatable() const { return isEditableWorkshift(); }
    bool isHideDraft() const { return !isEditableWorkshift(); }
    bool isRecordPastable() const;
    /// @}

    /// \name Its records
    /// @{
    bool isExistNoSign() const { return m_shown.census.hasSignable(); }
    bool isExistDrafts() const { return isEditableWorkshift() && m_shown.census.hasDrafts(); }
    bool isExistMyDrafts() const { return isEditableWorkshift() && m_shown.census.hasMyDrafts(); }
    bool isRecordSignable(MDRData* record) const;
    /// @}

    /// \name The current record
    /// @{
    bool isRecordDraft() const;
    bool isRecordDeletable() const;
    bool isRecordSignable() const { return isRecordSignable(currentRecord()); }
    bool isRecordCopyable() const;
    bool isRecordHasOrigin() const;
    bool isFirstMarkSetted() const;
    bool isSecondMarkSetted() const;
    bool isFirstMarkSettable() const;
    bool isSecondMarkSettable() const;
    bool isTimeExecutionChangable() const;
    /// @}

protected:
    ShownJournal m_shown;
};
