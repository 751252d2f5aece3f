#pragma once

#include <functional>
#include <QString>

class QUrl;
class QWidget;

/// The desktop operations of the pane of files. Tests replace them.
struct Desktop {
    /// Asks for a file to read; empty if the user cancelled.
    std::function<QString(QWidget* parent, const QString& title, const QString& folder)> askOpenFile;
    /// Asks where to write; \a path is the proposed place.
    std::function<QString(QWidget* parent, const QString& title, const QString& path)> askSaveFile;
    /// Opens something with the desktop's program for it.
    std::function<void(const QUrl& url)> open;

    /// The desktop in use, initially the real one.
    static Desktop& current();
};
