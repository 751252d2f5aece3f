#include "CVrkCliSes_p.h"
#include "EvidenceLog.h"

bool CVrkCliSes::Private::history(const char* function, ReadHistory read, const QByteArray& key,
                                  QVector<RowChange>* changes)
{
    StoreError error = noLink();
    bool isRead = false;
    if (connected) {
        Request running(this);
        error.clear();
        const std::unique_ptr<EvidenceLog> log = store->evidence(Store::Access::Read, &error);
        isRead = log && (LogHistory(log.get()).*read)(key, changes);
    }
    if (!isRead)
        return fail(function, error, QString::fromUtf8(key));
    lastError.clear();
    return true;
}

bool CVrkCliSes::recordHistory(const QByteArray& key, QVector<RowChange>* changes)
{
    return d->history(Q_FUNC_INFO, &LogHistory::ofRecord, key, changes);
}

bool CVrkCliSes::archivedWorkshifts(const QByteArray& department, QVector<RowChange>* changes)
{
    return d->history(Q_FUNC_INFO, &LogHistory::archivedShifts, department, changes);
}

bool CVrkCliSes::workshiftHistory(const QByteArray& key, QVector<RowChange>* changes)
{
    return d->history(Q_FUNC_INFO, &LogHistory::ofWorkshift, key, changes);
}
