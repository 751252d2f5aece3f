#pragma once

#include <functional>
#include <QString>

class QUrl;
class QWidget;

/// The user's desktop as the pane of files asks it. Tests put operations of their own in their place.
struct Desktop {
    /// Asks for a file to read; empty when the user gave none.
    std::function<QString(QWidget* parent, const QString& title, const QString& folder)> askOpenFile;
    /// Asks where to write; \a path is what is proposed.
    std::function<QString(QWidget* parent, const QString& title, const QString& path)> askSaveFile;
    /// Opens something with the program that the desktop has for it.
    std::function<void(const QUrl& url)> open;

    /// The desktop in use, at first the real one.
    static Desktop& current();
};
