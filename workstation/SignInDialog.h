#pragma once

#include "SignIn.h"

#include <memory>
#include <QDialog>

namespace Ui
{
class SignInDialog;
}

/// Asks for the login, and for the department if there are several. The last choice is preset.
class SignInDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a signIn has an open store; \a login and \a department are choices already made.
    SignInDialog(SignIn* signIn, const QString& login, const QString& department, QWidget* parent = nullptr);
    ~SignInDialog() override;

    /// For a change of users: presets the user who worked here before \a leaving, or the next in the list.
    void offerNextOf(const QString& leaving);

    QString login() const;
    /// Key of the chosen department; empty for a login without one.
    QByteArray departmentKey() const;

    /// The user who worked here before the current one, or last, if that is not \a login; empty if there is
    /// none.
    static QString formerLoginBut(const QString& login);
    /// Remembers that \a login has signed in.
    static void remember(const QString& login);

    /// The department called \a department (name or key), otherwise the only one. Empty if the user must
    /// choose.
    static QByteArray departmentOf(const SignIn& signIn, const QString& department);

private:
    void loginChosen();
    void departmentChosen();
    void accept() override;

    SignIn* m_signIn;
    QString m_department;
    bool m_isKnown = false; ///< the login is accepted and belongs to a department
    std::unique_ptr<Ui::SignInDialog> m_form;
};
