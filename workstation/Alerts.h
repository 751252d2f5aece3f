#pragma once

#include <functional>
#include <memory>
#include <QObject>
#include <QPointer>
#include <QWidget>

class CVrkCliMod;
class Tray;

/// Alerts a user who is working elsewhere when a module needs him: the task bar's entry blinks, the tray
/// shows the reason, and a click there raises the window.
class Alerts : public QObject
{
    Q_OBJECT

public:
    /// Makes the entry of a window in the task bar blink.
    using Blink = std::function<void(QWidget*)>;

    explicit Alerts(QObject* parent = nullptr);
    /// With other ways to alert, for tests.
    Alerts(std::unique_ptr<Tray> tray, Blink blink, QObject* parent = nullptr);
    ~Alerts() override;

    void watch(CVrkCliMod* module);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void alert(CVrkCliMod* module, const QString& text);
    void bringUp();

    std::unique_ptr<Tray> m_tray;
    Blink m_blink;
    QPointer<QWidget> m_calling; ///< the module's window that the tray shows
};
