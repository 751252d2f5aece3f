#include "CStringParams.h"

QString CStringParams::getValue(const QString& key, const QString& defaultValue) const
{
    return m_values.value(key, defaultValue);
}

void CStringParams::setValue(const QString& key, const QString& value)
{
    m_values.insert(key, value);
}
