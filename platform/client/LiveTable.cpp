#include "LiveTable.h"

#include "CVrkCliSes.h"
#include "EventRow.h"

bool LiveTable::load(const QString& sql)
{
    m_table.data = m_session->SqlRequest(sql.toUtf8().constData());
    return m_table.data.lastError == mdr_Ok;
}

MDRData* LiveTable::append(const CMDArray& answer)
{
    CMDArray& rows = m_table.data;
    if (answer.RecCount() == 0)
        return nullptr;
    rows.lastError = MDARecsAppend(rows.array, answer.array);
    return rows.lastError == mdr_Ok ? MDARec(rows.array, 0, rows.RecCount() - 1) : nullptr;
}

MDRData* LiveTable::find(const TEventNciParse& event) const
{
    return recordByKeyLink(&m_table, event.recordKey);
}

MDRData* LiveTable::insert(const TEventNciParse& event)
{
    return changeRecord(&m_table, MDARecNew(m_table.data.array), &event, m_session);
}

MDRData* LiveTable::change(const TEventNciParse& event)
{
    MDRData* row = find(event);
    return row ? changeRecord(&m_table, MDARecEdit(row), &event, m_session) : nullptr;
}

void LiveTable::remove(MDRData* row)
{
    m_table.data.lastError = MDARecDel(row);
}

bool LiveTable::apply(const TEventNciParse& event)
{
    MDRData* known = find(event);
    if (event.eventNumber == EventDeleted && known)
        remove(known);
    else if (event.eventNumber != EventDeleted && known)
        change(event);
    else if (event.eventNumber == EventInserted)
        insert(event);
    else
        return false;
    return true;
}
