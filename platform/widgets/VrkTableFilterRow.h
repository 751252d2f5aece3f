#pragma once

#include "CMDArray.h"

#include <QObject>

/// A rule that decides which records a table shows. Enabled by default.
class VRK_EXPORT VrkTableFilterRow : public QObject
{
    Q_OBJECT

public:
    explicit VrkTableFilterRow(QObject* parent = nullptr);
    ~VrkTableFilterRow() override;

    /// True keeps the row. The rule itself checks isEnabled(). Must remain the first virtual function after
    /// those of QObject.
    virtual bool isAcceptRow(const CMDArray* array, MDRData* record) const;

    bool isEnabled() const { return m_enabled; }
    /// Switches the rule on or off; every proxy that uses it filters all rows again at once.
    void setEnabled(bool enabled);

signals:
    void enabledChanged(bool enabled);

private:
    bool m_enabled = true;
};
