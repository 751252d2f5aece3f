#include "LogbookModule.h"

#include "LogText.h"

void LogbookModule::setModuleName(const QString& name)
{
    m_name = name;
    SetModTitle(name, QString());
}

void LogbookModule::writeLog(const QString& func, const QString& text)
{
    constexpr int level = 2; // the only one
    logSink()->LogFile(level, func, text);
}

void LogbookModule::showError(const QString& text)
{
    showMessage(tr("Ошибка"), text, MessageIconError);
}

void LogbookModule::showMessage(const QString& title, const QString& text, TMessageBoxIcon icon)
{
    if (!m_messageBox)
        m_messageBox = new CPopMessageBox(this);
    m_messageBox->setMessage(title, LogText::centered(text), icon, MessageTypeOk,
                             SLOT(closeMsgBox(QAbstractButton*)));
    m_messageBox->show();
}

void LogbookModule::closeMsgBox(QAbstractButton*)
{
    if (m_messageBox)
        m_messageBox->close();
}
