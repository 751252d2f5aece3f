#include "Alerts.h"

#include "NoticeSound.h"
#include "ShownText.h"
#include "Tray.h"
#include "UserSettings.h"

#include <QApplication>
#include <QEvent>

namespace
{
constexpr int secondsBetweenRecords = 10; ///< a storm of events must not be a storm of notices
constexpr int secondsOfSameMessage = 5;   ///< every window reports a lost connection

const char* settingOf(CVrkCliMod::Attention kind)
{
    switch (kind) {
    case CVrkCliMod::Attention::Shift:
        return Setting::noticeShift;
    case CVrkCliMod::Attention::Comment:
        return Setting::noticeComments;
    case CVrkCliMod::Attention::Record:
        return Setting::noticeRecords;
    case CVrkCliMod::Attention::Message:
        break;
    }
    return Setting::noticeFailures;
}

/// Whether one of the module's windows or dialogs is the active one.
bool isInFront(const CVrkCliMod* module)
{
    for (const QWidget* window = QApplication::activeWindow(); window; window = window->parentWidget())
        if (window == module)
            return true;
    return false;
}
} // namespace

Alerts::Alerts(const UserSettings* settings, QObject* parent)
    : Alerts(
          std::make_unique<Tray>(), [](QWidget* window) { QApplication::alert(window); }, parent)
{
    m_settings = settings;
    m_playSound = [] { NoticeSound().play(); };
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
            [this, module](const QString& text, CVrkCliMod::Attention kind) { alert(module, text, kind); });
    connect(module, &QObject::destroyed, this, [this](const QObject* gone) {
        if (m_calling && m_calling != gone)
            return;
        m_calling.clear();
        m_tray->hide();
    });
    module->installEventFilter(this);
}

bool Alerts::isWanted(CVrkCliMod::Attention kind) const
{
    return !m_settings || m_settings->value(settingOf(kind)).toBool();
}

bool Alerts::isQuietNow() const
{
    if (!m_settings || !m_settings->value(Setting::quietHours).toBool())
        return false;
    const auto timeOf = [this](const char* name) {
        return QTime::fromString(m_settings->value(name).toString(), QStringLiteral("HH:mm"));
    };
    const QTime from = timeOf(Setting::quietFrom);
    const QTime to = timeOf(Setting::quietTo);
    const QTime now = m_clock().time();
    // From 22:00 to 07:00 lies around midnight; equal times are the whole day.
    return from < to ? now >= from && now < to : now >= from || now < to;
}

bool Alerts::isTooOften(const QString& text, CVrkCliMod::Attention kind)
{
    const QDateTime now = m_clock();
    const auto isWithin = [&now](const QDateTime& last, int seconds) {
        return last.isValid() && qAbs(last.secsTo(now)) < seconds;
    };
    if (kind == CVrkCliMod::Attention::Record) {
        if (isWithin(m_lastRecord, secondsBetweenRecords))
            return true;
        m_lastRecord = now;
    } else if (kind == CVrkCliMod::Attention::Message) {
        if (text == m_lastText && isWithin(m_lastMessage, secondsOfSameMessage))
            return true;
        m_lastText = text;
        m_lastMessage = now;
    }
    return false;
}

void Alerts::alert(CVrkCliMod* module, const QString& text, CVrkCliMod::Attention kind)
{
    constexpr int longestText = 200;
    if (isInFront(module) || !isWanted(kind) || isTooOften(text, kind))
        return;
    m_calling = module;
    m_blink(module);
    if (isQuietNow())
        return;
    if (m_settings && m_settings->value(Setting::noticeSound).toBool())
        m_playSound();
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
