#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogBookWidget.h"
#include "RecordValue.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextCodec>
#include <string>

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

/// The field name_ of the row with this key, or empty.
QString nameOf(const CModelTable* table, const QString& keyLink, QTextCodec* codec)
{
    if (!table)
        return QString();
    const QByteArray key = keyLink.toUtf8();
    MDRVar value = MDRValue::text(key);
    const MDRData* row = MDARecSeekV(table->data.array, 0, &value, 0);
    return row ? Row(row).text(Field::name_, codec) : QString();
}
} // namespace

QString LogBookWidget::title() const
{
    QTextCodec* codec = m_module->session()->codec();
    const QString department = nameOf(m_location->table(QLatin1String(LogbookTable::Departments)),
                                      m_location->departmentKey(), codec);
    const QString organization = nameOf(m_location->table(QLatin1String(LogbookTable::Organizations)),
                                        m_location->organizationKey(), codec);
    return QStringLiteral("%1, %2").arg(department, organization);
}

QString LogBookWidget::workshiftKeyLink() const
{
    return m_currentWorkshift ? QString::fromUtf8(Row(m_currentWorkshift).key()) : QString();
}

QDateTime LogBookWidget::displayedPeriodStart() const
{
    if (m_mode == ArchiveInterval)
        return m_intervalStart;
    return m_currentWorkshift ? m_module->session()->HfnTimeToSesTime(
                                    Row(m_currentWorkshift).value(Field::startTime).value.real)
                              : QDateTime();
}

QDateTime LogBookWidget::displayedPeriodEnd() const
{
    if (m_mode == ArchiveInterval)
        return m_intervalEnd;
    return m_currentWorkshift ? m_module->session()->HfnTimeToSesTime(
                                    Row(m_currentWorkshift).value(Field::endTime).value.real)
                              : QDateTime();
}

bool LogBookWidget::isOpenWorkshift() const
{
    return m_currentWorkshift && !Row(m_currentWorkshift).has(Field::CloseWorkerKey);
}

bool LogBookWidget::isCloseWorkshift() const
{
    return !m_currentWorkshift || Row(m_currentWorkshift).has(Field::CloseWorkerKey);
}

bool LogBookWidget::isWorkerInWorkshift() const
{
    if (!m_currentWorkshift)
        return false;
    const QByteArray worker = m_location->workerKey().toUtf8();
    if (Row(m_currentWorkshift).bytes(Field::OpenWorkerKey) == worker)
        return true;
    const QByteArray workshift = Row(m_currentWorkshift).key();
    for (const MDRData* row : MDARecsWith(m_crew.data.array, Field::WorkshiftKey, workshift.constData())) {
        if (Row(row).isSet(Field::opening) && Row(row).bytes(Field::WorkerKey) == worker)
            return true;
    }
    return false;
}

bool LogBookWidget::isEditableWorkshift() const
{
    return m_mode == RealTime && isOpenWorkshift() && isWorkerInWorkshift();
}

bool LogBookWidget::isSelectedWorkshift() const
{
    return m_mode == RealTime || m_mode == ArchiveWorkshift;
}

bool LogBookWidget::isRecordCreatable() const
{
    return isEditableWorkshift();
}

bool LogBookWidget::isHideDraft() const
{
    return !isEditableWorkshift();
}

bool LogBookWidget::isRecordDraft() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && hasStatus(record, StatusDraft);
}

bool LogBookWidget::isRecordDeletable() const
{
    const MDRData* record = currentRecord();
    return record && !hasStatus(record, StatusDeleted) && isEditableWorkshift();
}

bool LogBookWidget::isRecordSignable(MDRData* record) const
{
    // An existing visa is not checked: the next one overwrites it.
    return record && RecordCensus::isSignable(record, m_location->workerKey().toUtf8());
}

bool LogBookWidget::isRecordSignable() const
{
    return isRecordSignable(currentRecord());
}

bool LogBookWidget::isExistNoSign() const
{
    return m_census.hasSignable();
}

bool LogBookWidget::isExistDrafts() const
{
    return isEditableWorkshift() && m_census.hasDrafts();
}

bool LogBookWidget::isExistMyDrafts() const
{
    return isEditableWorkshift() && m_census.hasMyDrafts();
}

bool LogBookWidget::isRecordCopyable() const
{
    const MDRData* record = currentRecord();
    if (!record || !hasStatus(record, StatusApproved) || !Row(record).has(Field::html))
        return false;
    const HtmlParser parser = parserOf(record);
    return !parser.isExistTemplateProperty("open_wshift") && !parser.isExistTemplateProperty("close_wshift");
}

bool LogBookWidget::isRecordPastable() const
{
    if (!isEditableWorkshift())
        return false;
    const QMimeData* clip = QGuiApplication::clipboard()->mimeData();
    return clip && clip->hasFormat(QStringLiteral("logbook_record"));
}

bool LogBookWidget::isRecordHasOrigin() const
{
    const MDRData* record = currentRecord();
    return record && Row(record).has(Field::OriginRecordKey);
}

bool LogBookWidget::isFirstMarkSetted() const
{
    const MDRData* record = currentRecord();
    return record && Row(record).has(Field::firstMarkTime);
}

bool LogBookWidget::isSecondMarkSetted() const
{
    const MDRData* record = currentRecord();
    return record && Row(record).has(Field::secondMarkTime);
}

bool LogBookWidget::isFirstMarkSettable() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && hasFilledProperty(record, "first_mark");
}

bool LogBookWidget::isSecondMarkSettable() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && hasStatus(record, StatusDraft) &&
           hasFilledProperty(record, "second_mark");
}

bool LogBookWidget::isTimeExecutionChangable() const
{
    const MDRData* record = currentRecord();
    return record && isEditableWorkshift() && !hasStatus(record, StatusDeleted) &&
           parserOf(record).isExistTemplateProperty("time_exec");
}
