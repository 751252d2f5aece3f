#pragma once

#include <functional>
#include <QDateTime>
#include <QTimer>

class CVrkCliSes;
class QHBoxLayout;
class QLabel;

/// The clock of the status line, which shows the server's time, and a warning if this computer's clock
/// differs from it. The server is asked once in a minute; in between our own clock continues its time.
class ServerClock : public QObject
{
    Q_OBJECT

public:
    /// Appends its labels to \a line.
    ServerClock(CVrkCliSes* session, QHBoxLayout* line, QObject* parent);

    /// Shows the time without the date.
    void setShort(bool isShort);
    /// The clock of this computer, for tests.
    void setOwnClock(std::function<QDateTime()> clock);

private:
    void synchronize();
    void show();

    CVrkCliSes* m_session;
    QLabel* m_deviationLabel;
    QLabel* m_clockLabel;
    std::function<QDateTime()> m_ownClock = &QDateTime::currentDateTime;
    QTimer m_timer;
    qint64 m_serverAhead = 0; ///< milliseconds that the server's clock is ahead of ours
    int m_ticks = 0;
    bool m_isShort = false;
};
