#pragma once

#include "Store.h"

#include <memory>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

/// Follows the change log of a store: wakes up on hints, reads the changes after its position and emits
/// each of them once, in order of commit. Hints may be lost, so a slow poll runs as well.
class ChangeFeed : public QObject
{
    Q_OBJECT

public:
    /// \a store must outlive the feed.
    explicit ChangeFeed(Store* store, QObject* parent = nullptr);

    /// Starts after the current end of the log.
    bool start(StoreError* error);
    void stop();
    ChangePosition position() const { return m_position; }
    /// An own write was committed: read soon, from the event loop and never during the request.
    void wake();
    /// Reads now; returns the number of changes delivered.
    int poll();
    /// A request of the session found the link lost: behaves as if a poll had found it; lost() is emitted
    /// and the feed keeps trying.
    void reportLost(const StoreError& error);

signals:
    void arrived(const QVector<StoreChange>& changes);
    /// A change does not continue the log up to it: somebody has written the log again. Comes before arrived(), and once
    /// for a place; the feed goes on from there.
    void broken(const QByteArray& epoch, const ChangePosition::Break& place);
    /// The link is lost; the feed keeps trying and emits found() when it has caught up.
    void lost(const StoreError& error);
    void found();
    /// The store has a different history: modules must restart.
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
    std::unique_ptr<QSocketNotifier> m_notifier; ///< if the store sends hints
    QTimer m_settle;                             ///< since the last reading caused by a hint
    int m_pause = 0;                             ///< between two attempts to reach a lost store
    bool m_lost = false;
    bool m_isWoken = false;
    bool m_isPolling = false;
};
