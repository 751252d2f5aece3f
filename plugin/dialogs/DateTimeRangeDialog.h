#pragma once

#include "CPopTemplate.h"

#include <memory>
#include <QDateTime>

namespace Ui
{
class DateTimeRangeDialog;
}

/// Chooses an interval of the archive. Keeps the values of its last use.
class DateTimeRangeDialog : public CPopTemplate
{
    Q_OBJECT

public:
    explicit DateTimeRangeDialog(QWidget* parent, int flag = -1);
    ~DateTimeRangeDialog() override;

signals:
    void rangeSelected(const QDateTime& start, const QDateTime& end);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QDateTime start() const;
    QDateTime end() const;
    void apply();
    void updateStateControls();

    std::unique_ptr<Ui::DateTimeRangeDialog> m_form;
};
