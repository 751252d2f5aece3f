#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnTime.h"
#include "LogBookWidget.h"
#include "LogText.h"
#include "RecordValue.h"

#include <QDebug>
#include <QTextCodec>

namespace
{
constexpr char requestName[] = "FileGet";
constexpr char optionsFile[] = "options;OperLogOptions";
constexpr int contentField = 3; ///< of the record that the answer packs

void debug(const QString& text)
{
    qDebug().noquote() << "void LogBookWidget::uploadWorkshiftDurationControl()" << text;
}

/// The file's text out of the answer; false, and a line in the log, when there is none.
bool contentOf(const HFNCliParam* answer, const QTextCodec* codec, QString& content)
{
    const QString name = QLatin1String(requestName);
    const QString argument = QLatin1String(optionsFile);
    int code = 0;
    MDRGetAsInt32(MDRFldByNum(answer->array, 0), answer, &code);
    if (code != 0) {
        debug(LogText::fill(QStringLiteral("request PacketExec('%1', '%2') return error code %3"),
                            {name, argument, QString::number(code)}));
        return false;
    }

    char* packed = nullptr;
    MDRGetTextPtr(MDRFldByNum(answer->array, 2), answer, &packed);
    CMDArray file;
    file.lastError = MDACreate(&file.array, 0);
    HFNArrayUnPack(file.array, packed, 1);
    if (file.RecCount() != 1) {
        debug(LogText::fill(QStringLiteral("request PacketExec('%1', '%2') return empty data "
                                           "(CMDArray::RecCount() == 0)"),
                            {name, argument}));
        return false;
    }
    MDRVar value;
    MDRGetVal(MDRFldByNum(file.array, contentField), MDARec(file.array, 0, 0), &value);
    if (!MDRValue::hasText(value)) {
        debug(LogText::fill(QStringLiteral("request PacketExec('%1', '%2') return empty data"),
                            {name, argument}));
        return false;
    }
    content = codec->toUnicode(MDRValue::bytes(value));
    return true;
}
} // namespace

void LogBookWidget::uploadWorkshiftDurationControl()
{
    CVrkCliSes* session = m_module->session();
    const QString name = QLatin1String(requestName);
    const QString argument = QLatin1String(optionsFile);
    const QByteArray bytes = session->codec()->fromUnicode(argument);

    HFNCliParam* block = nullptr;
    const bool isSent = session->PacketExec(
        requestName, reinterpret_cast<const unsigned char*>(bytes.constData()), bytes.size(), &block);
    const bool isAnswered = isSent && session->WaitResult(&block, -1) && block;
    const auto release = [session](HFNCliParam* answer) { session->PrmFree(answer); };
    const std::unique_ptr<HFNCliParam, decltype(release)> answer(block, release);
    if (!isSent) {
        debug(
            LogText::fill(QStringLiteral("request PacketExec('%1', '%2') returned FALSE"), {name, argument}));
        return;
    }
    if (!isAnswered) {
        debug(LogText::fill(QStringLiteral("can not wait result or result is nullptr for request "
                                           "PacketExec('%1', '%2')"),
                            {name, argument}));
        return;
    }
    QString content;
    if (contentOf(answer.get(), session->codec(), content))
        m_durationOptions = DurationOptions::fromXml(content);
}

void LogBookWidget::startDurationControl()
{
    m_controlTimer.start(1000);
    m_repeatTimer.stop();
}

void LogBookWidget::controlWorkshiftDuration()
{
    const DurationOptions& options = m_durationOptions;
    if (!options.isOn || options.delay <= 0 || options.interval <= 0 || !isEditableWorkshift())
        return;
    const MDRVar end = recordValue(m_currentWorkshift, "endTime");
    if (end.isNull || end.value.real < 1.0)
        return;
    // The clock of this machine, not the server's.
    if (options.delay + end.value.real > DateTime_To_HfnTime(QDateTime::currentDateTime()))
        return;
    m_controlTimer.stop();
    showNotifyWorkshiftLimit();
    m_repeatTimer.start(options.interval * 1000);
}

void LogBookWidget::showNotifyWorkshiftLimit()
{
    showMsgBox(tr("Предупреждение"),
               LogText::centered(tr("Превышена допустимая длительность смены.") + QStringLiteral("<br/>") +
                                 tr("Необходимо провести сдачу/прием смены.")),
               MessageIconWarning, MessageTypeOk, SLOT(closeMsgBox(QAbstractButton*)));
}
