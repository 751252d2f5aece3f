#include "KeptWriter.h"

#include "KeptFolder.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDebug>
#include <system_error>
#include <thread>

using namespace std::chrono_literals;

namespace
{
constexpr auto rest = 600ms;
constexpr auto retry = 2000ms;
constexpr auto patience = 3000ms;
constexpr int longestText = 60 << 20;
const QByteArray magic = QByteArrayLiteral("VRK kept text 1\n");
} // namespace

struct KeptWriter::Shared {
    using Job = std::optional<KeptTexts::Text>; ///< no value: the file is removed

    void run();
    bool take(QMap<QByteArray, Job>* work);
    QString write(QMap<QByteArray, Job>* work);

    std::unique_ptr<KeptFolder> folder; ///< used only by the thread
    QByteArray scope;

    std::mutex mutex;
    std::condition_variable wake;
    std::condition_variable idle;
    QMap<QByteArray, Job> waiting;
    std::function<void(const QString&)> reportError;
    bool isHurried = false;
    bool isEnding = false;
    bool isAtWork = false;
    int passes = 0;
    QString errorText; ///< of the last pass
    bool hasEnded = false;
};

void KeptWriter::Shared::run()
{
    QMap<QByteArray, Job> work;
    while (take(&work)) {
        const QString error = write(&work);
        const std::lock_guard<std::mutex> lock(mutex);
        for (auto job = work.cbegin(); job != work.cend(); ++job)
            if (!waiting.contains(job.key())) // no newer job has come in the meantime
                waiting.insert(job.key(), job.value());
        if (reportError && errorText != error)
            reportError(error);
        errorText = error;
        isAtWork = false;
        ++passes;
        isHurried = isHurried && error.isEmpty() && !waiting.isEmpty();
        idle.notify_all();
    }
    folder.reset();
    const std::lock_guard<std::mutex> lock(mutex);
    hasEnded = true;
    idle.notify_all();
}

/// Waits for work; false when the thread must end.
bool KeptWriter::Shared::take(QMap<QByteArray, Job>* work)
{
    std::unique_lock<std::mutex> lock(mutex);
    wake.wait_for(lock, errorText.isEmpty() ? rest : retry, [this] { return isHurried || isEnding; });
    wake.wait(lock, [this] { return !waiting.isEmpty() || isEnding; });
    if (waiting.isEmpty() || (isEnding && !errorText.isEmpty()))
        return false;
    work->clear();
    work->swap(waiting);
    isAtWork = true;
    return true;
}

/// Failed jobs stay in \a work; returns the error text of the last one.
QString KeptWriter::Shared::write(QMap<QByteArray, Job>* work)
{
    QString error;
    for (auto job = work->begin(); job != work->end();) {
        const QByteArray bytes = *job ? pack(**job, scope) : QByteArray();
        bool done = true;
        if (bytes.size() > longestText) {
            error = QCoreApplication::translate("KeptTexts", "текст слишком длинный");
        } else if (!(*job ? folder->write(job.key(), bytes) : folder->remove(job.key()))) {
            done = false;
            error = folder->errorText();
        }
        job = done ? work->erase(job) : job + 1;
    }
    return error;
}

KeptWriter::KeptWriter(std::unique_ptr<KeptFolder> folder, const QByteArray& scope,
                       std::function<void(const QString&)> reportError)
    : m_shared(std::make_shared<Shared>())
{
    m_shared->folder = std::move(folder);
    m_shared->scope = scope;
    m_shared->reportError = std::move(reportError);
    try {
        std::thread([shared = m_shared] { shared->run(); }).detach();
    } catch (const std::system_error& error) {
        qWarning() << "kept texts: no thread to write them:" << error.what();
        m_shared->hasEnded = true;
    }
}

KeptWriter::~KeptWriter()
{
    std::unique_lock<std::mutex> lock(m_shared->mutex);
    m_shared->isEnding = true;
    m_shared->reportError = nullptr;
    m_shared->wake.notify_all();
    m_shared->idle.wait_for(lock, patience, [this] { return m_shared->hasEnded; });
}

void KeptWriter::put(const KeptTexts::Text& text)
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->waiting.insert(text.id, text);
    m_shared->wake.notify_all();
}

void KeptWriter::remove(const QByteArray& id)
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->waiting.insert(id, std::nullopt);
    m_shared->isHurried = true; // written texts must not be offered again
    m_shared->wake.notify_all();
}

bool KeptWriter::flush()
{
    std::unique_lock<std::mutex> lock(m_shared->mutex);
    m_shared->isHurried = true;
    m_shared->wake.notify_all();
    const int wanted = m_shared->passes + (m_shared->isAtWork ? 2 : 1);
    const auto isDone = [this] { return m_shared->waiting.isEmpty() && !m_shared->isAtWork; };
    m_shared->idle.wait_for(lock, patience, [this, wanted, isDone] {
        return m_shared->hasEnded || m_shared->passes >= wanted || isDone();
    });
    return isDone() && m_shared->errorText.isEmpty();
}

QString KeptWriter::errorText() const
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_shared->errorText;
}

QByteArray KeptWriter::pack(const KeptTexts::Text& text, const QByteArray& scope)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_12);
    stream << scope << text.id << text.place << text.values << text.time;
    return magic + QCryptographicHash::hash(body, QCryptographicHash::Sha1) + body;
}

bool KeptWriter::unpack(const QByteArray& bytes, const QByteArray& scope, KeptTexts::Text* text)
{
    const int head = magic.size() + QCryptographicHash::hashLength(QCryptographicHash::Sha1);
    if (bytes.size() < head || !bytes.startsWith(magic))
        return false;
    const QByteArray body = bytes.mid(head);
    if (QCryptographicHash::hash(body, QCryptographicHash::Sha1) !=
        bytes.mid(magic.size(), head - magic.size()))
        return false;
    QDataStream stream(body);
    stream.setVersion(QDataStream::Qt_5_12);
    QByteArray whose;
    stream >> whose >> text->id >> text->place >> text->values >> text->time;
    return stream.status() == QDataStream::Ok && stream.atEnd() && whose == scope;
}
