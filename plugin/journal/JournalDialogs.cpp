#include "JournalDialogs.h"

#include "AppendWorkerDialog.h"
#include "CloseWorkshiftDialog.h"
#include "CVrkCliMod.h"
#include "DateTimeRangeDialog.h"
#include "LocationInfo.h"
#include "OpenWorkshiftDialog.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordCreatorDialog.h"
#include "RecordTitle.h"
#include "ReportDialog.h"
#include "SecondMarkerDialog.h"
#include "ShownJournal.h"
#include "TimeExecutionDialog.h"
#include "VisaPasswordDialog.h"
#include "WorkshiftInfoDialog.h"
#include "WorkshiftsDialog.h"

// The module is the parent: dialogs get the session from their parent.
JournalDialogs::JournalDialogs(CVrkCliMod* module, LocationInfo* location, ShownJournal& shown)
    : m_module(module), m_location(location), m_shown(shown)
{
    recordCreator = new RecordCreatorDialog(module, -1);
    recordCreator->init(module);
    recordCreator->setRecordsTable(&shown.records);
    recordCreator->setWorkerKey(location->workerKey());
    recordCreator->setDepartmentKey(location->departmentKey());
    recordCreator->setOrgTypeKey(location->orgTypeKey());

    m_orgStruct = new OrgStructDialog(module, -1);
    m_orgStruct->widget()->init(module);

    openWorkshift = new OpenWorkshiftDialog(module, -1);
    openWorkshift->setOrganizationKey(location->organizationKey());
    openWorkshift->setShiftsTable(&shown.shifts);
    openWorkshift->setOrganizationsTable(location->table(QLatin1String(LogbookTable::Organizations)));
    setUp(openWorkshift);

    closeWorkshift = new CloseWorkshiftDialog(module, -1);
    closeWorkshift->setRecordsTable(&shown.records);
    closeWorkshift->setWorkshiftsTable(&shown.workshifts);
    setUp(closeWorkshift);

    workshiftInfo = new WorkshiftInfoDialog(module, -1);
    workshifts = new WorkshiftsDialog(module, -1);
    dateTimeRange = new DateTimeRangeDialog(module, -1);
    appendWorker = new AppendWorkerDialog(module, -1);
    secondMarker = new SecondMarkerDialog(module, -1);
    timeExecution = new TimeExecutionDialog(module, -1);
    report = new ReportDialog(module, -1);
    report->setWorkersTable(location->table(QLatin1String(LogbookTable::Workers)));
    visaPassword = new VisaPasswordDialog(module, -1);
}

JournalDialogs::~JournalDialogs()
{
    for (QWidget* dialog : std::initializer_list<QWidget*>{
             openWorkshift, closeWorkshift, workshiftInfo, workshifts, dateTimeRange, appendWorker,
             recordCreator, secondMarker, timeExecution, report, visaPassword, m_orgStruct})
        delete dialog;
}

void JournalDialogs::setUp(WorkshiftDialog* dialog)
{
    dialog->setOrgStructDialog(m_orgStruct);
    dialog->setWorkerKey(m_location->workerKey());
    dialog->setDepartmentKey(m_location->departmentKey());
    dialog->setOrgTypeKey(m_location->orgTypeKey());
    dialog->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
    dialog->setRolesTable(&m_shown.roles);
    dialog->setWorkerRolesTable(&m_shown.workerRoles);
    dialog->setDepartmentsTable(m_location->table(QLatin1String(LogbookTable::Departments)));
    dialog->setOrgTypesTable(m_location->table(QLatin1String(LogbookTable::OrgTypes)));
    dialog->setCatsTemplateTable(&m_shown.categories);
    dialog->setTemplatesTable(&m_shown.templates);
}

void JournalDialogs::MessageData(TEventNciParse* event)
{
    openWorkshift->MessageData(event);
    closeWorkshift->MessageData(event);
    recordCreator->MessageData(event);
    m_orgStruct->widget()->MessageData(event);
}

void JournalDialogs::reloadTemplates()
{
    openWorkshift->reloadTemplates();
    closeWorkshift->reloadTemplates();
    recordCreator->reloadTemplates();
}

void JournalDialogs::closeShiftDialogs()
{
    for (QWidget* dialog :
         std::initializer_list<QWidget*>{closeWorkshift, recordCreator, appendWorker, workshiftInfo})
        if (dialog->isVisible())
            dialog->close();
}

void JournalDialogs::showRecordCreator(MDRData* record)
{
    recordCreator->setCurrentRecord(record);
    recordCreator->setWorkshiftKey(m_shown.workshiftKeyLink());
    recordCreator->setWorkerKey(m_location->workerKey());
    recordCreator->show();
}

void JournalDialogs::writePinned(int number)
{
    showRecordCreator(nullptr);
    recordCreator->choosePinned(number);
}

void JournalDialogs::showCloseWorkshift(bool approveDrafts)
{
    closeWorkshift->setApproveDraftRecords(approveDrafts);
    closeWorkshift->setCurrentWorkshift(m_shown.workshift);
    closeWorkshift->show();
}

void JournalDialogs::showWorkshiftInfo()
{
    workshiftInfo->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
    workshiftInfo->setWorkshiftsTable(&m_shown.workshifts);
    workshiftInfo->setWorkersWorkshiftTable(&m_shown.crew);
    workshiftInfo->setRolesTable(&m_shown.roles);
    workshiftInfo->setWorkersRoleTable(&m_shown.workerRoles);
    workshiftInfo->setWorkshiftRecord(m_shown.workshift);
    workshiftInfo->show();
}

void JournalDialogs::showAppendWorker()
{
    appendWorker->setOrgStructDialog(m_orgStruct);
    appendWorker->setDepartmentKey(m_location->departmentKey());
    appendWorker->setWorkerKey(m_location->workerKey());
    appendWorker->setWorkersTable(m_location->table(QLatin1String(LogbookTable::Workers)));
    appendWorker->setWorkersWorkshiftTable(&m_shown.crew);
    appendWorker->setRolesTable(&m_shown.roles);
    appendWorker->setWorkersRoleTable(&m_shown.workerRoles);
    appendWorker->setWorkshiftRecord(m_shown.workshift);
    appendWorker->show();
}

void JournalDialogs::showMark(MarkTimeDialog* dialog, const MDRData* record)
{
    nameRecord(dialog->recordTitle(), record);
    dialog->show();
}

void JournalDialogs::showVisaPassword(const MDRData* record, int count)
{
    nameRecord(visaPassword->recordTitle(), record);
    visaPassword->setCount(count);
    visaPassword->show();
}

void JournalDialogs::nameRecord(const MDRData* record)
{
    for (const MarkTimeDialog* dialog :
         std::initializer_list<const MarkTimeDialog*>{secondMarker, timeExecution})
        if (dialog && dialog->isVisible())
            nameRecord(dialog->recordTitle(), record);
}

void JournalDialogs::nameRecord(RecordTitle* title, const MDRData* record) const
{
    title->showRecord(record, m_module->session(), m_location->table(QLatin1String(LogbookTable::Workers)));
}
