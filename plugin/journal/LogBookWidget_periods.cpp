#include "AppendWorkerDialog.h"
#include "DateTimeRangeDialog.h"
#include "Filters.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "LogBookWidget.h"
#include "OrgStructDialog.h"
#include "PopGuard.h"
#include "ReportDialog.h"
#include "ui_LogBookTab.h"
#include "VrkTableTool.h"
#include "WorkshiftInfoDialog.h"
#include "WorkshiftsDialog.h"

/// The shown period, and information about its shift.

void LogBookWidget::showDateTimeDialog()
{
    // Deliberate: the disconnection names the wrong direction and removes nothing, so each use adds a load.
    connect(m_dateTimeRange, &DateTimeRangeDialog::rangeSelected, this,
            [this](const QDateTime& start, const QDateTime& end) {
                QObject::disconnect(this, nullptr, m_dateTimeRange, nullptr);
                uploadRecordsIn(start, end);
            });
    m_dateTimeRange->show();
}

void LogBookWidget::showWorkshiftsDialog()
{
    m_workshiftsDialog->setDepartmentKey(m_location->departmentKey());
    m_workshiftsDialog->show();
}

void LogBookWidget::showWorkshiftInfoDialog()
{
    m_workshiftInfo->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
    m_workshiftInfo->setWorkshiftsTable(&m_workshifts);
    m_workshiftInfo->setWorkersWorkshiftTable(&m_crew);
    m_workshiftInfo->setRolesTable(&m_roles);
    m_workshiftInfo->setWorkersRoleTable(&m_workerRoles);
    m_workshiftInfo->setWorkshiftRecord(m_currentWorkshift);
    m_workshiftInfo->show();
}

void LogBookWidget::appendWorkerRequest()
{
    m_appendWorker->setOrgStructDialog(m_orgStruct);
    m_appendWorker->setDepartmentKey(m_location->departmentKey());
    m_appendWorker->setWorkerKey(m_location->workerKey());
    m_appendWorker->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
    m_appendWorker->setWorkersWorkshiftTable(&m_crew);
    m_appendWorker->setRolesTable(&m_roles);
    m_appendWorker->setWorkersRoleTable(&m_workerRoles);
    m_appendWorker->setWorkshiftRecord(m_currentWorkshift);
    m_appendWorker->show();
}

/// An interval may begin on any day; the date of a shift is shown above the table.
VrkTableTool::DayLines LogBookWidget::dayLines() const
{
    return m_mode == ArchiveInterval ? VrkTableTool::DayLinesAll : VrkTableTool::DayLinesBetween;
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
    if (m_mode == RealTime || m_mode == ArchiveWorkshift)
        period = tr("Смена %1").arg(period);
    m_report->setRecordsTable(&m_records);
    m_report->setDayLines(dayLines());
    m_report->setReportTitle(title(), period);
    m_report->show();
    m_report->raise();
}

bool LogBookWidget::showRecord(const QString& workshiftKey, const QByteArray& recordKey)
{
    if (PopGuard::over(m_ui->recordsTable))
        return true; // its answer belongs to the record of the question
    if (workshiftKeyLink() != workshiftKey)
        uploadRecordsIn(workshiftKey);
    MDRData* record = recordByKeyLink(&m_records, recordKey.constData());
    if (!record)
        return false;
    m_draftsFilter->setShown(recordKey);
    m_tableTool->setCurrentRecord(record);
    m_ui->recordsTable->setFocus();
    return true;
}
