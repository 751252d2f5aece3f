#include "HistoryDialog.h"

#include <QCheckBox>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
QLabel* label(const char* name, const QString& text)
{
    auto* one = new QLabel(text);
    one->setObjectName(QLatin1String(name));
    one->setTextFormat(Qt::PlainText);
    one->setWordWrap(true);
    one->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return one;
}

QLineEdit* edit(const char* name)
{
    auto* one = new QLineEdit;
    one->setObjectName(QLatin1String(name));
    return one;
}
} // namespace

HistoryDialog::HistoryDialog(HistoryGuard* guard, const QString& user, QWidget* parent)
    : QDialog(parent),
      m_guard(guard),
      m_user(user),
      m_login(edit("administratorEdit")),
      m_password(edit("passwordEdit")),
      m_agrees(new QCheckBox(tr("&Я видел это сообщение и согласен с администратором"))),
      m_reason(label("reasonLabel", QString()))
{
    setObjectName(QStringLiteral("historyDialog"));
    setWindowTitle(tr("История хранилища изменена"));
    setMinimumWidth(44 * fontMetrics().averageCharWidth() * 2);
    const HistoryGuard::Alarm alarm = guard->alarm();
    const QDateTime time = QDateTime::fromString(alarm.time, Qt::ISODate).toLocalTime();
    auto* form = new QFormLayout(this);
    form->addRow(label("alarmLabel", alarm.text));
    form->addRow(label("adviceLabel",
                       tr("Журнал работает дальше. Ничего не удаляйте и сообщите администратору: пусть он "
                          "выполнит vrk-admin check и сравнит печати на бумаге.")));
    form->addRow(tr("Найдено:"), label("timeLabel", time.toString(QStringLiteral("dd.MM.yyyy hh:mm"))));
    form->addRow(tr("Видели здесь:"), label("rememberedLabel", alarm.remembered));
    form->addRow(tr("В хранилище:"), label("foundLabel", alarm.found));
    form->addRow(
        label("confirmLabel", tr("Сообщение уберут вдвоём администратор журнала и пользователь этого "
                                 "рабочего места. Обе записи останутся в его памяти.")));
    form->addRow(tr("&Имя администратора:"), m_login);
    m_password->setEchoMode(QLineEdit::Password);
    form->addRow(tr("&Пароль:"), m_password);
    m_password->setVisible(guard->wantsPassword());
    form->labelForField(m_password)->setVisible(guard->wantsPassword());
    m_agrees->setObjectName(QStringLiteral("agreeCheck"));
    m_agrees->setToolTip(user);
    form->addRow(m_agrees);
    m_reason->hide();
    form->addRow(m_reason);

    auto* box = new QDialogButtonBox;
    m_confirm = box->addButton(tr("Подтвердить"), QDialogButtonBox::AcceptRole);
    m_confirm->setObjectName(QStringLiteral("confirmButton"));
    QPushButton* close = box->addButton(tr("Закрыть"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("closeButton"));
    close->setDefault(true);
    form->addRow(box);
    connect(box, &QDialogButtonBox::accepted, this, &HistoryDialog::confirm);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_login, &QLineEdit::textChanged, this, &HistoryDialog::showEnabled);
    connect(m_agrees, &QCheckBox::toggled, this, &HistoryDialog::showEnabled);
    showEnabled();
    resize(minimumWidth(), form->totalHeightForWidth(minimumWidth())); // the wrapped texts and no more
}

void HistoryDialog::showEnabled()
{
    m_confirm->setEnabled(m_agrees->isChecked() && !m_login->text().trimmed().isEmpty());
}

void HistoryDialog::confirm()
{
    QString reason;
    if (m_guard->confirm(m_login->text().trimmed(), m_password->text(), m_user, &reason)) {
        accept();
        return;
    }
    m_password->clear();
    m_reason->setText(reason);
    m_reason->show();
    resize(width(), qMax(height(), layout()->totalHeightForWidth(width())));
}
