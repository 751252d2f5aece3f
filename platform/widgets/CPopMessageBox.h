#pragma once

#include "CPopTemplate.h"

#include <QAbstractButton> // for connections to clicked()
#include <QDialogButtonBox>
#include <QString>

class QLabel;
class QPushButton;

/// Icons of message boxes.
enum TMessageBoxIcon {
    MessageIconError = 1,
    MessageIconQuestion = 2,
    MessageIconWarning = 3,
    MessageIconInformation = 4,
};

/// Buttons of message boxes.
enum TMessageBoxType {
    MessageTypeOk = 2,    ///< a single confirming button
    MessageTypeYesNo = 5, ///< a question; guards the window under the box
};

/// The message box. A module or a tab uses one box for all its messages: setMessage(), show(), and the
/// answer goes to a slot connected to the button box's clicked(QAbstractButton*). A slot first disconnects
/// the whole signal, then closes the box, and continues only if the button is not null and ButtonRole()
/// returns 5.
class VRK_EXPORT CPopMessageBox : public CPopTemplate
{
    Q_OBJECT

public:
    explicit CPopMessageBox(QWidget* parent);
    ~CPopMessageBox() override;

    /// Fills the box for a new message; disconnects slots of an earlier one, which was never answered. A
    /// text that begins with "<center>" is markup: names and the like in it must be escaped. Any other text
    /// is shown as plain text. \a slot is null or the SLOT() signature of a slot of the parent, which gets
    /// the answer.
    void setMessage(const QString& title, const QString& text, TMessageBoxIcon icon, TMessageBoxType type,
                    const char* slot = nullptr);
    QDialogButtonBox* buttonBox() const { return m_buttons; }
    /// The role as in QDialogButtonBox::ButtonRole, 5 for yes; -1 for null and foreign buttons.
    int ButtonRole(QAbstractButton* button) const;

    QString title() const { return windowTitle(); }
    QString text() const;
    TMessageBoxIcon icon() const { return m_icon; }
    TMessageBoxType type() const { return m_type; }

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// A box closed by its frame or by Escape answers with a null button.
    void closeEvent(QCloseEvent* event) override;

private:
    QPushButton* addButton(const QString& text, QDialogButtonBox::ButtonRole role, const char* name);
    void fitHeight();

    QLabel* m_iconLabel;
    QLabel* m_textLabel;
    QDialogButtonBox* m_buttons;
    TMessageBoxIcon m_icon = MessageIconInformation;
    TMessageBoxType m_type = MessageTypeOk;
    bool m_answered = false; ///< a button was pressed, or the window was closed
};
