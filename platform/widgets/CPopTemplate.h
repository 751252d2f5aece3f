#pragma once

#include "VrkExport.h"

#include <memory>
#include <QEvent>
#include <QPointer>
#include <QWidget>

class CVrkCliMod;
class PopGuard;

/// Base of all dialogs: a pop-up over the module's window. It is a separate window, not modal, with its
/// frame no larger than the screen; it is hidden and shown again, and destroyed only with its parent.
/// Escape closes it, other keys have no action. A dialog that another one has opened returns the focus to
/// it.
///
/// showEvent() and hideEvent() are called when somebody shows or closes the dialog. A window that the
/// window system minimises and restores was neither shown nor closed: it gets no such event and keeps its
/// content.
class VRK_EXPORT CPopTemplate : public QWidget
{
    Q_OBJECT

public:
    /// \a flag is -1 in all calls and has no effect.
    explicit CPopTemplate(QWidget* parent, int flag = -1);
    ~CPopTemplate() override;

    /// Centres the window over its parent's window, fully on the screen.
    void moveToCenter();
    /// Requests a guard: while the dialog is visible, mouse and keys do not reach the window under it. For
    /// questions and small value dialogs whose answer applies to the current record of that window.
    void setGuarding(bool guarding);

protected:
    /// The module that is the parent; null for another parent.
    CVrkCliMod* module() const;
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fitIntoScreen(QRect contents);
    void settle();
    void endSettling();

    std::unique_ptr<PopGuard> m_guard; ///< created when first needed
    QPointer<CPopTemplate> m_opener;   ///< the dialog that was active when this one was shown: gets the
                                       ///< focus back
    bool m_guarding = false;
    bool m_isSettling = false; ///< from a showing until shortly after the activation
    int m_fitsLeft = 0;        ///< how often the frame may still be moved onto the screen after a showing
};
