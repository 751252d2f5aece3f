#include "TimeStamp.h"

#include "AdminText.h"

#include <csignal>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <sys/types.h>

namespace
{
constexpr int opensslSeconds = 60;
constexpr int napMs = 50;
constexpr int largestResponse = 1 << 20;

bool refuse(StoreError* error, const QString& text, const QByteArray& said = QByteArray())
{
    *error = {StoreError::BadRequest, text, AdminText::printable(QString::fromUtf8(said).trimmed())};
    return false;
}

/// Runs a program in a session of its own, so that it can be ended with all that it has started: when it takes too
/// long, or writes more than any answer has.
bool run(const QStringList& line, const QByteArray& input, int seconds, QByteArray* output,
         const QString& failure, StoreError* error)
{
    QProcess process;
    process.start(QStringLiteral("setsid"), line);
    if (!process.waitForStarted())
        return refuse(error, failure, process.errorString().toUtf8());
    process.write(input);
    process.closeWriteChannel();
    QElapsedTimer clock;
    clock.start();
    const auto isTooLong = [&] { return process.bytesAvailable() > largestResponse; };
    while (!process.waitForFinished(napMs) && !clock.hasExpired(seconds * 1000) && !isTooLong()) {
    }
    if (process.state() != QProcess::NotRunning || isTooLong()) {
        const QString reason = isTooLong()
                                   ? QStringLiteral("%1 Ответ слишком велик.").arg(failure)
                                   : QStringLiteral("%1 Ответа нет дольше %2 с.").arg(failure).arg(seconds);
        ::kill(-static_cast<pid_t>(process.processId()), SIGKILL);
        process.waitForFinished();
        return refuse(error, reason);
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return refuse(error, failure, process.readAllStandardError());
    *output = process.readAllStandardOutput();
    return true;
}

bool openssl(const QStringList& arguments, QByteArray* output, const QString& failure, StoreError* error)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("openssl"));
    if (program.isEmpty())
        return refuse(error,
                      QStringLiteral("Метки времени запрашивает и проверяет программа openssl, а её здесь "
                                     "нет: установите пакет openssl."));
    return run(QStringList{program, QStringLiteral("ts")} + arguments, QByteArray(), opensslSeconds, output,
               failure, error);
}

/// Writes a file for openssl.
bool put(const QTemporaryDir& folder, const char* name, const QByteArray& content, StoreError* error)
{
    QFile file(folder.filePath(QLatin1String(name)));
    return (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush()) ||
           refuse(error, QStringLiteral("Файл «%1» нельзя записать.").arg(file.fileName()));
}
} // namespace

bool TimeStamp::request(const QByteArray& note, QByteArray* query, StoreError* error)
{
    const QTemporaryDir folder;
    return put(folder, "head.txt", note, error) &&
           openssl({QStringLiteral("-query"), QStringLiteral("-data"),
                    folder.filePath(QStringLiteral("head.txt")), QStringLiteral("-sha256"),
                    QStringLiteral("-cert")},
                   query, QStringLiteral("Запрос метки времени не составлен."), error);
}

bool TimeStamp::ask(const QString& command, const QByteArray& query, int seconds, QByteArray* response,
                    StoreError* error)
{
    const QString failure = QStringLiteral("Команда центра меток времени не удалась.");
    if (!run({QStringLiteral("sh"), QStringLiteral("-c"), command}, query, seconds, response, failure, error))
        return false;
    return !response->isEmpty() || refuse(error, failure + QStringLiteral(" Ответ пуст."));
}

bool TimeStamp::isFor(const QByteArray& response, const QByteArray& note)
{
    return response.size() <= largestResponse &&
           response.contains(QCryptographicHash::hash(note, QCryptographicHash::Sha256));
}

bool TimeStamp::verify(const QByteArray& note, const QByteArray& response, const QString& caFile,
                       StoreError* error)
{
    const QString failure =
        QStringLiteral("Метка времени не принята: она не от этого центра, не для этой печати или "
                       "испорчена.");
    if (!QFile::exists(caFile))
        return refuse(error, QStringLiteral("Файла «%1» с сертификатом центра нет.").arg(caFile));
    if (!isFor(response, note))
        return refuse(error, failure);
    const QTemporaryDir folder;
    QByteArray said;
    return put(folder, "head.txt", note, error) && put(folder, "head.tsr", response, error) &&
           openssl({QStringLiteral("-verify"), QStringLiteral("-data"),
                    folder.filePath(QStringLiteral("head.txt")), QStringLiteral("-in"),
                    folder.filePath(QStringLiteral("head.tsr")), QStringLiteral("-CAfile"), caFile},
                   &said, failure, error);
}
