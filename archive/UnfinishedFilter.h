#pragma once

#include "VrkTableFilterRow.h"

/// Shows the records that lack one of the chosen things.
class UnfinishedFilter : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;

    /// A sum of RecordRules::Lack; every table that holds the filter asks again.
    void setKinds(int kinds);
    int kinds() const { return m_kinds; }
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    int m_kinds = -1;
};
