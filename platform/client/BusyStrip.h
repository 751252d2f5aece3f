#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

/// Shows that a long request is running: after 0.3 s the wait cursor, and a strip along the top of the
/// active window that is painted directly. It runs no event loop, so nothing else happens in the meantime.
class BusyStrip
{
public:
    static constexpr int delayMs = 300;

    ~BusyStrip() { end(); }

    void begin() { m_since.start(); }
    /// Called repeatedly while the request runs; shows the strip when the time has come, and moves it.
    void tick();
    void end();

private:
    QElapsedTimer m_since; ///< valid between begin() and end()
    QElapsedTimer m_painted;
    QPointer<QWidget> m_strip;
    bool m_shown = false;
};
