#include "LogWatch.h"

#include <algorithm>

namespace
{
LogWatch* watch = nullptr;

QStringList takeFrom(QStringList& lines, const QString& part)
{
    const QStringList taken = lines.filter(part);
    lines.erase(
        std::remove_if(lines.begin(), lines.end(), [&](const QString& line) { return line.contains(part); }),
        lines.end());
    return taken;
}
} // namespace

LogWatch::LogWatch()
{
    Q_ASSERT(!watch);
    watch = this;
    m_before = qInstallMessageHandler(handle);
}

LogWatch::~LogWatch()
{
    qInstallMessageHandler(m_before);
    watch = nullptr;
}

QStringList LogWatch::take(const QString& part)
{
    return takeFrom(m_warnings, part);
}

QStringList LogWatch::takeDebug(const QString& part)
{
    return takeFrom(m_debug, part);
}

void LogWatch::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    // Messages of the offscreen platform about windows and pop-up menus.
    if (text.startsWith(QLatin1String("This plugin does not support ")))
        return;
    if (type == QtFatalMsg)
        watch->m_before(type, context, text);
    else if (type == QtDebugMsg || type == QtInfoMsg)
        watch->m_debug.append(text);
    else
        watch->m_warnings.append(text);
}
