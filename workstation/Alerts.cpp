#include "Alerts.h"

#include "CVrkCliMod.h"
#include "ShownText.h"
#include "Tray.h"

#include <QApplication>
#include <QEvent>

namespace
{
/// Whether one of the module's windows or dialogs is the active one.
bool isInFront(const CVrkCliMod* module)
{
    for (const QWidget* window = QApplication::activeWindow(); window; window = window->parentWidget())
        if (window == module)
            return true;
    return false;
}
} // namespace

Alerts::Alerts(QObject* parent)
    : Alerts(
          std::make_unique<Tray>(), [](QWidget* window) { QApplication::alert(window); }, parent)
{
}

Alerts::Alerts(std::unique_ptr<Tray> tray, Blink blink, QObject* parent)
    : QObject(parent), m_tray(std::move(tray)), m_blink(std::move(blink))
{
    connect(m_tray.get(), &Tray::clicked, this, &Alerts::bringUp);
}

Alerts::~Alerts() = default;

void Alerts::watch(CVrkCliMod* module)
{
    connect(module, &CVrkCliMod::attentionCalled, this,
            [this, module](const QString& text) { alert(module, text); });
    connect(module, &QObject::destroyed, this, [this](const QObject* gone) {
        if (m_calling && m_calling != gone)
            return;
        m_calling.clear();
        m_tray->hide();
    });
    module->installEventFilter(this);
}

void Alerts::alert(CVrkCliMod* module, const QString& text)
{
    constexpr int longestText = 200;
    if (isInFront(module))
        return;
    m_calling = module;
    m_blink(module);
    m_tray->show(module->moduleTitle(),
                 ShownText::notification(
                     text.size() > longestText ? text.left(longestText) + QStringLiteral("…") : text));
}

void Alerts::bringUp()
{
    m_tray->hide();
    if (!m_calling)
        return;
    m_calling->setWindowState(m_calling->windowState() & ~Qt::WindowMinimized);
    m_calling->show();
    m_calling->raise();
    m_calling->activateWindow();
}

/// The user is back and needs no icon.
bool Alerts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && watched == m_calling)
        m_tray->hide();
    return QObject::eventFilter(watched, event);
}
