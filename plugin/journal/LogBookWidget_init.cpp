#include "AppendWorkerDialog.h"
#include "CloseWorkshiftDialog.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DateTimeRangeDialog.h"
#include "EmptyHint.h"
#include "Filters.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogBookWidget.h"
#include "MarkerIcon.h"
#include "MDRValues.h"
#include "OpenWorkshiftDialog.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "PageMessages.h"
#include "RecordColumns.h"
#include "RecordCreatorDialog.h"
#include "ReportDialog.h"
#include "SecondMarkerDialog.h"
#include "ShownText.h"
#include "TimeExecutionDialog.h"
#include "ui_LogBookTab.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"
#include "WorkshiftInfoDialog.h"
#include "WorkshiftsDialog.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

void LogBookWidget::init(CVrkCliMod* module, LocationInfo* location)
{
    m_module = module;
    m_location = location;
    m_isInit = true;
    m_census.setWorkerKey(location->workerKey().toUtf8());
    initTables();

    m_draftsFilter = new FilterByStatus(this);
    m_draftsFilter->setEnabled(false);
    m_tableTool = new VrkTableTool(this);
    m_tableTool->setTableView(m_ui->recordsTable);
    m_tableTool->setCMDArray(&m_records.data);
    m_tableTool->setDefaultSettingsView();
    m_tableTool->proxy()->setFilterRows(m_draftsFilter);
    configurePanes();
    connect(m_ui->recordsTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { emit changedSelectedRecord(currentRecord()); });

    configureTableTool(); // before the rows are loaded: each conversion updates its whole column
    uploadRealTimeWorkshift();
    m_tableTool->adjustColumnsWidth();
    configureContextMenu();
    createDialogs();
    createConnections();
    auto* hint = new EmptyHint(m_ui->recordsTable, [this] { return emptyText(); });
    connect(this, &LogBookWidget::statusChanged, hint, &EmptyHint::refresh);
    reloadPanes(currentRecord()); // the load changed the current row before anything was connected
    startDurationControl();
}

void LogBookWidget::initTables()
{
    struct Shape {
        CModelTable& table;
        const MDRFieldDescr* fields;
        int count;
        const char* key;
    };
    // Tables to which events add rows get their fields before the first answer, so that a failed select
    // does not leave rows without fields.
    const Shape shapes[] = {
        {m_workshifts, LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields), Field::KeyLink},
        {m_crew, LogbookWorkersWorkshiftFields, fieldCount(LogbookWorkersWorkshiftFields), Field::KeyLink},
        {m_records, LogbookRecordExtFields, fieldCount(LogbookRecordExtFields), ""},
        {m_comments, LogbookCommentFields, fieldCount(LogbookCommentFields), ""},
        {m_files, LogbookFilesFields, fieldCount(LogbookFilesFields), ""},
        {m_categories, LogbookCatsTemplateFields, fieldCount(LogbookCatsTemplateFields), ""},
        {m_templates, LogbookTemplatesFields, fieldCount(LogbookTemplatesFields), ""},
    };
    for (const Shape& shape : shapes) {
        CMDArray& rows = shape.table.data;
        rows.lastError = MDAFldAdd(rows.array, shape.count, shape.fields);
        rows.KeyAdd(shape.key, 0);
    }
}

void LogBookWidget::configurePanes()
{
    createAnnex({QStringLiteral("LogBookWidget"), &m_comments, &m_files,
                 [this] { return DateTime_To_HfnTime(m_module->session()->HfnTimeToSesTime()); },
                 [](const MDRVar& time) { return MDRValue::hasTime(time) && time.value.real > 0.0; }});
}

void LogBookWidget::configureTableTool()
{
    m_columns = new RecordColumns(m_module->session(),
                                  m_location->table(QLatin1String(LogbookTable::Workers)), font(), this);
    m_columns->configure(m_tableTool);
}

void LogBookWidget::configureContextMenu()
{
    m_ui->recordsTable->setContextMenuPolicy(Qt::CustomContextMenu);
    m_recordMenu = new QMenu(m_ui->recordsTable);
    m_recordMenu->setObjectName(QStringLiteral("recordMenu"));
    const auto append = [this](const char* icon, const QString& text) {
        return m_recordMenu->addAction(QIcon(QLatin1String(icon)), text);
    };
    m_timeExecAction = append(":/icons/hour_glass.png", tr("Время выполнения..."));
    m_secondMarkAction = append(":/icons/two.png", tr("Второй маркер..."));
    m_recordMenu->addSeparator();
    m_approveAction = append(":/icons/apply.png", tr("Утвердить текущую запись"));
    m_signAction = append(":/icons/sign.png", tr("Поставить визу на текущую запись"));
    m_originAction = append(":/icons/star.png", tr("Перейти к первичной записи"));
    m_recordMenu->addSeparator();
    m_copyAction = append(":/icons/copy.png", tr("Копировать запись"));
    m_pasteAction = append(":/icons/paste.png", tr("Вставить запись"));
}

void LogBookWidget::showRecordMenu(const QPoint& pos)
{
    m_timeExecAction->setEnabled(isTimeExecutionChangable());
    m_originAction->setEnabled(isRecordHasOrigin());
    m_approveAction->setEnabled(isRecordDraft());
    m_signAction->setEnabled(isRecordSignable());
    m_copyAction->setEnabled(isRecordCopyable());
    m_pasteAction->setEnabled(isRecordPastable());
    updateSecondMarkAction();
    m_recordMenu->popup(m_ui->recordsTable->viewport()->mapToGlobal(pos));
}

void LogBookWidget::createDialogs()
{
    // The module is the parent: dialogs get the session from their parent.
    m_recordCreator = new RecordCreatorDialog(m_module, -1);
    m_recordCreator->init(m_module);
    m_recordCreator->setRecordsTable(&m_records);
    m_recordCreator->setWorkerKey(m_location->workerKey());
    m_recordCreator->setDepartmentKey(m_location->departmentKey());
    m_recordCreator->setOrgTypeKey(m_location->orgTypeKey());

    createShiftDialogs();
    createSmallDialogs();
    m_shiftDialogs = {m_closeWorkshift, m_recordCreator, m_appendWorker, m_workshiftInfo};
}

void LogBookWidget::createSmallDialogs()
{
    m_workshiftInfo = new WorkshiftInfoDialog(m_module, -1);
    m_workshiftsDialog = new WorkshiftsDialog(m_module, -1);
    m_dateTimeRange = new DateTimeRangeDialog(m_module, -1);
    m_appendWorker = new AppendWorkerDialog(m_module, -1);
    m_secondMarker = new SecondMarkerDialog(m_module, -1);
    m_timeExecution = new TimeExecutionDialog(m_module, -1);
    m_report = new ReportDialog(m_module, -1);
    m_report->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
}

/// Deliberate: the entry is never disabled, so the dialog opens on any record; only its look follows the
/// record.
void LogBookWidget::updateSecondMarkAction()
{
    const QString path = secondMarkIconPath();
    const QString command = secondMarkCommand();
    const QString name = command.isEmpty() ? iconPathToName(path) : command;
    const QIcon marker = MarkerIcon::at(path);
    m_secondMarkAction->setIcon(marker.isNull() ? QIcon(QStringLiteral(":/icons/two.png")) : marker);
    m_secondMarkAction->setText(name.isEmpty() ? tr("Второй маркер...") : ShownText::entry(name));
}

void LogBookWidget::createShiftDialogs()
{
    m_orgStruct = new OrgStructDialog(m_module, -1);
    m_orgStruct->widget()->init(m_module);

    m_openWorkshift = new OpenWorkshiftDialog(m_module, -1);
    m_openWorkshift->setOrganizationKey(m_location->organizationKey());
    m_openWorkshift->setShiftsTable(&m_shifts);
    m_openWorkshift->setOrganizationsTable(m_location->table(QLatin1String(LogbookTable::Organizations)));

    m_closeWorkshift = new CloseWorkshiftDialog(m_module, -1);
    m_closeWorkshift->setRecordsTable(&m_records);
    m_closeWorkshift->setWorkshiftsTable(&m_workshifts);

    for (WorkshiftDialog* dialog :
         std::initializer_list<WorkshiftDialog*>{m_openWorkshift, m_closeWorkshift}) {
        dialog->setOrgStructDialog(m_orgStruct);
        dialog->setWorkerKey(m_location->workerKey());
        dialog->setDepartmentKey(m_location->departmentKey());
        dialog->setOrgTypeKey(m_location->orgTypeKey());
        dialog->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
        dialog->setRolesTable(&m_roles);
        dialog->setWorkerRolesTable(&m_workerRoles);
        dialog->setDepartmentsTable(m_location->table(QLatin1String(LogbookTable::Departments)));
        dialog->setOrgTypesTable(m_location->table(QLatin1String(LogbookTable::OrgTypes)));
        dialog->setCatsTemplateTable(&m_categories);
        dialog->setTemplatesTable(&m_templates);
    }
}

void LogBookWidget::createConnections()
{
    connect(m_controlTimer, &QTimer::timeout, this, &LogBookWidget::controlWorkshiftDuration);
    connect(m_repeatTimer, &QTimer::timeout, this, &LogBookWidget::showNotifyWorkshiftLimit);
    connect(m_ui->recordsTable, &QWidget::customContextMenuRequested, this, &LogBookWidget::showRecordMenu);
    connect(m_timeExecAction, &QAction::triggered, this, &LogBookWidget::changeTimeExecRequest);
    connect(m_secondMarkAction, &QAction::triggered, this, &LogBookWidget::changeSecondMarkRequest);
    connect(m_copyAction, &QAction::triggered, this, &LogBookWidget::copyRecordRequest);
    connect(m_pasteAction, &QAction::triggered, this, &LogBookWidget::pasteRecordRequest);
    connect(m_secondMarker, &SecondMarkerDialog::setMarker, this, &LogBookWidget::setSecondMarkRequest);
    connect(m_secondMarker, &SecondMarkerDialog::removeMarker, this, &LogBookWidget::removeSecondMarkRequest);
    connect(m_timeExecution, &TimeExecutionDialog::setTime, this, &LogBookWidget::setTimeExecRequest);
    connect(m_timeExecution, &TimeExecutionDialog::removeTime, this, &LogBookWidget::removeTimeExecRequest);
    connect(m_workshiftsDialog, &WorkshiftsDialog::workshiftSelected, this,
            qOverload<const QString&>(&LogBookWidget::uploadRecordsIn));
    connect(m_originAction, &QAction::triggered, this, &LogBookWidget::goToOriginRecord);
    connect(m_approveAction, &QAction::triggered, this, &LogBookWidget::approveRecordRequest);
    connect(m_signAction, &QAction::triggered, this, &LogBookWidget::signRecordRequest);
    connect(m_ui->recordsTable, &QAbstractItemView::doubleClicked, this, [this] {
        // the same rule: a record that is not deleted, in an open workshift with the user in it
        if (isRecordDeletable())
            editRecordRequest();
    });
    connect(m_ui->recordsTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                MDRData* record = m_tableTool->recordByIndex(index);
                reloadPanes(record);
                for (const MarkTimeDialog* dialog :
                     std::initializer_list<const MarkTimeDialog*>{m_secondMarker, m_timeExecution}) {
                    if (dialog && dialog->isVisible())
                        nameRecord(dialog, record);
                }
            });
}

void LogBookWidget::updateRecordsFilter()
{
    m_draftsFilter->setEnabled(isHideDraft());
}

void LogBookWidget::showMsgBox(const QString& title, const QString& text, TMessageBoxIcon icon,
                               TMessageBoxType type, const char* slot)
{
    m_messages->show(title, text, icon, type, this, slot);
}

void LogBookWidget::closeMsgBox(QAbstractButton* button)
{
    isConfirmed(button);
}

bool LogBookWidget::isConfirmed(QAbstractButton* button)
{
    return m_messages->isConfirmed(button);
}
