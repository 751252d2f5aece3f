#include "ShiftClock.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "FileAnswer.h"
#include "HfnTime.h"
#include "JournalRules.h"
#include "RecordValue.h"

#include <limits>
#include <QDebug>
#include <QTextCodec>
#include <QTimer>

ShiftClock::ShiftClock(const JournalRules& rules, QObject* parent)
    : QObject(parent), m_rules(rules), m_control(new QTimer(this)), m_repeat(new QTimer(this))
{
    m_control->setObjectName(QStringLiteral("controlTimer"));
    m_repeat->setObjectName(QStringLiteral("repeatTimer"));
    connect(m_control, &QTimer::timeout, this, &ShiftClock::controlWorkshiftDuration);
    connect(m_repeat, &QTimer::timeout, this, &ShiftClock::limitExceeded);
}

void ShiftClock::upload(CVrkCliSes* session)
{
    const FileAnswer answer = FileAnswer::fetch(session, QStringLiteral("options;OperLogOptions"));
    if (answer.failure.isEmpty())
        m_options = DurationOptions::fromXml(session->codec()->toUnicode(answer.content));
    else
        qDebug().noquote() << "void LogBookWidget::uploadWorkshiftDurationControl()" << answer.failure;
}

void ShiftClock::start()
{
    m_control->start(1000);
    m_repeat->stop();
}

void ShiftClock::controlWorkshiftDuration()
{
    if (!m_options.isOn || m_options.delay <= 0 || m_options.interval <= 0 || !m_rules.isEditableWorkshift())
        return;
    const MDRVar end = Row(m_rules.currentWorkshift()).value(Field::endTime);
    if (end.isNull || end.value.real < 1.0)
        return;
    // The clock of this machine, not that of the server.
    if (m_options.delay + end.value.real > DateTime_To_HfnTime(QDateTime::currentDateTime()))
        return;
    m_control->stop();
    emit limitExceeded();
    m_repeat->start(qMin(m_options.interval, std::numeric_limits<int>::max() / 1000) * 1000);
}
