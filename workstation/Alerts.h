#pragma once

#include "CVrkCliMod.h"

#include <functional>
#include <memory>
#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QWidget>

class Tray;
class UserSettings;

/// Alerts a user who is working elsewhere when a module needs him: the task bar's entry blinks, the tray
/// shows the reason, a sound is played if the user wants one, and a click in the tray raises the window. The
/// user's settings say which kinds alert him; in his quiet hours only the entry blinks.
class Alerts : public QObject
{
    Q_OBJECT

public:
    /// Makes the entry of a window in the task bar blink.
    using Blink = std::function<void(QWidget*)>;

    explicit Alerts(const UserSettings* settings, QObject* parent = nullptr);
    /// With other ways to alert, for tests.
    Alerts(std::unique_ptr<Tray> tray, Blink blink, QObject* parent = nullptr);
    ~Alerts() override;

    /// Without settings every kind alerts, silently.
    void setSettings(const UserSettings* settings) { m_settings = settings; }
    void setSound(std::function<void()> play) { m_playSound = std::move(play); }
    void setClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }

    void watch(CVrkCliMod* module);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void alert(CVrkCliMod* module, const QString& text, CVrkCliMod::Attention kind);
    bool isWanted(CVrkCliMod::Attention kind) const;
    bool isQuietNow() const;
    bool isTooOften(const QString& text, CVrkCliMod::Attention kind);
    void bringUp();

    std::unique_ptr<Tray> m_tray;
    Blink m_blink;
    std::function<void()> m_playSound = [] {};
    std::function<QDateTime()> m_clock = &QDateTime::currentDateTime;
    const UserSettings* m_settings = nullptr;
    QDateTime m_lastRecord;      ///< time of the last alert of a record
    QDateTime m_lastMessage;     ///< time of the last message
    QString m_lastText;          ///< of the last message
    QPointer<QWidget> m_calling; ///< the module's window that the tray shows
};
