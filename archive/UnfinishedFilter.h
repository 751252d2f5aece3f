#pragma once

#include "VrkTableFilterRow.h"

/// Shows the records in which one of the chosen things is missing.
class UnfinishedFilter : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;

    /// A combination of RecordRules::Lack; every table with this filter filters again.
    void setKinds(int kinds);
    int kinds() const { return m_kinds; }
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    int m_kinds = -1;
};
