#pragma once

#include "CPopMessageBox.h"

#include <QPointer>

/// The messages and questions of one page, all in one message box.
class PageMessages
{
public:
    /// The box belongs to the module's window and is deleted with this object.
    explicit PageMessages(QWidget* module);
    ~PageMessages();
    PageMessages(const PageMessages&) = delete;
    PageMessages& operator=(const PageMessages&) = delete;

    /// Shows a message; its answer goes to \a slot, a SLOT(name(QAbstractButton*)) of \a receiver, which
    /// closes the box with isConfirmed().
    void showMsgBox(const QString& title, const QString& text, TMessageBoxIcon icon, TMessageBoxType type,
                    QObject* receiver, const char* slot);
    /// A centred text that any button closes.
    void error(const QString& title, const QString& text);
    /// A centred question to be answered with yes or no.
    void ask(const QString& title, const QString& text, QObject* receiver, const char* slot);
    /// Closes the box; true if its question was answered with yes.
    bool isConfirmed(QAbstractButton* button);
    bool isOpen() const { return m_box && m_box->isVisible(); }

private:
    void present();

    QPointer<CPopMessageBox> m_box; ///< deleted with the module's window if that is deleted first
};
