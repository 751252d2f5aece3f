#pragma once

#include <QStringList>
#include <QtGlobal>

/// Handles the message log of the process as long as it exists: a test takes the lines that it expects, and
/// finds the others left over. Only one at a time; create it inside a test, because Qt Test installs its
/// own handler before the first.
class LogWatch
{
public:
    LogWatch();
    ~LogWatch();
    LogWatch(const LogWatch&) = delete;
    LogWatch& operator=(const LogWatch&) = delete;

    /// Warnings and worse that contain \a part, in order; they are removed.
    QStringList take(const QString& part = QString());
    /// The same for debug messages.
    QStringList takeDebug(const QString& part = QString());

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_before;
    QStringList m_warnings;
    QStringList m_debug;
};
