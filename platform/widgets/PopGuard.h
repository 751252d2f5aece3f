#pragma once

#include "VrkExport.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

/// Blocks mouse and keys for the window under a pop-up while the guard is up, and informs tables that a
/// question is open, so that they keep their current record.
class VRK_EXPORT PopGuard : public QObject
{
    Q_OBJECT

public:
    /// Guards the module's window (or the dialog) that \a pop was made in; \a pop must outlive the guard.
    explicit PopGuard(QWidget* pop);
    ~PopGuard() override;

    void raise();
    void lower();
    bool isUp() const { return m_up; }

    /// The guard over this widget, or null.
    static PopGuard* over(const QWidget* widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The pop-up is closed and its answer has been handled.
    void lowered();

private:
    bool covers(const QWidget* widget) const;

    QWidget* m_pop;
    QPointer<QWidget> m_under;
    bool m_up = false;
};
