#include "CPopTemplate.h"

#include "CVrkCliMod.h"
#include "PopGuard.h"

#include <QApplication>
#include <QHideEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>

namespace
{
constexpr int mostFits = 3;     ///< a window manager that insists wins
constexpr int settlingMs = 300; ///< after the activation; it may still move the window

QMargins frameOf(const QWidget* window)
{
    const QRect inner = window->geometry();
    const QRect outer = window->frameGeometry();
    return QMargins(qMax(0, inner.left() - outer.left()), qMax(0, inner.top() - outer.top()),
                    qMax(0, outer.right() - inner.right()), qMax(0, outer.bottom() - inner.bottom()));
}

// The screen area available to the contents, without the window's frame. A window that was never shown has
// no frame yet: it will get one like that of the window below.
QRect room(const QWidget* window)
{
    QMargins frame = frameOf(window);
    if (frame.isNull() && window->parentWidget())
        frame = frameOf(window->parentWidget()->window());
    const QScreen* screen = window->screen();
    return screen ? screen->availableGeometry().marginsRemoved(frame) : window->geometry();
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
    fitIntoScreen(target);
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

CVrkCliMod* CPopTemplate::module() const
{
    return qobject_cast<CVrkCliMod*>(parent());
}

bool CPopTemplate::event(QEvent* event)
{
    const bool byTheSystem =
        event->spontaneous() && (event->type() == QEvent::Show || event->type() == QEvent::Hide);
    if (byTheSystem)
        return true;
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::Move || event->type() == QEvent::WindowActivate)
        settle();
    if (event->type() == QEvent::WindowActivate && m_isSettling)
        QTimer::singleShot(settlingMs, this, &CPopTemplate::endSettling);
    return done;
}

void CPopTemplate::fitIntoScreen(QRect contents)
{
    const QRect screen = room(this);
    contents.setSize(contents.size().boundedTo(screen.size()));
    contents.moveRight(qMin(contents.right(), screen.right()));
    contents.moveBottom(qMin(contents.bottom(), screen.bottom()));
    contents.moveLeft(qMax(contents.left(), screen.left()));
    contents.moveTop(qMax(contents.top(), screen.top()));
    setGeometry(contents);
}

// Only the window manager knows the frame and where it puts the window, also when it is shown again. So from
// the showing until shortly after the activation the frame is kept on the screen; later the user may move it anywhere.
void CPopTemplate::settle()
{
    const bool isFrameKnown = !frameOf(this).isNull();
    if (m_fitsLeft == 0 || !isVisible() || !isFrameKnown)
        return;
    --m_fitsLeft;
    if (screen() && !screen()->availableGeometry().contains(frameGeometry()))
        fitIntoScreen(geometry());
}

void CPopTemplate::endSettling()
{
    if (!m_isSettling)
        return;
    m_isSettling = false;
    m_fitsLeft = 1;
    settle();
    m_fitsLeft = 0;
}

void CPopTemplate::showEvent(QShowEvent* event)
{
    m_isSettling = true;
    m_fitsLeft = mostFits;
    m_opener = qobject_cast<CPopTemplate*>(QApplication::activeWindow());
    resize(size().boundedTo(room(this).size()));
    if (m_guarding)
        m_guard->raise();
    QWidget::showEvent(event);
}

void CPopTemplate::hideEvent(QHideEvent* event)
{
    if (m_guard)
        m_guard->lower();
    // After minimising and restoring, a window manager would activate the module's window.
    const bool wasActive = !QApplication::activeWindow();
    if (wasActive && m_opener && m_opener != this && m_opener->isVisible())
        m_opener->activateWindow();
    QWidget::hideEvent(event);
}

void CPopTemplate::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
}

void CPopTemplate::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    QWidget::keyPressEvent(event);
}
