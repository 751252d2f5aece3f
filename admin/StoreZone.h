#pragma once

#include "Store.h"

#include <ctime>

/// Makes the process show and read times in the zone of the store, like the workstations, as long as it
/// exists.
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
