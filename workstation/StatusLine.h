#pragma once

#include "ServerClock.h"
#include "StatusMessages.h"

#include <QWidget>

class CVrkCliSes;
class HistoryGuard;
class QLabel;
class QMenu;
class QToolButton;

/// The line at the bottom of every window: state of the store, user and department, the server's time, the
/// menu of modules; and each request that was refused or failed, with time and reason, until the user
/// acknowledges it or the failed write succeeds after all.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    StatusLine(CVrkCliSes* session, const QString& user, const QString& department,
               QWidget* parent = nullptr);

    /// Shows a failure until it is acknowledged. A repeated text is counted, not shown again.
    void addFailure(const QString& text) { m_messages->addFailure(text); }
    /// Shows a notice that disappears by itself; it never covers a failure.
    void showNotice(const QString& text) { m_messages->showNotice(text); }
    /// Failures not yet acknowledged, oldest first.
    QStringList failures() const { return m_messages->failures(); }
    /// Sets the menu of the button "Модули"; without a menu there is no button.
    void setModuleMenu(QMenu* menu);
    /// Shows the alarm of the history of the store as long as it stands; a click opens HistoryDialog.
    void setHistoryGuard(HistoryGuard* guard);
    /// The number of unread comments on the user's records; nothing is shown for 0.
    void setUnreadComments(int count);
    /// The clock of this computer, for tests.
    void setOwnClock(std::function<QDateTime()> clock) { m_clock->setOwnClock(std::move(clock)); }

signals:
    /// The user wants to see the unread comments.
    void unreadCommentsClicked();
    /// A new failure is shown.
    void failed(const QString& text);
    /// The user has switched to these colours.
    void themeChosen(const QString& name);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showConnection(bool connected);
    /// Shortens the texts if the line has no space for all of them and for a message.
    void fitTexts();
    void setTexts(bool isShort);

    CVrkCliSes* m_session;
    const QString m_user;
    const QString m_department;
    QLabel* m_connectionIcon;
    QLabel* m_connectionLabel;
    QLabel* m_userLabel;
    StatusMessages* m_messages;
    QToolButton* m_historyButton;
    QToolButton* m_themeButton;
    QToolButton* m_modulesButton;
    QToolButton* m_unreadButton;
    ServerClock* m_clock;
    int m_unread = 0;
};
