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
    void emitCleared() override;
    void emitSet(const QDateTime& time) override;

    std::unique_ptr<Ui::TimeExecutionDialog> m_form;
};
