#pragma once

#include "VrkExport.h"

#include <QHash>
#include <QString>

/// Named text parameters, such as those of the login.
class VRK_EXPORT CStringParams
{
public:
    QString getValue(const QString& key, const QString& defaultValue) const;
    void setValue(const QString& key, const QString& value);

private:
    QHash<QString, QString> m_values;
};
