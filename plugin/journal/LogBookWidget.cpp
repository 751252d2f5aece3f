#include "LogBookWidget.h"

#include "AppendWorkerDialog.h"
#include "CloseWorkshiftDialog.h"
#include "CVrkCliMod.h"
#include "DateTimeRangeDialog.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "OpenWorkshiftDialog.h"
#include "OrgStructDialog.h"
#include "RecordCreatorDialog.h"
#include "ReportDialog.h"
#include "SecondMarkerDialog.h"
#include "TimeExecutionDialog.h"
#include "ui_LogBookTab.h"
#include "VrkTableTool.h"
#include "WorkshiftInfoDialog.h"
#include "WorkshiftsDialog.h"

#include <QKeyEvent>
#include <QTimer>

LogBookWidget::LogBookWidget(QWidget* parent)
    : LogBookTab(parent),
      m_workshifts(LogbookTable::Workshifts),
      m_crew(LogbookTable::WorkersWorkshift),
      m_records(LogbookTable::Records),
      m_comments(LogbookTable::Comments),
      m_files(LogbookTable::Files),
      m_shifts(LogbookTable::Shifts),
      m_roles(LogbookTable::Roles),
      m_workerRoles(LogbookTable::WorkerRoles),
      m_categories(LogbookTable::CatsTemplate),
      m_templates(LogbookTable::Templates),
      m_preparer(m_records, m_comments, m_files),
      m_controlTimer(new QTimer(this)),
      m_repeatTimer(new QTimer(this))
{
    m_controlTimer->setObjectName(QStringLiteral("controlTimer"));
    m_repeatTimer->setObjectName(QStringLiteral("repeatTimer"));
}

LogBookWidget::~LogBookWidget()
{
    dropAnnex();
    // They belong to the module's window, but use tables of this page.
    for (QWidget* dialog : std::initializer_list<QWidget*>{
             m_openWorkshift, m_closeWorkshift, m_workshiftInfo, m_workshiftsDialog, m_dateTimeRange,
             m_appendWorker, m_recordCreator, m_secondMarker, m_timeExecution, m_report, m_orgStruct})
        delete dialog;
}

CModelTable* LogBookWidget::table(const QString& name)
{
    for (CModelTable* own : {&m_workshifts, &m_crew, &m_records, &m_comments, &m_files, &m_shifts, &m_roles,
                             &m_workerRoles, &m_categories, &m_templates})
        if (name == QLatin1String(own->name.c_str()))
            return own;
    return m_location ? m_location->table(name) : nullptr;
}

void LogBookWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete) {
        // A list with the focus handles the key, even if it has nothing to delete.
        if (!deleteInPanes() && isRecordDeletable())
            deleteRecordRequest();
    }
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_HomePage)
        uploadRealTimeWorkshift();
    QWidget::keyPressEvent(event);
}
