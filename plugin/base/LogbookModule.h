#pragma once

#include "CPopMessageBox.h"
#include "CVrkCliMod.h"

/// What the modules of this plug-in share. They have no profile and no state for the host. Deliberate: they
/// ignore that the link was lost and is back; what they show continues with the next change event.
class LogbookModule : public CVrkCliMod
{
    Q_OBJECT

public:
    using CVrkCliMod::CVrkCliMod;

    /// Delivers the waiting events at once.
    int MessageOn() override { return MessageGet(); }

public slots:
    void closeMsgBox(QAbstractButton* button);

protected:
    void setModuleName(const QString& name);
    void writeLog(const QString& func, const QString& text);
    /// A centred text in the module's one message box.
    void showMessage(const QString& title, const QString& text, TMessageBoxIcon icon);
    void showError(const QString& text);

private:
    CPopMessageBox* m_messageBox = nullptr;
};
