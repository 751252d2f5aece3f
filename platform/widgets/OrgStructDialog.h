#pragma once

#include "CPopTemplate.h"
#include "OrgStruct.h"

class OrgStructWidget;
class QPushButton;

/// The pop-up for choosing a department or a worker. All dialogs of a tab share one, so each user
/// reconnects itemSelected and disconnects what an earlier, cancelled choice has left.
class VRK_EXPORT OrgStructDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit OrgStructDialog(QWidget* parent, int flag = -1);
    ~OrgStructDialog() override;

    OrgStructWidget* widget() const { return m_widget; }

signals:
    /// The user has chosen with a double click, Enter or the button; emitted after the dialog has closed.
    void itemSelected(const OrgStruct::SelectedItem& item);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void accept();
    void updateControls();

    OrgStructWidget* m_widget;
    QPushButton* m_applyButton;
};
