#include "Tray.h"

#include <QApplication>
#include <QSystemTrayIcon>

Tray::Tray(QObject* parent) : QObject(parent) {}

Tray::~Tray() = default;

void Tray::show(const QString& title, const QString& text)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable())
        return;
    if (!m_icon) {
        m_icon = std::make_unique<QSystemTrayIcon>(QApplication::windowIcon());
        connect(m_icon.get(), &QSystemTrayIcon::activated, this, &Tray::clicked);
        connect(m_icon.get(), &QSystemTrayIcon::messageClicked, this, &Tray::clicked);
    }
    m_icon->setToolTip(title + QLatin1Char('\n') + text);
    m_icon->show();
    if (QSystemTrayIcon::supportsMessages())
        m_icon->showMessage(title, text, QApplication::windowIcon());
}

void Tray::hide()
{
    if (m_icon)
        m_icon->hide();
}
