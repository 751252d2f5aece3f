#pragma once

#include "MarkTimeDialog.h"

#include <memory>

namespace Ui
{
class SecondMarkerDialog;
}

/// Sets or removes the second marker of a record.
class SecondMarkerDialog : public MarkTimeDialog
{
    Q_OBJECT

public:
    /// \a parent is the module, which provides the server's time.
    explicit SecondMarkerDialog(QWidget* parent, int flag = -1);
    ~SecondMarkerDialog() override;

signals:
    void removeMarker();
    void setMarker(const QDateTime& time);

private:
    void emitCleared() override { emit removeMarker(); }
    void emitSet(const QDateTime& time) override { emit setMarker(time); }

    std::unique_ptr<Ui::SecondMarkerDialog> m_form;
};
