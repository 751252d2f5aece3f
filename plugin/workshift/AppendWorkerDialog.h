#pragma once

#include "CModelTable.h"
#include "CPopTemplate.h"
#include "KeptTexts.h"

#include <memory>

class CrewTable;
class KeptChoice;
class OrgStructDialog;
namespace Ui
{
class AppendWorkerDialog;
}

/// Adds dispatchers to the open workshift and writes a record about it. If the program ended before the
/// choice was saved, it is offered the next time the dialog is shown for the same workshift.
class AppendWorkerDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// \a parent is the module.
    explicit AppendWorkerDialog(QWidget* parent, int flag = -1);
    ~AppendWorkerDialog() override;

    void setOrgStructDialog(OrgStructDialog* dialog) { m_orgStructDialog = dialog; }
    void setDepartmentKey(const QString& key);
    /// The author of the record.
    void setWorkerKey(const QString& key) { m_workerKey = key; }
    void setWorkersTable(CModelTable* table) { m_workers = table; }
    /// The rows of the open workshift.
    void setWorkersWorkshiftTable(CModelTable* table) { m_crewRows = table; }
    void setRolesTable(CModelTable* table) { m_roles = table; }
    void setWorkersRoleTable(CModelTable* table) { m_workerRoles = table; }
    void setWorkshiftRecord(MDRData* record);

    /// The text of the record: a template that is in no table, with a parameter for each of \a count
    /// workers.
    static QString hardTemplate(int count);
    /// The place of the kept choice.
    static QString keptPlace(const QString& department) { return QStringLiteral("append/") + department; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void reload();
    void updateApplyEnabled();
    void updateTemplate();
    void showOrgStructDialog();
    void appendWorker(const QString& workerKey);
    void workerLinkClicked(const QString& link);
    void apply();
    void writeRecord();
    KeptTexts::Values chosen() const;
    void choose(const KeptTexts::Values& kept);

    OrgStructDialog* m_orgStructDialog = nullptr;
    QString m_departmentKey;
    QString m_workerKey;
    QByteArray m_workshiftKey;
    CModelTable* m_workers = nullptr;
    CModelTable* m_crewRows = nullptr;
    CModelTable* m_roles = nullptr;
    CModelTable* m_workerRoles = nullptr;
    CModelTable m_pending; ///< deliberate: the rows to be added belong to LogbookWorkersWorkshift in spite
                           ///< of its name
    CrewTable* m_crew = nullptr;
    std::unique_ptr<Ui::AppendWorkerDialog> m_form;
    KeptChoice* m_kept = nullptr;
};
