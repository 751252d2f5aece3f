#pragma once

#include "CPopTemplate.h"
#include "MDArray.h"

#include <memory>
#include <QByteArray>

class CModelTable;
class CrewTable;
namespace Ui
{
class WorkshiftInfoDialog;
}

/// Shows a workshift: its interval, who opened and closed it, and all its workers.
class WorkshiftInfoDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// \a parent is the module.
    explicit WorkshiftInfoDialog(QWidget* parent, int flag = -1);
    ~WorkshiftInfoDialog() override;

    void setWorkersTable(CModelTable* table) { m_workers = table; }
    void setWorkshiftsTable(CModelTable* table) { m_workshifts = table; }
    /// The rows of the shown workshift.
    void setWorkersWorkshiftTable(CModelTable* table) { m_crewRows = table; }
    void setRolesTable(CModelTable* table) { m_roles = table; }
    void setWorkersRoleTable(CModelTable* table) { m_workerRoles = table; }
    /// The workshift to show next, a record of the workshifts table; null shows nothing.
    void setWorkshiftRecord(MDRData* record);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void reload();

    CModelTable* m_workers = nullptr;
    CModelTable* m_workshifts = nullptr;
    CModelTable* m_crewRows = nullptr;
    CModelTable* m_roles = nullptr;
    CModelTable* m_workerRoles = nullptr;
    QByteArray m_workshiftKey; ///< not the record: the table may be reloaded while the dialog is open
    CrewTable* m_crew = nullptr;
    std::unique_ptr<Ui::WorkshiftInfoDialog> m_form;
};
