#include "UnfinishedFilter.h"

#include "RecordList.h"
#include "Row.h"

void UnfinishedFilter::setKinds(int kinds)
{
    if (kinds == m_kinds)
        return;
    m_kinds = kinds;
    emit enabledChanged(isEnabled()); // proxies with this rule filter again
}

bool UnfinishedFilter::isAcceptRow(const CMDArray*, MDRData* record) const
{
    return !isEnabled() || (Row(record).number(Field::lacks, 0) & m_kinds) != 0;
}
