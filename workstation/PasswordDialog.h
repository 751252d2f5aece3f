#pragma once

#include "SignIn.h"

#include <memory>
#include <QDialog>

namespace Ui
{
class PasswordDialog;
}

/// Asks for a login of the server and its password until the server lets him in. The password stays in the field and in
/// the connection; it is kept nowhere else.
class PasswordDialog : public QDialog
{
    Q_OBJECT

public:
    /// Opens \a url through \a signIn, which has a person signed in when the dialog is accepted, unless the login is the
    /// server's administrator, who may be anybody. \a login is offered.
    PasswordDialog(SignIn* signIn, const QString& url, const QString& login, QWidget* parent = nullptr);
    ~PasswordDialog() override;

    QString login() const;

private:
    void accept() override;
    void showEnabled();

    SignIn* m_signIn;
    QString m_url;
    std::unique_ptr<Ui::PasswordDialog> m_form;
};
