#include "CPopTemplate.h"

#include "PopGuard.h"

#include <QHideEvent>
#include <QScreen>

namespace
{
// The room that the contents may take on the screen, the window's frame left out; it is unknown before the first
// showing.
QRect room(const QWidget* window)
{
    const QScreen* screen = window->screen();
    const QRect inner = window->geometry();
    const QRect outer = window->frameGeometry();
    const QMargins frame(qMax(0, inner.left() - outer.left()), qMax(0, inner.top() - outer.top()),
                         qMax(0, outer.right() - inner.right()), qMax(0, outer.bottom() - inner.bottom()));
    return screen ? screen->availableGeometry().marginsRemoved(frame) : inner;
}
} // namespace

CPopTemplate::CPopTemplate(QWidget* parent, int)
    : QWidget(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint)
{
}

CPopTemplate::~CPopTemplate() = default;

void CPopTemplate::moveToCenter()
{
    const QRect screen = room(this);
    resize(size().boundedTo(screen.size()));
    const QRect over = parentWidget() ? parentWidget()->window()->geometry() : screen;
    QRect target(QPoint(), size());
    target.moveCenter(over.center());
    target.moveRight(qMin(target.right(), screen.right()));
    target.moveBottom(qMin(target.bottom(), screen.bottom()));
    target.moveLeft(qMax(target.left(), screen.left()));
    target.moveTop(qMax(target.top(), screen.top()));
    setGeometry(target);
}

void CPopTemplate::setGuarding(bool guarding)
{
    m_guarding = guarding;
    if (guarding && !m_guard)
        m_guard = std::make_unique<PopGuard>(this);
    if (guarding && isVisible())
        m_guard->raise();
    else if (!guarding && m_guard)
        m_guard->lower();
}

void CPopTemplate::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        resize(size().boundedTo(room(this).size()));
        if (m_guarding)
            m_guard->raise();
    }
    QWidget::showEvent(event);
}

void CPopTemplate::hideEvent(QHideEvent* event)
{
    if (m_guard && !event->spontaneous())
        m_guard->lower();
    QWidget::hideEvent(event);
}

void CPopTemplate::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
}
