#include "Filters.h"
#include "JournalLoader.h"
#include "LogBookWidget.h"
#include "PopGuard.h"
#include "ui_LogBookTab.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

/// The shown period.

void LogBookWidget::uploadRealTimeWorkshift()
{
    if (m_shown.mode != ShownJournal::RealTime)
        load(ShownJournal::RealTime, [this] { m_loader->uploadRealTimeWorkshift(); });
}

void LogBookWidget::uploadRecordsIn(const QString& workshiftKey)
{
    load(ShownJournal::ArchiveWorkshift, [&] { m_loader->uploadRecordsIn(workshiftKey); });
}

void LogBookWidget::uploadRecordsIn(const QDateTime& from, const QDateTime& to)
{
    m_shown.intervalStart = from;
    m_shown.intervalEnd = to;
    load(ShownJournal::ArchiveInterval, [&] { m_loader->uploadRecordsIn(from, to); });
}

void LogBookWidget::uploadCurrentWorkshift()
{
    reload([this] { m_loader->uploadCurrentWorkshift(); });
}

void LogBookWidget::load(ShownJournal::Mode mode, const std::function<void()>& upload)
{
    m_shown.mode = mode;
    m_shown.workshift = nullptr;
    reload(upload);
}

void LogBookWidget::reload(const std::function<void()>& upload)
{
    m_tableTool->model()->beginResetModel();
    m_draftsFilter->forgetShown(); // it was requested for the former rows
    upload();
    m_shown.prepareRecords();
    m_tableTool->model()->endResetModel();
    m_tableTool->setDayLines(dayLines());
    m_tableTool->setCurrentFirst();
    updateRecordsFilter();
    emit statusChanged();
}

bool LogBookWidget::showRecord(const QString& workshiftKey, const QByteArray& recordKey)
{
    if (PopGuard::over(m_ui->recordsTable))
        return true; // its answer belongs to the record of the question
    if (workshiftKeyLink() != workshiftKey)
        uploadRecordsIn(workshiftKey);
    MDRData* record = recordByKeyLink(&m_shown.records, recordKey.constData());
    if (!record)
        return false;
    m_draftsFilter->setShown(recordKey);
    m_tableTool->setCurrentRecord(record);
    m_ui->recordsTable->setFocus();
    return true;
}
