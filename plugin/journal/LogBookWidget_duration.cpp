#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "FileAnswer.h"
#include "HfnTime.h"
#include "LogBookWidget.h"
#include "LogText.h"
#include "RecordValue.h"

#include <limits>
#include <memory>
#include <QDebug>
#include <QTextCodec>
#include <QTimer>

void LogBookWidget::uploadWorkshiftDurationControl()
{
    const QString name = QStringLiteral("FileGet");
    const QString argument = QStringLiteral("options;OperLogOptions");
    const auto log = [](const QString& text) {
        qDebug().noquote() << "void LogBookWidget::uploadWorkshiftDurationControl()" << text;
    };

    CVrkCliSes* session = m_module->session();
    const QByteArray bytes = session->codec()->fromUnicode(argument);
    HFNCliParam* block = nullptr;
    if (!session->PacketExec("FileGet", reinterpret_cast<const unsigned char*>(bytes.constData()),
                             bytes.size(), &block)) {
        log(LogText::fill(QStringLiteral("request PacketExec('%1', '%2') returned FALSE"), {name, argument}));
        return;
    }
    const bool isAnswered = session->WaitResult(&block, -1);
    const auto release = [session](HFNCliParam* answer) { session->PrmFree(answer); };
    const std::unique_ptr<HFNCliParam, decltype(release)> owned(block, release);
    if (!isAnswered || !block) {
        log(LogText::fill(QStringLiteral("can not wait result or result is nullptr for request "
                                         "PacketExec('%1', '%2')"),
                          {name, argument}));
        return;
    }
    const FileAnswer answer = FileAnswer::read(block, argument);
    if (answer.failure.isEmpty())
        m_durationOptions = DurationOptions::fromXml(session->codec()->toUnicode(answer.content));
    else
        log(answer.failure);
}

void LogBookWidget::startDurationControl()
{
    m_controlTimer->start(1000);
    m_repeatTimer->stop();
}

void LogBookWidget::controlWorkshiftDuration()
{
    const DurationOptions& options = m_durationOptions;
    if (!options.isOn || options.delay <= 0 || options.interval <= 0 || !isEditableWorkshift())
        return;
    const MDRVar end = Row(m_currentWorkshift).value(Field::endTime);
    if (end.isNull || end.value.real < 1.0)
        return;
    // The clock of this machine, not that of the server.
    if (options.delay + end.value.real > DateTime_To_HfnTime(QDateTime::currentDateTime()))
        return;
    m_controlTimer->stop();
    showNotifyWorkshiftLimit();
    m_repeatTimer->start(qMin(options.interval, std::numeric_limits<int>::max() / 1000) * 1000);
}

void LogBookWidget::showNotifyWorkshiftLimit()
{
    showMsgBox(tr("Предупреждение"),
               LogText::centered(tr("Превышена допустимая длительность смены.") + QStringLiteral("<br/>") +
                                 tr("Необходимо провести сдачу/прием смены.")),
               MessageIconWarning, MessageTypeOk, SLOT(closeMsgBox(QAbstractButton*)));
    m_module->CallAttention(tr("Превышена допустимая длительность смены.") + QLatin1Char(' ') +
                            tr("Необходимо провести сдачу/прием смены."));
}
