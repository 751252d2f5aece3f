#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

/// Minimises a shown window and restores it, like its user does; false if the window system did not notify
/// the window.
inline bool minimiseAndRestore(QWidget* window)
{
    struct Watch : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            reported = reported || (event->type() == QEvent::Show && event->spontaneous());
            return false;
        }
        bool reported = false;
    } watch;
    window->installEventFilter(&watch);
    const Qt::WindowStates before = window->windowHandle()->windowStates();
    for (const Qt::WindowStates states : {before | Qt::WindowMinimized, before}) {
        window->windowHandle()->setWindowStates(states);
        QCoreApplication::processEvents(); // the window system notifies through the event loop
    }
    window->removeEventFilter(&watch);
    return watch.reported;
}
