#pragma once

#include "SignIn.h"

#include <memory>
#include <QDialog>

namespace Ui
{
class PasswordDialog;
}

/// Asks for a login of the server and its password until the server accepts them. The password is only in
/// the field and in the connection; it is not kept anywhere else.
class PasswordDialog : public QDialog
{
    Q_OBJECT

public:
    /// Opens \a url through \a signIn. When the dialog is accepted, a person is signed in, unless the login
    /// is the server's administrator, who may act as anybody. \a login is preset.
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
