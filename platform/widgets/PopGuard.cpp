#include "PopGuard.h"

#include "CVrkCliMod.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVector>

namespace
{
QVector<PopGuard*>& standing()
{
    static QVector<PopGuard*> guards;
    return guards;
}

// Releases pass: without their press they do nothing, and a press from before the guard needs its release.
bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}
} // namespace

PopGuard::PopGuard(QWidget* pop) : QObject(nullptr), m_pop(pop)
{
    QWidget* under = pop->parentWidget();
    while (under && !under->isWindow() && !qobject_cast<CVrkCliMod*>(under))
        under = under->parentWidget();
    m_under = under;
}

PopGuard::~PopGuard()
{
    if (!m_up)
        return;
    standing().removeAll(this);
    emit lowered();
}

void PopGuard::raise()
{
    if (m_up || !m_under)
        return;
    m_up = true;
    standing().append(this);
    QCoreApplication::instance()->installEventFilter(this);
}

void PopGuard::lower()
{
    if (!m_up)
        return;
    m_up = false;
    standing().removeAll(this);
    QCoreApplication::instance()->removeEventFilter(this);
    // Slots close the pop-up before they change the current record: receivers that wait for the end must
    // run later.
    QMetaObject::invokeMethod(this, &PopGuard::lowered, Qt::QueuedConnection);
}

PopGuard* PopGuard::over(const QWidget* widget)
{
    for (PopGuard* guard : standing()) {
        if (guard->covers(widget))
            return guard;
    }
    return nullptr;
}

bool PopGuard::covers(const QWidget* widget) const
{
    return m_under && widget && (widget == m_under || m_under->isAncestorOf(widget));
}

bool PopGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (!isInput(event->type()) || !watched->isWidgetType() || !covers(static_cast<QWidget*>(watched)))
        return false;
    if (event->type() == QEvent::MouseButtonPress) {
        m_pop->raise();
        m_pop->activateWindow();
    }
    // An accepted override disables the shortcuts of the window.
    event->setAccepted(event->type() == QEvent::ShortcutOverride);
    return true;
}
