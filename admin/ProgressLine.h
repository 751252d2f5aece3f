#pragma once

#include "Command.h"

#include <QElapsedTimer>

/// Shows on the error stream how far long work is, in one line that disappears at its end; nothing unless somebody
/// watches the stream on a terminal. The streams must outlive the object.
class ProgressLine
{
public:
    explicit ProgressLine(const Streams& streams);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

private:
    void show(const char* name, qint64 done, qint64 total);

    QTextStream& m_err;
    const bool m_isWatched;
    const char* m_name = nullptr;
    QElapsedTimer m_shown;
};
