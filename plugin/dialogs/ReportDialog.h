#pragma once

#include "CPopTemplate.h"
#include "ReportTable.h"

#include <memory>

class QToolButton;
class VrkPreview;

namespace Ui
{
class ReportDialog;
}

/// The records of the journal's current view as a plain table with a title, for printing. It has a copy of
/// the records, so it does not change with the journal.
class ReportDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// \a parent is the module.
    explicit ReportDialog(QWidget* parent, int flag = -1);
    ~ReportDialog() override;

    /// Sets the table, not owned, and configures the columns: call it once, before the dialog is shown.
    void setWorkersTable(CModelTable* table);
    /// Copies the records; a null table changes nothing and sets the code -3.
    void setRecordsTable(CModelTable* table);
    void setDayLines(VrkTableTool::DayLines lines);
    void setReportTitle(const QString& title, const QString& period);
    /// The name proposed for a file, without suffix.
    void setFileName(const QString& name) { m_fileName = name; }
    /// Code of the last copy.
    int lastError() const { return m_table->lastError(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createToolBar();
    void updateApprove();
    void showPreview();

    std::unique_ptr<Ui::ReportDialog> m_form;
    std::unique_ptr<ReportTable> m_table;
    VrkPreview* m_preview;
    QToolButton* m_approveButton = nullptr;
    QString m_fileName;
};
