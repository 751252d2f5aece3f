#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DateTimeRangeDialog.h"
#include "JournalDialogs.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "LogText.h"
#include "OpenWorkshiftDialog.h"
#include "PageMessages.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "ReportDialog.h"
#include "ReportName.h"
#include "SecondMarkerDialog.h"
#include "TimeExecutionDialog.h"
#include "VrkTableTool.h"
#include "WorkshiftsDialog.h"

/// The dialogs that the user asks for.

void LogBookWidget::openWorkshiftRequest()
{
    m_dialogs->openWorkshift->show();
}

void LogBookWidget::closeWorkshiftRequest()
{
    if (!isExistDrafts()) {
        m_dialogs->showCloseWorkshift(false);
        return;
    }
    m_messages->showMsgBox(
        tr("Утверждение записей"),
        LogText::centered(tr("Смена содержит черновые записи!") + QStringLiteral("<br/><br/>") +
                          tr("Утвердить все черновые записи?")),
        MessageIconQuestion, MessageTypeYesNo, this, SLOT(closeWorkshiftAnswer(QAbstractButton*)));
}

/// "No" does not stop the closing: the drafts stay drafts.
void LogBookWidget::closeWorkshiftAnswer(QAbstractButton* button)
{
    const bool approve = m_messages->isConfirmed(button);
    if (button)
        m_dialogs->showCloseWorkshift(approve);
}

void LogBookWidget::showWorkshiftInfoDialog()
{
    m_dialogs->showWorkshiftInfo();
}

void LogBookWidget::appendWorkerRequest()
{
    m_dialogs->showAppendWorker();
}

void LogBookWidget::showDateTimeDialog()
{
    // Deliberate: the disconnection names the wrong direction and removes nothing, so each use adds a load.
    connect(m_dialogs->dateTimeRange, &DateTimeRangeDialog::rangeSelected, this,
            [this](const QDateTime& start, const QDateTime& end) {
                QObject::disconnect(this, nullptr, m_dialogs->dateTimeRange, nullptr);
                uploadRecordsIn(start, end);
            });
    m_dialogs->dateTimeRange->show();
}

void LogBookWidget::showWorkshiftsDialog()
{
    m_dialogs->workshifts->setDepartmentKey(m_location->departmentKey());
    m_dialogs->workshifts->show();
}

void LogBookWidget::showReportDialog()
{
    QString period;
    const QDateTime start = displayedPeriodStart();
    const QDateTime end = displayedPeriodEnd();
    if (start.isValid() && end.isValid()) {
        const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
        period = QStringLiteral("%1 - %2").arg(start.toString(format), end.toString(format));
    }
    if (m_shown.mode == ShownJournal::RealTime || m_shown.mode == ShownJournal::ArchiveWorkshift)
        period = tr("Смена %1").arg(period);
    m_dialogs->report->setRecordsTable(&m_shown.records);
    m_dialogs->report->setDayLines(dayLines());
    m_dialogs->report->setReportTitle(title(), period);
    m_dialogs->report->setFileName(
        reportName(departmentName(), m_shown, start, end, m_module->session()->codec()));
    m_dialogs->report->show();
    m_dialogs->report->raise();
}

void LogBookWidget::createRecordRequest()
{
    m_dialogs->showRecordCreator(nullptr);
}

void LogBookWidget::writePinnedRequest(int number)
{
    m_dialogs->writePinned(number);
}

void LogBookWidget::showKeptRecord(const KeptTexts::Text& text)
{
    const bool isEdit = text.values.value(QStringLiteral("create")) == QStringLiteral("0");
    const QByteArray key = text.values.value(QStringLiteral("key")).toUtf8();
    MDRData* record = isEdit ? recordByKeyLink(&m_shown.records, key.constData()) : nullptr;
    m_dialogs->showRecordCreator(record && hasStatus(record, StatusDraft) ? record : nullptr);
}

void LogBookWidget::editRecordRequest()
{
    if (MDRData* record = currentRecord())
        m_dialogs->showRecordCreator(record);
}

void LogBookWidget::changeSecondMarkRequest()
{
    m_dialogs->showMark(m_dialogs->secondMarker, currentRecord());
}

void LogBookWidget::changeTimeExecRequest()
{
    m_dialogs->showMark(m_dialogs->timeExecution, currentRecord());
}

void LogBookWidget::goToOriginRecord()
{
    const MDRVar key = Row(currentRecord()).value(Field::OriginRecordKey);
    if (!MDRValue::hasText(key))
        return;
    if (MDRData* origin = recordByKeyLink(&m_shown.records, key.value.text.data))
        m_tableTool->setCurrentRecord(origin);
    else
        m_messages->error(tr("Ошибка поиска записи"), tr("Не удалось найти первичную запись!"));
}
