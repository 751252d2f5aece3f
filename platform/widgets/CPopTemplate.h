#pragma once

#include "VrkExport.h"

#include <memory>
#include <QPointer>
#include <QWidget>

class PopGuard;

/// Base of all dialogs: a pop-up over the module's window. A window of its own, not modal, no larger than the
/// screen with its frame; it is hidden and shown again, never destroyed before its parent. Keys do nothing by
/// themselves. A dialog that another one has opened gives the keyboard back to it.
///
/// showEvent() and hideEvent() come when somebody shows or closes the dialog. A window that the window system minimises
/// and restores was neither shown nor closed: it gets no such event and keeps what it holds.
class VRK_EXPORT CPopTemplate : public QWidget
{
    Q_OBJECT

public:
    /// \a flag is -1 in all calls and has no effect.
    explicit CPopTemplate(QWidget* parent, int flag = -1);
    ~CPopTemplate() override;

    /// Centres the window over its parent's window, on the screen as a whole.
    void moveToCenter();
    /// Asks for a guard: while the dialog is visible, mouse and keys do not reach the window under it. For
    /// questions and small value dialogs whose answer goes to the record that is current below.
    void setGuarding(bool guarding);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitIntoScreen(QRect contents);
    void settle();

    std::unique_ptr<PopGuard> m_guard; ///< made when first asked for
    QPointer<CPopTemplate> m_opener;   ///< was active when this one was shown: gets the keyboard back
    bool m_guarding = false;
    bool m_isFrameless = false; ///< shown before its frame was known
};
