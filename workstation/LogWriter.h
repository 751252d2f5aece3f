#pragma once

#include "CVrkCliMod.h"

#include <QFile>

/// The log file of the workstation: the message log of the whole process and the lines of the modules. A file
/// that has grown past 4 MiB is set aside once, so the log never takes more than twice that.
class LogWriter
{
public:
    /// Opens \a file for appending and takes over Qt's message log; what is written goes to stderr as well. A
    /// file that cannot be opened leaves stderr alone.
    explicit LogWriter(const QString& file);
    ~LogWriter();
    LogWriter(const LogWriter&) = delete;
    LogWriter& operator=(const LogWriter&) = delete;

    void write(const QString& kind, const QString& text);
    static QString defaultFile();

private:
    QFile m_file;
};

/// The module of the host that receives the log lines of all modules. Never shown.
class LogSink : public CVrkCliMod
{
    Q_OBJECT

public:
    LogSink(CVrkCliApp* app, LogWriter* writer);
    void LogFile(int level, QString func, QString text) override;

private:
    LogWriter* m_writer;
};
