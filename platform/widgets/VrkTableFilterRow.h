#pragma once

#include "CMDArray.h"

#include <QObject>

/// A rule that decides which records a table shows. Enabled when it is made.
class VRK_EXPORT VrkTableFilterRow : public QObject
{
    Q_OBJECT

public:
    explicit VrkTableFilterRow(QObject* parent = nullptr);
    ~VrkTableFilterRow() override;

    /// True keeps the row. The rule itself heeds isEnabled(). Stays the first virtual operation behind those
    /// of QObject.
    virtual bool isAcceptRow(const CMDArray* array, MDRData* record) const;

    bool isEnabled() const { return m_enabled; }
    /// Switches the rule; every proxy that holds it asks again about all rows at once.
    void setEnabled(bool enabled);

signals:
    void enabledChanged(bool enabled);

private:
    bool m_enabled = true;
};
