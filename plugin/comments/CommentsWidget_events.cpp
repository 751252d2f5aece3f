#include "CommentsPane.h"
#include "CommentsWidget.h"
#include "EventRow.h"
#include "FilesPane.h"
#include "LocationInfo.h"
#include "PageMessages.h"
#include "RecordColumns.h"
#include "RecordValue.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

bool CommentsWidget::MessageData(TEventNciParse* event)
{
    CModelTable* table = eventTable(event);
    if (!table)
        return true;
    switch (event->eventNumber) {
    case EventInserted:
        if (recordByKeyLink(table, event->recordKey)) // the row was already loaded
            return true;
        return table == &m_records    ? insertRecord(event)
               : table == &m_comments ? insertComment(event)
                                      : insertFile(event);
    case EventChanged:
        return changeRow(*table, event);
    case EventDeleted:
        return deleteRow(*table, event);
    default:
        return true;
    }
}

CModelTable* CommentsWidget::eventTable(const TEventNciParse* event)
{
    return tableOf(event, {&m_records, &m_comments, &m_files});
}

/// A new record of the user gets a row at once, which the filter hides until it has a comment.
bool CommentsWidget::insertRecord(TEventNciParse* event)
{
    const QByteArray worker = EventRow(*event).copy(Field::WorkerKey);
    if (worker.isEmpty() || worker != m_location->workerKey().toUtf8())
        return false;
    m_tableTool->model()->beginAppendRows(1);
    m_preparer.prepareRecord(changeRecord(&m_records, MDARecNew(m_records.data.array), event));
    m_tableTool->model()->endAppendRows();
    emit titleChanged();
    return true;
}

/// Deliberate: loads the comment's record without checking its author.
bool CommentsWidget::insertComment(TEventNciParse* event)
{
    const QByteArray key = EventRow(*event).copy(Field::RecordKey);
    MDRData* record = recordByKeyLink(&m_records, key.constData());
    if (!record)
        record = uploadRecord(key.constData());
    if (!record)
        return false;
    if (!recordByKeyLink(&m_comments, event->recordKey)) // it may have been loaded with its record
        changeRecord(&m_comments, MDARecNew(m_comments.data.array), event);
    m_preparer.prepareRecordComment(record);
    updateAttachments(m_comments, record);
    emit titleChanged();
    return true;
}

bool CommentsWidget::insertFile(TEventNciParse* event)
{
    MDRData* file = changeRecord(&m_files, MDARecNew(m_files.data.array), event);
    MDRData* record = recordOf(m_records, Row(file));
    if (!record) {
        m_files.data.lastError = MDARecDel(file);
        return true;
    }
    m_preparer.prepareRecord(record);
    updateAttachments(m_files, record);
    return true;
}

bool CommentsWidget::changeRow(CModelTable& table, TEventNciParse* event)
{
    MDRData* row = recordByKeyLink(&table, event->recordKey);
    if (!row)
        return false;
    changeRecord(&table, MDARecEdit(row), event); // the row keeps its address
    if (&table == &m_records) {
        m_preparer.prepareRecord(row);
        m_tableTool->updateView(row);
        m_commentsPane->updateButtons();
        emit titleChanged();
        return true;
    }
    updateAttachments(table, recordOf(m_records, Row(row)));
    if (&table == &m_comments)
        emit titleChanged();
    return true;
}

/// Deliberate: the caption stays until something else changes it.
bool CommentsWidget::deleteRow(CModelTable& table, TEventNciParse* event)
{
    MDRData* row = recordByKeyLink(&table, event->recordKey);
    if (!row)
        return false;
    if (&table == &m_records) {
        m_tableTool->model()->beginRemoveRecord(row);
        m_records.data.lastError = MDARecDel(row);
        m_tableTool->model()->endRemoveRecord();
        return true;
    }
    MDRData* record = recordOf(m_records, Row(row));
    table.data.lastError = MDARecDel(row);
    if (!record)
        return true;
    if (&table == &m_comments)
        m_preparer.prepareRecordComment(record);
    else
        m_preparer.prepareRecordFile(record);
    updateAttachments(table, record);
    return true;
}

void CommentsWidget::updateAttachments(const CModelTable& table, MDRData* record)
{
    if (!record)
        return;
    m_tableTool->updateView(record);
    if (record != currentRecord())
        return;
    if (&table == &m_comments)
        m_commentsPane->reload(record);
    else
        m_filesPane->reload(record);
}
