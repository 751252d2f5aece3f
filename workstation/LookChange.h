#pragma once

#include <QPair>
#include <QPointer>
#include <QString>
#include <QVector>

class QWidget;

/// Keep one of these around a change of the application's style, colours or font: every widget takes the
/// change before it dies.
///
/// Widgets with a style sheet, and those inside of them, keep the look that they had when the sheet was set:
/// all sheets are off while it lives.
class LookChange
{
public:
    LookChange();
    ~LookChange();
    Q_DISABLE_COPY(LookChange)

private:
    QVector<QPair<QPointer<QWidget>, QString>> m_sheets;
};
