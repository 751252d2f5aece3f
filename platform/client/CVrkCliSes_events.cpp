#include "CVrkCliSes_p.h"

#include <QScopedValueRollback>

void CVrkCliSes::connectFeed()
{
    connect(d->feed.get(), &ChangeFeed::arrived, this, [this](const QVector<StoreChange>& changes) {
        for (const StoreChange& change : changes) {
            const QByteArray source = "NCI:" + change.table + ',' + QByteArray::number(change.number);
            d->waiting.emplace_back(
                HFNCliParam::event(change.event, change.key, source, change.packedRecord));
        }
        const ChangePosition position = d->feed->position();
        emit changesRead(position.epoch, position.number, position.chain);
        if (!d->polling)
            emit eventsWaiting();
    });
    connect(d->feed.get(), &ChangeFeed::lost, this, [this] { d->setConnected(false); });
    connect(d->feed.get(), &ChangeFeed::found, this, [this] {
        StoreError error;
        if (d->settle(&error))
            d->setConnected(true);
        else
            d->feed->reportLost(error);
    });
    connect(d->feed.get(), &ChangeFeed::restarted, this, &CVrkCliSes::historyChanged);
    connect(d->feed.get(), &ChangeFeed::broken, this,
            [this](const QByteArray& epoch, const ChangePosition::Break& place) {
                emit chainBroken(epoch, place.number, place.expected, place.found);
            });
}

void CVrkCliSes::Private::setConnected(bool up)
{
    // Without the feed nothing would notice that the link is back: each request tries for itself.
    if (up == connected || !started)
        return;
    connected = up;
    emit q->connectionChanged(up);
}

bool CVrkCliSes::startEvents()
{
    if (d->started)
        return true;
    StoreError error;
    if (!d->feed->start(&error))
        return d->fail(Q_FUNC_INFO, error, QString());
    d->started = true;
    return true;
}

std::vector<HFNCliParam*> CVrkCliSes::takeEvents()
{
    std::vector<HFNCliParam*> events;
    for (std::unique_ptr<HFNCliParam>& block : d->waiting)
        events.push_back(d->give(block.release()));
    d->waiting.clear();
    return events;
}

int CVrkCliSes::pollEvents()
{
    if (!d->started || d->requests > 0)
        return 0;
    const QScopedValueRollback<bool> polling(d->polling, true);
    d->feed->poll();
    return static_cast<int>(d->waiting.size());
}
