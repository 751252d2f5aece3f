#pragma once

#include "CPopTemplate.h"

#include <memory>

class RecordTitle;

namespace Ui
{
class VisaPasswordDialog;
}

/// Asks the user for his password again before a visa and lets the server check it. The password is only in the
/// field, and only while the dialog is shown.
class VisaPasswordDialog : public CPopTemplate
{
    Q_OBJECT

public:
    /// \a parent is the module, whose session checks the password.
    explicit VisaPasswordDialog(QWidget* parent, int flag = -1);
    ~VisaPasswordDialog() override;

    /// Shows the record that gets the visa.
    RecordTitle* recordTitle() const { return m_recordTitle; }
    /// For how many records the visa is; their number is shown if there are several.
    void setCount(int records);

signals:
    /// The server has accepted the password; the dialog is closed.
    void proved();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void apply();

    std::unique_ptr<Ui::VisaPasswordDialog> m_form;
    RecordTitle* m_recordTitle;
};
