#pragma once

#include "CVrkCliMod.h"

#include <QFile>

/// The log file of the workstation: Qt's message log of the whole process and the lines of the modules. A
/// file larger than 4 MiB is renamed once, so the log never takes more than twice that size.
class LogWriter
{
public:
    /// Opens \a file for appending and handles Qt's message log; everything also goes to stderr. If the
    /// file cannot be opened, only stderr is used.
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
