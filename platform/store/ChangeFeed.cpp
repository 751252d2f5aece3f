#include "ChangeFeed.h"

#include <algorithm>
#include <QRandomGenerator>
#include <utility>

namespace
{
constexpr int pollMs = 100;         // for writes of other processes
constexpr int slowestPollMs = 2000; // while the store cannot be reached
constexpr int settleMs = 50;        // hints in quick succession are answered by one reading
constexpr int changesAtOnce = 1000;
} // namespace

ChangeFeed::ChangeFeed(Store* store, QObject* parent) : QObject(parent), m_store(store)
{
    m_timer.setInterval(pollMs);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (m_lost || m_store->hasNews())
            poll();
    });
    m_settle.setInterval(settleMs);
    m_settle.setSingleShot(true);
    connect(&m_settle, &QTimer::timeout, this, &ChangeFeed::settle);
}

bool ChangeFeed::start(StoreError* error)
{
    if (!m_store->position(&m_position, error))
        return false;
    m_lost = false;
    m_timer.start(pollMs);
    if (!m_notifier && m_store->newsDescriptor() >= 0) {
        m_notifier = std::make_unique<QSocketNotifier>(m_store->newsDescriptor(), QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &ChangeFeed::hear);
    }
    return true;
}

void ChangeFeed::stop()
{
    m_timer.stop();
    m_settle.stop();
    m_notifier.reset();
}

void ChangeFeed::hear()
{
    if (m_isPolling || !m_store->hasNews())
        return;
    if (m_settle.isActive())
        return; // this reading finds it
    m_settle.start();
    poll();
}

void ChangeFeed::settle()
{
    // A store does not send a hint for every transaction, so the last reading must find nothing.
    if (!m_lost && poll() > 0)
        m_settle.start();
}

void ChangeFeed::wake()
{
    if (m_isWoken)
        return;
    m_isWoken = true;
    QTimer::singleShot(0, this, [this] {
        m_isWoken = false;
        if (m_timer.isActive())
            poll();
    });
}

int ChangeFeed::poll()
{
    if (m_isPolling)
        return 0; // called by a receiver: the running poll continues to the end of the log
    m_isPolling = true;
    int delivered = 0;
    for (;;) {
        QVector<StoreChange> changes;
        StoreError error;
        if (!m_store->changesAfter(&m_position, changesAtOnce, &changes, &error)) {
            m_isPolling = false;
            if (error.code == StoreError::NotAStore)
                beginAnew();
            else
                reportLost(error);
            return delivered;
        }
        if (m_position.broken.number > 0)
            emit broken(m_position.epoch, std::exchange(m_position.broken, {}));
        if (changes.isEmpty())
            break;
        delivered += changes.size();
        emit arrived(changes);
    }
    m_isPolling = false;
    reportFound();
    return delivered;
}

void ChangeFeed::reportLost(const StoreError& error)
{
    waitLonger();
    if (m_lost)
        return;
    m_lost = true;
    emit lost(error);
}

void ChangeFeed::waitLonger()
{
    if (!m_timer.isActive())
        return;
    // Not all at once: many workstations are waiting for a server that comes back.
    m_pause = m_lost ? std::min(2 * m_pause, slowestPollMs) : pollMs;
    m_timer.setInterval(m_pause / 2 + QRandomGenerator::global()->bounded(m_pause));
}

void ChangeFeed::reportFound()
{
    if (!m_lost)
        return;
    m_lost = false;
    if (m_timer.isActive())
        m_timer.setInterval(pollMs);
    emit found();
}

void ChangeFeed::beginAnew()
{
    StoreError error;
    if (!m_store->position(&m_position, &error)) {
        reportLost(error);
        return;
    }
    reportFound();
    emit restarted();
}
