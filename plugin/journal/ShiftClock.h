#pragma once

#include "DurationOptions.h"

#include <QObject>

class CVrkCliSes;
class JournalRules;
class QTimer;

/// Watches the end of the shown workshift while the user works in it. Off unless the server's options
/// switch it on.
class ShiftClock : public QObject
{
    Q_OBJECT

public:
    ShiftClock(const JournalRules& rules, QObject* parent);

    /// Reads the options from the server.
    void upload(CVrkCliSes* session);
    /// Watches from now on: for a workshift that has appeared or changed.
    void start();

signals:
    /// The workshift exceeds its end by more than the allowed delay; repeated at the interval of the
    /// options.
    void limitExceeded();

private:
    void controlWorkshiftDuration();

    const JournalRules& m_rules;
    DurationOptions m_options;
    QTimer* m_control;
    QTimer* m_repeat;
};
