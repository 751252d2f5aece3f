#include "PgAttempt.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{
using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds patience(3); // with one host that does not answer

/// Connects as long as the host answers within the patience; a later failure is final.
PostgresPollingStatusType connectPatiently(PGconn* connection)
{
    const auto end = Clock::now() + patience;
    PostgresPollingStatusType next = PGRES_POLLING_WRITING;
    while (next == PGRES_POLLING_READING || next == PGRES_POLLING_WRITING) {
        pollfd entry = {PQsocket(connection), short(next == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0 || ::poll(&entry, 1, static_cast<int>(left.count())) == 0)
            break;
        next = PQconnectPoll(connection);
    }
    return next;
}

PGconn* connected(const QVector<PgAttempt::Setting>& settings)
{
    QVector<const char*> names;
    QVector<const char*> values;
    for (const PgAttempt::Setting& setting : settings) {
        names.append(setting.name.constData());
        values.append(setting.value.constData());
    }
    names.append(nullptr);
    values.append(nullptr);
    PGconn* connection = PQconnectStartParams(names.constData(), values.constData(), 1);
    if (!connection)
        return nullptr;
    PQsetErrorVerbosity(connection, PQERRORS_VERBOSE); // includes the code that distinguishes a refusal
                                                       // from a lost connection
    PQsetNoticeProcessor(
        connection, [](void*, const char*) {}, nullptr);
    if (PQstatus(connection) == CONNECTION_BAD)
        return connection;
    const PostgresPollingStatusType end = connectPatiently(connection);
    // A host that does not answer: libpq tries the next one only while it waits itself.
    if (end != PGRES_POLLING_OK && end != PGRES_POLLING_FAILED)
        PQreset(connection);
    return connection;
}

} // namespace

/// Shared by the thread and its owner.
struct PgAttempt::Shared {
    std::mutex mutex;
    std::condition_variable ended;
    bool hasEnded = false;
    PGconn* connection = nullptr;
    int event = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);

    Shared() = default;
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared()
    {
        PQfinish(connection);
        if (event >= 0)
            ::close(event);
    }
    void end(PGconn* result)
    {
        const std::lock_guard lock(mutex);
        connection = result;
        hasEnded = true;
        ended.notify_all();
        if (event >= 0)
            eventfd_write(event, 1);
    }
};

PgAttempt::PgAttempt(const QVector<Setting>& settings) : m_shared(std::make_shared<Shared>())
{
    QVector<Setting> all = settings;
    all.prepend(
        {"connect_timeout", QByteArray::number(qint64(patience.count()))}); // the address may set another one
    // Only the program's own threads handle signals.
    sigset_t every;
    sigset_t former;
    sigfillset(&every);
    pthread_sigmask(SIG_SETMASK, &every, &former);
    try {
        std::thread([all, shared = m_shared] { shared->end(connected(all)); }).detach();
    } catch (const std::system_error&) {
        m_shared->end(nullptr); // the machine cannot start another thread
    }
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
}

PgAttempt::~PgAttempt() = default;

bool PgAttempt::wait(int ms) const
{
    std::unique_lock lock(m_shared->mutex);
    return m_shared->ended.wait_for(lock, std::chrono::milliseconds(std::max(0, ms)),
                                    [this] { return m_shared->hasEnded; });
}

int PgAttempt::descriptor() const
{
    return m_shared->event;
}

PGconn* PgAttempt::take()
{
    const std::lock_guard lock(m_shared->mutex);
    return std::exchange(m_shared->connection, nullptr);
}
