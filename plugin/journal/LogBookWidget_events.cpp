#include "CloseWorkshiftDialog.h"
#include "CommentsPane.h"
#include "EventRow.h"
#include "FilesPane.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogBookWidget.h"
#include "OpenWorkshiftDialog.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

bool LogBookWidget::MessageData(TEventNciParse* event)
{
    m_openWorkshift->MessageData(event);
    m_closeWorkshift->MessageData(event);
    m_recordCreator->MessageData(event);
    m_orgStruct->widget()->MessageData(event);

    switch (event->eventNumber) {
    case EventInserted:
        return insertRow(event);
    case EventChanged:
        return changeRow(event);
    case EventDeleted:
        return deleteRow(event);
    default:
        return true;
    }
}

CModelTable* LogBookWidget::eventTable(const TEventNciParse* event)
{
    return tableOf(event,
                   {&m_workshifts, &m_crew, &m_records, &m_comments, &m_files, &m_categories, &m_templates});
}

bool LogBookWidget::insertRow(TEventNciParse* event)
{
    CModelTable* table = isSuitableNCI(event) ? eventTable(event) : nullptr;
    if (!table)
        return false;
    const bool isLive = table == &m_workshifts || table == &m_crew || table == &m_records;
    if (isLive && m_mode != RealTime)
        return false;
    if (recordByKeyLink(table, event->recordKey)) // the row was already loaded
        return table == &m_records || table == &m_comments || table == &m_files;

    if (table == &m_comments || table == &m_files)
        return insertAttachment(*table, event);
    if (table == &m_records)
        m_tableTool->model()->beginAppendRows(1);
    MDRData* row = changeRecord(table, MDARecNew(table->data.array), event);
    if (table == &m_workshifts) {
        m_currentWorkshift = row;
        updateRecordsFilter();
        if (isOpenWorkshift() && m_openWorkshift->isVisible())
            m_openWorkshift->close();
        uploadCurrentWorkshift();
    } else if (table == &m_crew) {
        updateRecordsFilter();
        emit statusChanged();
    } else if (table == &m_records) {
        prepareRecord(row);
        m_tableTool->model()->endAppendRows();
        m_tableTool->setCurrentRecord(row);
        emit recordAdded();
    } else {
        reloadTemplates();
    }
    return true;
}

bool LogBookWidget::insertAttachment(CModelTable& table, TEventNciParse* event)
{
    // The owner is checked before a row is made: the bytes of other departments' files are never fetched.
    MDRData* record = recordOf(m_records, EventRow(*event));
    if (!record)
        return true;
    changeRecord(&table, MDARecNew(table.data.array), event);
    updateAttachments(table, record);
    return true;
}

bool LogBookWidget::changeRow(TEventNciParse* event)
{
    CModelTable* table = eventTable(event);
    if (!table || table == &m_crew)
        return true;
    MDRData* row = recordByKeyLink(table, event->recordKey);
    if (!row)
        return false;
    changeRecord(table, MDARecEdit(row), event); // the row keeps its address

    if (table == &m_workshifts) {
        updateRecordsFilter();
        if (isCloseWorkshift())
            closeShiftDialogs();
        if (row != m_currentWorkshift)
            return true;
        startDurationControl();
        emit statusChanged();
    } else if (table == &m_records) {
        prepareRecord(row);
        m_tableTool->updateView(row);
        if (row == currentRecord()) { // the allowed actions depend on its status
            m_commentsPane->updateButtons();
            m_filesPane->updateButtons();
        }
        emit recordUpdated();
    } else if (table == &m_comments || table == &m_files) {
        updateAttachments(*table, recordOf(m_records, Row(row)));
    } else if (table == &m_categories || table == &m_templates) {
        reloadTemplates();
    }
    return true;
}

bool LogBookWidget::deleteRow(TEventNciParse* event)
{
    CModelTable* table = eventTable(event);
    if (!table || table == &m_workshifts || table == &m_crew)
        return true;
    MDRData* row = recordByKeyLink(table, event->recordKey);
    if (!row)
        return false;

    CMDArray& rows = table->data;
    if (table == &m_records) {
        m_census.remove(row); // before the current row changes and the tool bar queries it
        m_tableTool->model()->beginRemoveRecord(row);
        rows.lastError = MDARecDel(row);
        m_tableTool->model()->endRemoveRecord();
        emit recordRemoved();
    } else if (table == &m_comments || table == &m_files) {
        MDRData* record = recordOf(m_records, Row(row));
        rows.lastError = MDARecDel(row);
        updateAttachments(*table, record);
    } else {
        // Deliberate: a fresh row is deleted and the existing one stays until the next load.
        rows.lastError = MDARecDel(MDARecNew(rows.array));
        reloadTemplates();
    }
    return true;
}

void LogBookWidget::updateAttachments(const CModelTable& table, MDRData* record)
{
    if (!record)
        return;
    const bool isComment = &table == &m_comments;
    if (isComment)
        m_preparer.prepareRecordComment(record);
    else
        m_preparer.prepareRecordFile(record);
    m_tableTool->updateView(record);
    if (record != currentRecord())
        return;
    if (isComment)
        m_commentsPane->reload(record);
    else
        m_filesPane->reload(record);
}

void LogBookWidget::reloadTemplates()
{
    m_openWorkshift->reloadTemplates();
    m_closeWorkshift->reloadTemplates();
    m_recordCreator->reloadTemplates();
}

void LogBookWidget::closeShiftDialogs()
{
    for (QWidget* dialog : m_shiftDialogs)
        if (dialog->isVisible())
            dialog->close();
}

bool LogBookWidget::isSuitableNCI(TEventNciParse* event)
{
    const auto isTable = [&](const char* name) { return event->tableName == QLatin1String(name); };
    // Comments and files are checked later, by their record.
    if (isTable(LogbookTable::Comments) || isTable(LogbookTable::Files) ||
        isTable(LogbookTable::CatsTemplate) || isTable(LogbookTable::Templates))
        return true;

    const EventRow row(*event);
    QByteArray department;
    if (isTable(LogbookTable::Workshifts))
        department = row.copy(Field::DepartmentKey);
    else if (isTable(LogbookTable::WorkersWorkshift))
        department = departmentOf(row.copy(Field::WorkshiftKey));
    else if (isTable(LogbookTable::Records))
        department = departmentOf(row.copy(Field::ShiftKey));
    return !department.isEmpty() && department == m_location->departmentKey().toUtf8();
}

QByteArray LogBookWidget::departmentOf(const QByteArray& workshiftKey) const
{
    return Row(recordByKeyLink(&m_workshifts, workshiftKey.constData())).copy(Field::DepartmentKey);
}
