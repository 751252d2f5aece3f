#pragma once

#include <functional>
#include <memory>
#include <QObject>
#include <QPointer>
#include <QWidget>

class CVrkCliMod;
class Tray;

/// Calls the user back to a module that wants him while he is elsewhere: the task bar's entry blinks, the tray tells
/// why, and a click there brings the window up.
class Alerts : public QObject
{
    Q_OBJECT

public:
    /// What blinks the entry of a window in the task bar.
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
    QPointer<QWidget> m_calling; ///< the window of the module that the tray shows
};
