#include "ShiftWatch.h"

#include <algorithm>
#include <QThread>

namespace
{
constexpr int rowsAtOnce = 1000;
constexpr unsigned long pollMs = 1000;
constexpr unsigned long settledMs = 2000; // what belongs to a closing is written within a second
} // namespace

bool ShiftWatch::wait(StoreError* error)
{
    for (;;) {
        QVector<StoreChange> changes;
        if (!m_store.changesAfter(&m_position, rowsAtOnce, &changes, error))
            return false;
        if (std::any_of(changes.cbegin(), changes.cend(),
                        [](const StoreChange& change) { return change.table == "LogbookWorkshifts"; })) {
            QThread::msleep(settledMs);
            return m_store.position(&m_position, error);
        }
        if (changes.isEmpty())
            QThread::msleep(pollMs);
    }
}
