#pragma once

#include "Store.h"

#include <ctime>

/// Times are shown and typed in the zone of the store, as the workstations do, as long as this lives.
class StoreZone
{
public:
    explicit StoreZone(const Store& store) : m_before(qgetenv("TZ"))
    {
        qputenv("TZ", store.timeZone());
        tzset();
    }
    ~StoreZone()
    {
        if (m_before.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", m_before);
        tzset();
    }
    StoreZone(const StoreZone&) = delete;
    StoreZone& operator=(const StoreZone&) = delete;

private:
    QByteArray m_before;
};
