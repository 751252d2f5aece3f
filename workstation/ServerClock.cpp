#include "ServerClock.h"

#include "CVrkCliSes.h"
#include "StatusLabel.h"

namespace
{
constexpr int secondsBetweenSynchronizations = 60;
/// A larger deviation of this computer's clock is reported.
constexpr qint64 toleratedDeviationMs = 5000;
} // namespace

ServerClock::ServerClock(CVrkCliSes* session, QHBoxLayout* line, QObject* parent)
    : QObject(parent),
      m_session(session),
      m_deviationLabel(StatusLabel::add(QStringLiteral("deviationLabel"), line)),
      m_clockLabel(StatusLabel::add(QStringLiteral("clockLabel"), line))
{
    m_deviationLabel->setStyleSheet(QLatin1String(StatusLabel::noticeColours));
    m_deviationLabel->setToolTip(tr("Журнал живёт по времени сервера. Сверьте часы этого компьютера."));
    m_clockLabel->setToolTip(tr("Время сервера"));
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (++m_ticks % secondsBetweenSynchronizations == 0)
            synchronize();
        show();
    });
    m_timer.start();
    synchronize();
    show();
}

void ServerClock::setShort(bool isShort)
{
    m_isShort = isShort;
    show();
}

void ServerClock::setOwnClock(std::function<QDateTime()> clock)
{
    m_ownClock = std::move(clock);
    synchronize();
    show();
}

void ServerClock::synchronize()
{
    const double now = m_session->GetHfnTime();
    if (now > 0)
        m_serverAhead = m_ownClock().msecsTo(HfnTime_to_DateTime(now, -1));
    const bool isWrong = qAbs(m_serverAhead) > toleratedDeviationMs;
    const qint64 seconds = qAbs(m_serverAhead) / 1000;
    m_deviationLabel->setVisible(isWrong);
    m_deviationLabel->setText(!isWrong ? QString()
                              : m_serverAhead > 0 ? tr("Часы компьютера отстают на %1 с").arg(seconds)
                                                  : tr("Часы компьютера спешат на %1 с").arg(seconds));
}

void ServerClock::show()
{
    m_clockLabel->setText(
        m_ownClock()
            .addMSecs(m_serverAhead)
            .toString(m_isShort ? QStringLiteral("hh:mm:ss") : QStringLiteral("dd.MM.yyyy hh:mm:ss")));
}
