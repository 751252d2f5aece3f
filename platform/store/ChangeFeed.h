#pragma once

#include "Store.h"

#include <QObject>
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
    void reportFound();
    void beginAnew();

    Store* m_store;
    ChangePosition m_position;
    QTimer m_timer;
    bool m_lost = false;
    bool m_isWoken = false;
    bool m_isPolling = false;
};
