#pragma once

#include "CPopTemplate.h"
#include "OrgStruct.h"

class OrgStructWidget;
class QPushButton;

/// The pop-up in which a department or a worker is chosen. One serves all dialogs of a tab, so whoever asks
/// connects to itemSelected anew and disconnects what an earlier, cancelled choice has left.
class VRK_EXPORT OrgStructDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit OrgStructDialog(QWidget* parent, int flag = -1);
    ~OrgStructDialog() override;

    OrgStructWidget* widget() const { return m_widget; }

signals:
    /// The user has chosen, by double click, Enter or the button; the dialog is closed before.
    void itemSelected(const OrgStruct::SelectedItem& item);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void accept();
    void updateControls();

    OrgStructWidget* m_widget;
    QPushButton* m_applyButton;
};
