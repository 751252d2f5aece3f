#include "EventRow.h"

#include "CVrkCliSes.h"

EventRow::EventRow(const TEventNciParse& event) : Row(&event.recordData, &event.recordType), m_event(&event)
{
}

bool EventRow::isOf(const char* table) const
{
    return m_event->tableName.compare(QLatin1String(table), Qt::CaseInsensitive) == 0;
}

CModelTable* EventRow::tableAmong(std::initializer_list<CModelTable*> tables) const
{
    for (CModelTable* table : tables)
        if (isOf(table->name.c_str()))
            return table;
    return nullptr;
}

void EventRow::copyTo(MDRData* record, Which which, CVrkCliSes* session) const
{
    const MDRData* row = &m_event->recordData;
    for (int i = 0; i < m_event->recordType.count; ++i) {
        const MDRField* field = MDRFldByNum(&m_event->recordType, i);
        bool isMarked = false;
        if (which == Marked && (MDRIsUser(field, row, &isMarked) != mdr_Ok || !isMarked))
            continue;
        MDRVar value;
        MDRGetVal(field, row, &value);
        // The handle belongs to the event's type: only its position is used.
        if (session && value.isNull && field->type == mdr_TBlob)
            MDRSetBlobSource(
                field, record, 0,
                session->blobSource(m_event->tableName.toLatin1(), field->name, m_event->recordKey));
        else
            MDRSetVal(field, record, &value);
    }
}

MDRData* changeRecord(CMDArray* array, MDRData* record, const TEventNciParse* event, CVrkCliSes* session)
{
    if (!array || !record)
        return nullptr;
    EventRow(*event).copyTo(record, EventRow::Marked, session);
    return array->RecPost(record);
}

MDRData* changeRecord(CModelTable* table, MDRData* record, const TEventNciParse* event, CVrkCliSes* session)
{
    return table ? changeRecord(&table->data, record, event, session) : nullptr;
}
