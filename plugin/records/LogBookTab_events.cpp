#include "CommentsPane.h"
#include "CVrkCliMod.h"
#include "EventRow.h"
#include "FilesPane.h"
#include "LiveTable.h"
#include "LogBookTab.h"
#include "RecordTables.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

LiveTable LogBookTab::live(CModelTable& table) const
{
    return LiveTable(table, m_module->session());
}

void LogBookTab::prepareRecord(MDRData* record)
{
    m_tables->preparer.prepareRecord(record);
}

MDRData* LogBookTab::appendRecord(const TEventNciParse& event)
{
    m_tableTool->model()->beginAppendRows(1);
    MDRData* record = live(m_tables->records).insert(event);
    prepareRecord(record);
    m_tableTool->model()->endAppendRows();
    return record;
}

void LogBookTab::insertAttachment(CModelTable& table, const TEventNciParse& event)
{
    // The owner is checked before a row is made: the bytes of other departments' files are never fetched.
    MDRData* record = m_tables->recordOf(EventRow(event));
    if (record && !live(table).find(event)) // it may have been loaded with its record
        live(table).insert(event);
    updateAttachments(table, record);
}

bool LogBookTab::applyChange(CModelTable& table, const TEventNciParse& event)
{
    MDRData* row = live(table).change(event);
    if (!row)
        return false;
    if (&table != &m_tables->records) {
        updateAttachments(table, m_tables->recordOf(Row(row)));
        return true;
    }
    prepareRecord(row);
    m_tableTool->updateView(row);
    if (row == currentRecord()) { // the allowed actions depend on its status
        m_commentsPane->updateButtons();
        m_filesPane->updateButtons();
    }
    return true;
}

bool LogBookTab::applyDeletion(CModelTable& table, const TEventNciParse& event)
{
    MDRData* row = live(table).find(event);
    if (!row)
        return false;
    if (&table == &m_tables->records) {
        forgetRecord(row);
        m_tableTool->model()->beginRemoveRecord(row);
        live(table).remove(row);
        m_tableTool->model()->endRemoveRecord();
    } else {
        MDRData* record = m_tables->recordOf(Row(row));
        live(table).remove(row);
        updateAttachments(table, record);
    }
    return true;
}

void LogBookTab::updateAttachments(const CModelTable& table, MDRData* record)
{
    if (!record)
        return;
    const bool isComment = &table == &m_tables->comments;
    if (isComment)
        m_tables->preparer.prepareRecordComment(record);
    else
        m_tables->preparer.prepareRecordFile(record);
    m_tableTool->updateView(record);
    if (record != currentRecord())
        return;
    if (isComment)
        m_commentsPane->reload(record);
    else
        m_filesPane->reload(record);
}
