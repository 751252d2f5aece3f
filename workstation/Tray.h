#pragma once

#include <memory>
#include <QObject>

class QSystemTrayIcon;

/// The desktop's tray, where there is one: the icon of the journal is in it as long as something wants the user.
class Tray : public QObject
{
    Q_OBJECT

public:
    explicit Tray(QObject* parent = nullptr);
    ~Tray() override;

    virtual void show(const QString& title, const QString& text);
    virtual void hide();

signals:
    /// The icon or its message was clicked.
    void clicked();

private:
    std::unique_ptr<QSystemTrayIcon> m_icon;
};
