#include "PageMessages.h"

#include "LogText.h"

PageMessages::PageMessages(QWidget* module) : m_box(new CPopMessageBox(module)) {}

PageMessages::~PageMessages()
{
    delete m_box;
}

void PageMessages::showMsgBox(const QString& title, const QString& text, TMessageBoxIcon icon,
                              TMessageBoxType type, QObject* receiver, const char* slot)
{
    m_box->setMessage(title, text, icon, type, nullptr);
    QObject::connect(m_box->buttonBox(), SIGNAL(clicked(QAbstractButton*)), receiver, slot);
    present();
}

void PageMessages::error(const QString& title, const QString& text)
{
    m_box->setMessage(title, LogText::centered(text), MessageIconError, MessageTypeOk, nullptr);
    QObject::connect(m_box->buttonBox(), &QDialogButtonBox::clicked, m_box,
                     [this](QAbstractButton* button) { isConfirmed(button); });
    present();
}

void PageMessages::ask(const QString& title, const QString& text, QObject* receiver, const char* slot)
{
    showMsgBox(title, LogText::centered(text), MessageIconQuestion, MessageTypeYesNo, receiver, slot);
}

void PageMessages::present()
{
    m_box->resize(350, 110);
    m_box->show();
}

bool PageMessages::isConfirmed(QAbstractButton* button)
{
    // Disconnected first: the next question in the same box has another slot.
    QObject::disconnect(m_box->buttonBox(), &QDialogButtonBox::clicked, nullptr, nullptr);
    m_box->close();
    return button && m_box->ButtonRole(button) == QDialogButtonBox::YesRole;
}
