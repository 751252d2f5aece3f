#pragma once

#include <memory>
#include <QObject>

class QSystemTrayIcon;

/// The desktop's tray, if there is one: shows the journal's icon as long as a module needs the user.
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
