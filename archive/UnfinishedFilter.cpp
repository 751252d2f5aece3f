#include "UnfinishedFilter.h"

#include "RecordList.h"

void UnfinishedFilter::setKinds(int kinds)
{
    if (kinds == m_kinds)
        return;
    m_kinds = kinds;
    emit enabledChanged(isEnabled()); // proxies with this rule filter again
}

bool UnfinishedFilter::isAcceptRow(const CMDArray* array, MDRData* record) const
{
    MDRVar lacks;
    array->GetVal(record, Field::lacks, lacks);
    return !isEnabled() || (!lacks.isNull && (lacks.value.number & m_kinds) != 0);
}
