#include "CommentsPane.h"
#include "EventRow.h"
#include "FilesPane.h"
#include "JournalDialogs.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "OpenWorkshiftDialog.h"
#include "RecordValue.h"
#include "ShiftClock.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

bool LogBookWidget::MessageData(TEventNciParse* event)
{
    m_dialogs->MessageData(event);
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
    return tableOf(event, {&m_shown.workshifts, &m_shown.crew, &m_shown.records, &m_shown.comments,
                           &m_shown.files, &m_shown.categories, &m_shown.templates});
}

bool LogBookWidget::insertRow(TEventNciParse* event)
{
    CModelTable* table = isSuitableNCI(event) ? eventTable(event) : nullptr;
    if (!table)
        return false;
    const bool isLive = table == &m_shown.workshifts || table == &m_shown.crew || table == &m_shown.records;
    if (isLive && m_shown.mode != ShownJournal::RealTime)
        return false;
    if (recordByKeyLink(table, event->recordKey)) // the row was already loaded
        return table == &m_shown.records || table == &m_shown.comments || table == &m_shown.files;

    if (table == &m_shown.comments || table == &m_shown.files)
        return insertAttachment(*table, event);
    if (table == &m_shown.records)
        m_tableTool->model()->beginAppendRows(1);
    MDRData* row = changeRecord(table, MDARecNew(table->data.array), event);
    if (table == &m_shown.workshifts) {
        m_shown.workshift = row;
        updateRecordsFilter();
        if (isOpenWorkshift() && m_dialogs->openWorkshift->isVisible())
            m_dialogs->openWorkshift->close();
        uploadCurrentWorkshift();
    } else if (table == &m_shown.crew) {
        updateRecordsFilter();
        emit statusChanged();
    } else if (table == &m_shown.records) {
        m_shown.prepareRecord(row);
        m_tableTool->model()->endAppendRows();
        m_tableTool->setCurrentRecord(row);
        emit recordAdded();
    } else {
        m_dialogs->reloadTemplates();
    }
    return true;
}

bool LogBookWidget::insertAttachment(CModelTable& table, TEventNciParse* event)
{
    // The owner is checked before a row is made: the bytes of other departments' files are never fetched.
    MDRData* record = recordOf(m_shown.records, EventRow(*event));
    if (!record)
        return true;
    changeRecord(&table, MDARecNew(table.data.array), event);
    updateAttachments(table, record);
    return true;
}

bool LogBookWidget::changeRow(TEventNciParse* event)
{
    CModelTable* table = eventTable(event);
    if (!table || table == &m_shown.crew)
        return true;
    MDRData* row = recordByKeyLink(table, event->recordKey);
    if (!row)
        return false;
    changeRecord(table, MDARecEdit(row), event); // the row keeps its address

    if (table == &m_shown.workshifts) {
        updateRecordsFilter();
        if (isCloseWorkshift())
            m_dialogs->closeShiftDialogs();
        if (row != m_shown.workshift)
            return true;
        m_clock->start();
        emit statusChanged();
    } else if (table == &m_shown.records) {
        m_shown.prepareRecord(row);
        m_tableTool->updateView(row);
        if (row == currentRecord()) { // the allowed actions depend on its status
            m_commentsPane->updateButtons();
            m_filesPane->updateButtons();
        }
        emit recordUpdated();
    } else if (table == &m_shown.comments || table == &m_shown.files) {
        updateAttachments(*table, recordOf(m_shown.records, Row(row)));
    } else if (table == &m_shown.categories || table == &m_shown.templates) {
        m_dialogs->reloadTemplates();
    }
    return true;
}

bool LogBookWidget::deleteRow(TEventNciParse* event)
{
    CModelTable* table = eventTable(event);
    if (!table || table == &m_shown.workshifts || table == &m_shown.crew)
        return true;
    MDRData* row = recordByKeyLink(table, event->recordKey);
    if (!row)
        return false;

    CMDArray& rows = table->data;
    if (table == &m_shown.records) {
        m_shown.census.remove(row); // before the current row changes and the tool bar queries it
        m_tableTool->model()->beginRemoveRecord(row);
        rows.lastError = MDARecDel(row);
        m_tableTool->model()->endRemoveRecord();
        emit recordRemoved();
    } else if (table == &m_shown.comments || table == &m_shown.files) {
        MDRData* record = recordOf(m_shown.records, Row(row));
        rows.lastError = MDARecDel(row);
        updateAttachments(*table, record);
    } else {
        // Deliberate: a fresh row is deleted and the existing one stays until the next load.
        rows.lastError = MDARecDel(MDARecNew(rows.array));
        m_dialogs->reloadTemplates();
    }
    return true;
}

void LogBookWidget::updateAttachments(const CModelTable& table, MDRData* record)
{
    if (!record)
        return;
    const bool isComment = &table == &m_shown.comments;
    if (isComment)
        m_shown.preparer.prepareRecordComment(record);
    else
        m_shown.preparer.prepareRecordFile(record);
    m_tableTool->updateView(record);
    if (record != currentRecord())
        return;
    if (isComment)
        m_commentsPane->reload(record);
    else
        m_filesPane->reload(record);
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
    return Row(recordByKeyLink(&m_shown.workshifts, workshiftKey.constData())).copy(Field::DepartmentKey);
}
