#include "CommentsWidget.h"
#include "EventRow.h"
#include "LocationInfo.h"

bool CommentsWidget::MessageData(TEventNciParse* event)
{
    CModelTable* table = EventRow(*event).tableAmong({&m_shown.records, &m_shown.comments, &m_shown.files});
    if (!table)
        return true;
    switch (event->eventNumber) {
    case EventInserted:
        return recordByKeyLink(table, event->recordKey) // the row was already loaded
               || insertRow(*table, *event);
    case EventChanged:
        if (!applyChange(*table, *event))
            return false;
        if (table != &m_shown.files)
            emit titleChanged();
        return true;
    case EventDeleted:
        // Deliberate: the caption stays until something else changes it.
        return applyDeletion(*table, *event);
    default:
        return true;
    }
}

bool CommentsWidget::insertRow(CModelTable& table, const TEventNciParse& event)
{
    const EventRow row(event);
    if (&table == &m_shown.records) {
        // A new record of the user gets a row at once, which the filter hides until it has a comment.
        const QByteArray worker = row.copy(Field::WorkerKey);
        if (worker.isEmpty() || worker != m_location->workerKey().toUtf8())
            return false;
        appendRecord(event);
        emit titleChanged();
        return true;
    }
    if (&table == &m_shown.files) {
        insertAttachment(table, event);
        return true;
    }
    // Deliberate: loads the comment's record without checking its author.
    if (!m_shown.recordOf(row) && !uploadRecord(row.copy(Field::RecordKey).constData()))
        return false;
    insertAttachment(table, event);
    emit titleChanged();
    return true;
}
