#pragma once

#include "CPopTemplate.h"

#include <memory>

namespace Ui
{
class WorkshiftsDialog;
}

/// Chooses a closed workshift of a department; the list is read each time the dialog is shown.
class WorkshiftsDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// \a parent is the module.
    explicit WorkshiftsDialog(QWidget* parent, int flag = -1);
    ~WorkshiftsDialog() override;

    void setDepartmentKey(const QString& key) { m_departmentKey = key; }

signals:
    void workshiftSelected(const QString& keyLink);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void reloadWorkshifts();
    void apply();
    void updateStateControls();

    QString m_departmentKey;
    std::unique_ptr<Ui::WorkshiftsDialog> m_form;
};
