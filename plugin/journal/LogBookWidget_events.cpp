#include "CVrkCliMod.h"
#include "EventRow.h"
#include "JournalDialogs.h"
#include "LiveTable.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "OpenWorkshiftDialog.h"
#include "Row.h"
#include "ShiftClock.h"
#include "VrkTableTool.h"

bool LogBookWidget::MessageData(TEventNciParse* event)
{
    m_dialogs->MessageData(event);
    CModelTable* table =
        EventRow(*event).tableAmong({&m_shown.workshifts, &m_shown.crew, &m_shown.records, &m_shown.comments,
                                     &m_shown.files, &m_shown.categories, &m_shown.templates});
    switch (event->eventNumber) {
    case EventInserted:
        return table && isSuitableNCI(event) && insertRow(*table, *event);
    case EventChanged:
        return !table || table == &m_shown.crew || changeRow(*table, *event);
    case EventDeleted:
        return !table || table == &m_shown.workshifts || table == &m_shown.crew || deleteRow(*table, *event);
    default:
        return true;
    }
}

bool LogBookWidget::insertRow(CModelTable& table, const TEventNciParse& event)
{
    const bool isLive =
        &table == &m_shown.workshifts || &table == &m_shown.crew || &table == &m_shown.records;
    if (isLive && m_shown.mode != ShownJournal::RealTime)
        return false;
    if (live(table).find(event)) // the row was already loaded
        return m_shown.contains(table);

    if (&table == &m_shown.records) {
        MDRData* record = appendRecord(event);
        m_tableTool->setCurrentRecord(record);
        announceRecord(record);
        emit recordAdded();
    } else if (m_shown.contains(table)) {
        insertAttachment(table, event);
    } else if (&table == &m_shown.workshifts) {
        m_shown.workshift = live(table).insert(event);
        updateRecordsFilter();
        if (isOpenWorkshift() && m_dialogs->openWorkshift->isVisible())
            m_dialogs->openWorkshift->close();
        uploadCurrentWorkshift();
    } else if (&table == &m_shown.crew) {
        live(table).insert(event);
        updateRecordsFilter();
        emit statusChanged();
    } else {
        live(table).insert(event);
        m_dialogs->reloadTemplates();
    }
    return true;
}

/// The host decides whether the user wants to be alerted.
void LogBookWidget::announceRecord(MDRData* record)
{
    const bool isOwn = Row(record).copy(Field::WorkerKey) == m_location->workerKey().toUtf8();
    const VrkTableModel* model = m_tableTool->model();
    const QModelIndex index = model->indexOf(record, model->idxField(QLatin1String(Field::html)));
    if (!isOwn && m_tableTool->proxy()->mapFromSource(index).isValid())
        m_module->CallAttention(tr("Новая запись: %1").arg(model->visibleText(record, index.column())),
                                CVrkCliMod::Attention::Record);
}

bool LogBookWidget::changeRow(CModelTable& table, const TEventNciParse& event)
{
    if (m_shown.contains(table)) {
        const bool isHere = applyChange(table, event);
        if (isHere && &table == &m_shown.records)
            emit recordUpdated();
        return isHere;
    }
    const MDRData* row = live(table).change(event);
    if (!row)
        return false;
    if (&table != &m_shown.workshifts) {
        m_dialogs->reloadTemplates();
        return true;
    }
    updateRecordsFilter();
    if (isCloseWorkshift())
        m_dialogs->closeShiftDialogs();
    if (row == m_shown.workshift) {
        m_clock->start();
        emit statusChanged();
    }
    return true;
}

bool LogBookWidget::deleteRow(CModelTable& table, const TEventNciParse& event)
{
    if (m_shown.contains(table)) {
        const bool isHere = applyDeletion(table, event);
        if (isHere && &table == &m_shown.records)
            emit recordRemoved();
        return isHere;
    }
    if (!live(table).find(event))
        return false;
    // Deliberate: a fresh row is deleted and the existing one stays until the next load.
    live(table).remove(MDARecNew(table.data.array));
    m_dialogs->reloadTemplates();
    return true;
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
        department = m_shown.departmentOf(row.copy(Field::WorkshiftKey));
    else if (isTable(LogbookTable::Records))
        department = m_shown.departmentOf(row.copy(Field::ShiftKey));
    return !department.isEmpty() && department == m_location->departmentKey().toUtf8();
}
