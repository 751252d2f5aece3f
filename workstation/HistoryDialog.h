#pragma once

#include "HistoryGuard.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// Shows the alarm of a history that was altered, with both heads, and takes its confirmation: by an administrator of
/// the journal and by this workstation's user.
class HistoryDialog : public QDialog
{
    Q_OBJECT

public:
    HistoryDialog(HistoryGuard* guard, const QString& user, QWidget* parent = nullptr);

private:
    void confirm();
    void showEnabled();

    HistoryGuard* m_guard;
    QString m_user;
    QLineEdit* m_login;
    QLineEdit* m_password;
    QCheckBox* m_agrees;
    QLabel* m_reason;
    QPushButton* m_confirm;
};
