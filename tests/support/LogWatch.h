#pragma once

#include <QStringList>
#include <QtGlobal>

/// Takes over the message log of the process while it lives: a test says which lines it expects by taking them, and
/// finds the others left over. One at a time; make it inside of a test, for Qt Test takes the log over before the first.
class LogWatch
{
public:
    LogWatch();
    ~LogWatch();
    LogWatch(const LogWatch&) = delete;
    LogWatch& operator=(const LogWatch&) = delete;

    /// Warnings and worse that hold \a part, in order; they are forgotten.
    QStringList take(const QString& part = QString());
    /// The same of the debug log.
    QStringList takeDebug(const QString& part = QString());

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_before;
    QStringList m_warnings;
    QStringList m_debug;
};
