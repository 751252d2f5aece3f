#include "ProgressLine.h"

#include "LongWork.h"

namespace
{
constexpr qint64 pauseMs = 200; // between two states of the same work
} // namespace

ProgressLine::ProgressLine(const Streams& streams) : m_err(streams.err), m_isWatched(streams.isWatched)
{
    if (m_isWatched)
        LongWork::listen([this](const char* name, qint64 done, qint64 total) { show(name, done, total); });
}

ProgressLine::~ProgressLine()
{
    if (m_isWatched)
        LongWork::listen({});
}

void ProgressLine::show(const char* name, qint64 done, qint64 total)
{
    const bool isNew = name != m_name;
    if (!isNew && done < total && m_shown.isValid() && m_shown.elapsed() < pauseMs)
        return;
    m_name = name;
    m_shown.start();
    m_err << "\r\x1b[K"; // clears the line
    if (name)
        m_err << QString::fromUtf8(name);
    if (name && total > 0)
        m_err << QStringLiteral(": %1 % (%2 из %3)").arg(done * 100 / total).arg(done).arg(total);
    else if (name && done > 0)
        m_err << QStringLiteral(": %1").arg(done);
    m_err.flush();
}
