#pragma once

#include "SignIn.h"

#include <memory>
#include <QDialog>

namespace Ui
{
class SignInDialog;
}

/// Asks who works, and in which department where there are several. The last choice is offered first.
class SignInDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a signIn has an open store; \a login and \a department fix a choice that is already made.
    SignInDialog(SignIn* signIn, const QString& login, const QString& department, QWidget* parent = nullptr);
    ~SignInDialog() override;

    /// For a change of users: offers the one who worked here before \a leaving, or the next in the list.
    void offerNextOf(const QString& leaving);

    QString login() const;
    /// Key of the chosen department; empty for a login without one.
    QByteArray departmentKey() const;

    /// Who worked here before the present one, or last, when that is not \a login; empty when there is nobody.
    static QString formerLoginBut(const QString& login);
    /// \a login has come in.
    static void remember(const QString& login);

    /// The department called \a department (name or key), else the only one. Empty when a choice has to be
    /// made.
    static QByteArray departmentOf(const SignIn& signIn, const QString& department);

private:
    void loginChosen();
    void departmentChosen();
    void accept() override;

    SignIn* m_signIn;
    QString m_department;
    bool m_isKnown = false; ///< the login is let in and belongs to a department
    std::unique_ptr<Ui::SignInDialog> m_form;
};
