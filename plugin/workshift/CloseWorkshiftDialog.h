#pragma once

#include "LogbookTables.h"
#include "WorkshiftDialog.h"

#include <memory>
#include <QDateTime>

namespace Ui
{
class CloseWorkshiftDialog;
}

/// Closes the open workshift: approves its drafts if the user agreed, writes the record about closing,
/// marks the workshift closed and records who takes over. The writes are separate; completed ones are not
/// undone.
class CloseWorkshiftDialog : public WorkshiftDialog
{
    Q_OBJECT

public:
    /// \a parent is the module.
    explicit CloseWorkshiftDialog(QWidget* parent, int flag = -1);
    ~CloseWorkshiftDialog() override;

    void setRecordsTable(CModelTable* table) { setTable(LogbookTable::Records, table); }
    void setWorkshiftsTable(CModelTable* table) { setTable(LogbookTable::Workshifts, table); }
    /// The workshift to close, a record of the workshifts table, and whether its drafts are approved. Both
    /// apply to one use of the dialog.
    void setCurrentWorkshift(MDRData* workshift);
    void setApproveDraftRecords(bool approve) { m_approveDraftRecords = approve; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void apply();
    void approveDrafts() const;
    bool closeWorkshift(const MDRData* workshift, const QByteArray& key) const;
    void clearWorkers() override;
    void updateWorkshiftControls() override;
    KeptTexts::Values chosen() const override;
    bool isOver(const KeptTexts::Values& kept) const override;
    void chooseTimes(const KeptTexts::Values& kept) override;
    void updateStateControls() override;
    QDateTime eventTime() const;
    MDRData* currentWorkshift() const;

    QByteArray m_workshiftKey;
    bool m_approveDraftRecords = false;
    QDateTime m_proposed; ///< the initial time of the event in the dialog
    std::unique_ptr<Ui::CloseWorkshiftDialog> m_form;
};
