#include "JournalRules.h"

#include "LogbookFields.h"
#include "RecordValue.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace
{
HtmlParser parserOf(const MDRData* record)
{
    return templateOf(Row(record).value(Field::html));
}

bool hasFilledProperty(const MDRData* record, const char* name)
{
    std::string value;
    parserOf(record).templatePropertyValue(name, value);
    return !value.empty();
}
} // namespace

bool JournalRules::isOpenWorkshift() const
{
    return m_shown.workshift && !Row(m_shown.workshift).has(Field::CloseWorkerKey);
}

bool JournalRules::isCloseWorkshift() const
{
    return !m_shown.workshift || Row(m_shown.workshift).has(Field::CloseWorkerKey);
}

bool JournalRules::isWorkerInWorkshift() const
{
    if (!m_shown.workshift)
        return false;
    const QByteArray& worker = workerKey();
    if (Row(m_shown.workshift).bytes(Field::OpenWorkerKey) == worker)
        return true;
    const QByteArray workshift = Row(m_shown.workshift).key();
    for (const MDRData* row :
         MDARecsWith(m_shown.crew.data.array, Field::WorkshiftKey, workshift.constData())) {
        if (Row(row).isSet(Field::opening) && Row(row).bytes(Field::WorkerKey) == worker)
            return true;
    }
    return false;
}

bool JournalRules::isEditableWorkshift() const
{
    return m_shown.mode == ShownJournal::RealTime && isOpenWorkshift() && isWorkerInWorkshift();
}

bool JournalRules::isSelectedWorkshift() const
{
    return m_shown.mode == ShownJournal::RealTime || m_shown.mode == ShownJournal::ArchiveWorkshift;
}

bool JournalRules::isRecordDraft() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && hasStatus(record, StatusDraft);
}

bool JournalRules::isRecordDeletable() const
{
    const MDRData* record = currentRecord();
    return record && !hasStatus(record, StatusDeleted) && isEditableWorkshift();
}

bool JournalRules::isRecordSignable(MDRData* record) const
{
    // An existing visa is not checked: the next one overwrites it.
    return record && RecordCensus::isSignable(record, workerKey());
}

bool JournalRules::isRecordCopyable() const
{
    const MDRData* record = currentRecord();
    if (!record || !hasStatus(record, StatusApproved) || !Row(record).has(Field::html))
        return false;
    const HtmlParser parser = parserOf(record);
    return !parser.isExistTemplateProperty("open_wshift") && !parser.isExistTemplateProperty("close_wshift");
}

bool JournalRules::isRecordPastable() const
{
    if (!isEditableWorkshift())
        return false;
    const QMimeData* clip = QGuiApplication::clipboard()->mimeData();
    return clip && clip->hasFormat(QStringLiteral("logbook_record"));
}

bool JournalRules::isRecordHasOrigin() const
{
    const MDRData* record = currentRecord();
    return record && Row(record).has(Field::OriginRecordKey);
}

bool JournalRules::isFirstMarkSetted() const
{
    const MDRData* record = currentRecord();
    return record && Row(record).has(Field::firstMarkTime);
}

bool JournalRules::isSecondMarkSetted() const
{
    const MDRData* record = currentRecord();
    return record && Row(record).has(Field::secondMarkTime);
}

bool JournalRules::isFirstMarkSettable() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && hasFilledProperty(record, "first_mark");
}

bool JournalRules::isSecondMarkSettable() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && hasStatus(record, StatusDraft) &&
           hasFilledProperty(record, "second_mark");
}

bool JournalRules::isTimeExecutionChangable() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && !hasStatus(record, StatusDeleted) &&
           parserOf(record).isExistTemplateProperty("time_exec");
}
