#include "BusyStrip.h"

#include <QApplication>
#include <QPainter>

namespace
{
constexpr int frameMs = 60;
constexpr int thickness = 4;
constexpr int periodMs = 1800; ///< of one pass from left to right

/// A bar that moves along the strip.
class Strip : public QWidget
{
public:
    explicit Strip(QWidget* window) : QWidget(window)
    {
        setObjectName(QStringLiteral("busyStrip"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(0, 0, window->width(), thickness);
        m_since.start();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Mid));
        const int bar = width() / 4;
        const int left = static_cast<int>(m_since.elapsed() % periodMs * (width() + bar) / periodMs) - bar;
        painter.fillRect(QRect(left, 0, bar, thickness), palette().color(QPalette::Highlight));
    }

private:
    QElapsedTimer m_since;
};

QWidget* frontWindow()
{
    if (QWidget* active = QApplication::activeWindow())
        return active;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() == Qt::Window)
            return window;
    }
    return nullptr;
}
} // namespace

void BusyStrip::tick()
{
    // A program without windows has no place to show it.
    const bool hasWindows = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!hasWindows || !m_since.isValid() || m_since.elapsed() < delayMs)
        return;
    if (!m_shown) {
        m_shown = true;
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        if (QWidget* window = frontWindow()) {
            m_strip = new Strip(window);
            m_strip->raise();
            m_strip->show();
        }
    } else if (m_painted.elapsed() < frameMs) {
        return;
    }
    m_painted.start();
    if (m_strip)
        m_strip->repaint();
}

void BusyStrip::end()
{
    m_since.invalidate();
    if (!m_shown)
        return;
    m_shown = false;
    delete m_strip;
    QGuiApplication::restoreOverrideCursor();
}
