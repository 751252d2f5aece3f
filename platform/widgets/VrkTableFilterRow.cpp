#include "VrkTableFilterRow.h"

VrkTableFilterRow::VrkTableFilterRow(QObject* parent) : QObject(parent) {}

VrkTableFilterRow::~VrkTableFilterRow() = default;

bool VrkTableFilterRow::isAcceptRow(const CMDArray*, MDRData*) const
{
    return true;
}

void VrkTableFilterRow::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    emit enabledChanged(enabled);
}
