#include "LogWriter.h"

#include <cstdio>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace
{
constexpr qint64 largestFile = 4 << 20;

LogWriter* currentWriter = nullptr;
QtMessageHandler previousHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    static const char* const kinds[] = {"debug", "warning", "critical", "fatal", "info"};
    if (currentWriter)
        currentWriter->write(QLatin1String(kinds[type]), text);
    if (previousHandler)
        previousHandler(type, context, text);
}
} // namespace

LogWriter::LogWriter(const QString& file) : m_file(file)
{
    const QFileInfo info(file);
    QDir().mkpath(info.absolutePath());
    if (info.size() > largestFile) {
        QFile::remove(file + QStringLiteral(".1"));
        QFile::rename(file, file + QStringLiteral(".1"));
    }
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append))
        std::fprintf(stderr, "cannot write the log %s\n", qPrintable(file));
    currentWriter = this;
    previousHandler = qInstallMessageHandler(handleMessage);
}

LogWriter::~LogWriter()
{
    qInstallMessageHandler(previousHandler);
    currentWriter = nullptr;
}

void LogWriter::write(const QString& kind, const QString& text)
{
    if (!m_file.isOpen())
        return;
    const QString line = QStringLiteral("%1 %2 %3 %4\n")
                             .arg(QDateTime::currentDateTime().toString(Qt::ISODateWithMs),
                                  QString::number(QCoreApplication::applicationPid()), kind, text);
    m_file.write(line.toUtf8());
    m_file.flush();
}

QString LogWriter::defaultFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vrk-logbook/vrk-workstation.log");
}

LogSink::LogSink(CVrkCliApp* app, LogWriter* writer) : CVrkCliMod(app), m_writer(writer) {}

void LogSink::LogFile(int level, QString func, QString text)
{
    m_writer->write(QStringLiteral("module-%1").arg(level), func + QLatin1Char(' ') + text);
}
