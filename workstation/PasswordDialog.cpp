#include "PasswordDialog.h"

#include "ui_PasswordDialog.h"

#include <QApplication>
#include <QPushButton>

PasswordDialog::PasswordDialog(SignIn* signIn, const QString& url, const QString& login, QWidget* parent)
    : QDialog(parent), m_signIn(signIn), m_url(url), m_form(new Ui::PasswordDialog)
{
    m_form->setupUi(this);
    m_form->buttonBox->button(QDialogButtonBox::Ok)->setText(tr("Войти"));
    m_form->buttonBox->button(QDialogButtonBox::Cancel)->setText(tr("Отмена"));
    m_form->loginEdit->setText(login);
    m_form->noticeLabel->setText(signIn->errorText());
    (login.isEmpty() ? m_form->loginEdit : m_form->passwordEdit)->setFocus();

    connect(m_form->loginEdit, &QLineEdit::textChanged, this, &PasswordDialog::showEnabled);
    connect(m_form->buttonBox, &QDialogButtonBox::accepted, this, &PasswordDialog::accept);
    connect(m_form->buttonBox, &QDialogButtonBox::rejected, this, &PasswordDialog::reject);
    m_form->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    showEnabled();
}

PasswordDialog::~PasswordDialog() = default;

QString PasswordDialog::login() const
{
    return m_form->loginEdit->text().trimmed();
}

void PasswordDialog::showEnabled()
{
    m_form->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!login().isEmpty());
}

void PasswordDialog::accept()
{
    if (login().isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool isIn = m_signIn->open(m_url, login(), m_form->passwordEdit->text()) &&
                      (!m_signIn->logins().isEmpty() || m_signIn->signIn(QString()));
    QApplication::restoreOverrideCursor();
    if (isIn) {
        QDialog::accept();
        return;
    }
    m_form->noticeLabel->setText(m_signIn->errorText());
    m_form->passwordEdit->clear();
    m_form->passwordEdit->setFocus();
}
