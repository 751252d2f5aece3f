#pragma once

#include "Store.h"

#include <memory>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

/// Follows the change log of a store: wakes up on hints, reads what came after its position and hands it on, every
/// change once and in order of commit. The hint is only a hint: a slow poll stands behind it.
class ChangeFeed : public QObject
{
    Q_OBJECT

public:
    /// \a store must outlive the feed.
    explicit ChangeFeed(Store* store, QObject* parent = nullptr);

    /// Begins behind the present end of the log.
    bool start(StoreError* error);
    void stop();
    ChangePosition position() const { return m_position; }
    /// An own write was committed: read soon, from the event loop and never from inside the request.
    void wake();
    /// Reads now; returns the number of changes delivered.
    int poll();
    /// A request of the session found the link gone: as if a poll had, lost() is sent and the feed tries on.
    void reportLost(const StoreError& error);

signals:
    void arrived(const QVector<StoreChange>& changes);
    /// The link is gone; the feed goes on trying and says found() when it has caught up.
    void lost(const StoreError& error);
    void found();
    /// The history is another one: modules must start anew.
    void restarted();

private:
    void hear();
    void settle();
    void waitLonger();
    void reportFound();
    void beginAnew();

    Store* m_store;
    ChangePosition m_position;
    QTimer m_timer;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< where the store has hints of its own
    QTimer m_settle;                             ///< since the last reading that a hint has caused
    int m_pause = 0;                             ///< between two attempts to find a lost store again
    bool m_lost = false;
    bool m_isWoken = false;
    bool m_isPolling = false;
};
