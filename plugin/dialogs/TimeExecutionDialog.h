#pragma once

#include "MarkTimeDialog.h"

#include <memory>

namespace Ui
{
class TimeExecutionDialog;
}

/// Sets or removes the execution time of a record.
class TimeExecutionDialog : public MarkTimeDialog
{
    Q_OBJECT

public:
    /// \a parent is the module, which provides the server's time.
    explicit TimeExecutionDialog(QWidget* parent, int flag = -1);
    ~TimeExecutionDialog() override;

signals:
    void removeTime();
    void setTime(const QDateTime& time);

private:
    void emitCleared() override { emit removeTime(); }
    void emitSet(const QDateTime& time) override { emit setTime(time); }

    std::unique_ptr<Ui::TimeExecutionDialog> m_form;
};
