#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "Filters.h"
#include "HfnTime.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "LogBookWidget.h"
#include "LogText.h"
#include "MDRValues.h"
#include "TableLoad.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

namespace
{
/// Sets KeyLink as the only key.
void setKeyLinkAsKey(CMDArray& table)
{
    table.KeyAdd(Field::KeyLink, 0);
    while (MDAKeyCount(table.array) > 1)
        table.lastError = MDAKeyDel(table.array, 0);
}

QString sqlTime(const QDateTime& time)
{
    return QString::number(DateTime_To_HfnTime(time), 'g', 10);
}
} // namespace

void LogBookWidget::uploadRealTimeWorkshift()
{
    if (m_mode == RealTime)
        return;
    m_mode = RealTime;
    m_currentWorkshift = nullptr;

    m_tableTool->model()->beginResetModel();
    clearTables({&m_workshifts, &m_crew, &m_records, &m_comments, &m_files, &m_shifts, &m_roles,
                 &m_workerRoles, &m_categories, &m_templates});
    uploadOpenWorkshift();
    uploadWorkersWorkshiftTable();
    uploadRecordsWorkshift();
    uploadCommentsAndFiles();
    uploadShiftsTable();
    uploadRolesTable();
    uploadWorkerRolesTable();
    uploadTemplatesTable();
    prepareRecords();
    finishLoad();
}

void LogBookWidget::uploadCurrentWorkshift()
{
    m_tableTool->model()->beginResetModel();
    clearTables({&m_crew, &m_records, &m_comments, &m_files});
    uploadShownWorkshift();
    finishLoad();
}

void LogBookWidget::uploadRecordsIn(const QString& workshiftKey)
{
    m_mode = ArchiveWorkshift;
    m_currentWorkshift = nullptr;

    m_tableTool->model()->beginResetModel();
    clearTables({&m_workshifts, &m_crew, &m_records, &m_comments, &m_files});
    uploadWorkshift(workshiftKey);
    m_currentWorkshift = MDARec(m_workshifts.data.array, 0, 0);
    uploadShownWorkshift();
    finishLoad();
}

void LogBookWidget::uploadRecordsIn(const QDateTime& from, const QDateTime& to)
{
    m_intervalStart = from;
    m_intervalEnd = to;
    m_mode = ArchiveInterval;
    m_currentWorkshift = nullptr;

    m_tableTool->model()->beginResetModel();
    clearTables({&m_workshifts, &m_crew, &m_records, &m_comments, &m_files});
    uploadRecordsInterval(from, to);
    uploadCommentsAndFiles();
    prepareRecords();
    finishLoad();
}

void LogBookWidget::uploadShownWorkshift()
{
    uploadWorkersWorkshiftTable();
    uploadRecordsWorkshift();
    uploadCommentsAndFiles();
    uploadRolesTable();
    uploadWorkerRolesTable();
    uploadTemplatesTable();
    prepareRecords();
}

void LogBookWidget::clearTables(std::initializer_list<CModelTable*> tables)
{
    m_draftsFilter->forgetShown(); // it was requested for the former rows
    m_census.clear();
    m_hasFailed = false;
    for (CModelTable* table : tables)
        table->data.lastError = MDAClearRec(table->data.array);
}

void LogBookWidget::finishLoad()
{
    m_tableTool->model()->endResetModel();
    m_tableTool->setDayLines(dayLines());
    m_tableTool->setCurrentFirst();
    updateRecordsFilter();
    emit statusChanged();
}

QString LogBookWidget::emptyText() const
{
    if (m_hasFailed)
        return tr("Записи не прочитаны: причина названа внизу окна.\nВыберите другой период и вернитесь: они "
                  "будут прочитаны снова.");
    switch (m_mode) {
    case ArchiveInterval:
        return tr("За это время записей нет");
    case ArchiveWorkshift:
        return tr("В этой смене записей нет");
    case RealTime:
        break;
    default:
        return {};
    }
    if (!m_currentWorkshift)
        return tr("Открытой смены нет.\nЕё открывает диспетчер подразделения: кнопка «Смена» вверху.");
    return isRecordCreatable() ? tr("В смене ещё нет записей.\nНовая запись: Ctrl + N")
                               : tr("В смене ещё нет записей");
}

bool LogBookWidget::request(CModelTable& table, const QString& sql, const char* signature)
{
    table.data = m_module->session()->SqlRequest(sql.toUtf8().constData());
    if (table.data.lastError == mdr_Ok)
        return true;
    m_hasFailed = true;
    LogText::warn(QLatin1String(signature), tr("error SQL query execution [%1]").arg(sql));
    return false;
}

void LogBookWidget::uploadOpenWorkshift()
{
    if (m_location->departmentKey().isEmpty())
        return;
    const QString sql = QString::fromLatin1(LogbookSql::OpenWorkshift)
                            .arg(QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::DepartmentKey),
                                 m_location->departmentKey(), QLatin1String(Field::CloseWorkerKey));
    request(m_workshifts, sql, "void LogBookWidget::uploadOpenWorkshift()");
    setKeyLinkAsKey(m_workshifts);
    m_workshifts.data.KeyAdd(Field::createdAt, 0);
    m_currentWorkshift = MDARec(m_workshifts.data.array, 1, 0);
}

void LogBookWidget::uploadWorkshift(const QString& key)
{
    if (key.isEmpty())
        return;
    const QString sql = QString::fromLatin1(LogbookSql::ByField)
                            .arg(QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::KeyLink), key);
    request(m_workshifts, sql, "void LogBookWidget::uploadWorkshift(const QString&)");
    setKeyLinkAsKey(m_workshifts);
}

void LogBookWidget::uploadWorkersWorkshiftTable()
{
    if (!m_currentWorkshift)
        return;
    const QString sql = QString::fromLatin1(LogbookSql::WorkersWorkshift)
                            .arg(QLatin1String(LogbookTable::WorkersWorkshift), workshiftKeyLink());
    request(m_crew, sql, "void LogBookWidget::uploadWorkersWorkshiftTable()");
    setKeyLinkAsKey(m_crew);
}

void LogBookWidget::uploadRecordsWorkshift()
{
    const QString workshift = workshiftKeyLink();
    if (workshift.isEmpty())
        return;
    const QString sql =
        QString::fromLatin1(LogbookSql::ByField)
            .arg(QLatin1String(LogbookTable::Records), QLatin1String(Field::ShiftKey), workshift);
    CModelTable answer(LogbookTable::Records);
    if (request(answer, sql, "void LogBookWidget::uploadRecordsWorkshift()"))
        TableLoad::repack(answer.data, m_records.data);
}

void LogBookWidget::uploadRecordsInterval(const QDateTime& from, const QDateTime& to)
{
    const QString sql =
        QString::fromLatin1(LogbookSql::RecordsInterval)
            .arg(QLatin1String(LogbookTable::Records), QLatin1String(LogbookTable::Workshifts),
                 QLatin1String(Field::KeyLink), QLatin1String(Field::ShiftKey),
                 QLatin1String(Field::DepartmentKey), m_location->departmentKey(),
                 QLatin1String(Field::recordTime), sqlTime(from), sqlTime(to));
    CModelTable answer(LogbookTable::Records);
    if (request(answer, sql, "void LogBookWidget::uploadRecordsInterval(const QDateTime&, const QDateTime&)"))
        TableLoad::repack(answer.data, m_records.data);
}

void LogBookWidget::uploadCommentsAndFiles()
{
    if (m_records.data.RecCount() == 0)
        return;
    const QString keys = TableLoad::quotedKeys(m_records.data); // a long list: built once
    uploadByRecords(m_comments, keys, "void LogBookWidget::uploadCommentsRecords()");
    uploadByRecords(m_files, keys, "void LogBookWidget::uploadFilesRecords()");
}

void LogBookWidget::uploadByRecords(CModelTable& target, const QString& keys, const char* signature)
{
    const QString sql = QString::fromLatin1(LogbookSql::ByRecords)
                            .arg(QString::fromStdString(target.name), QLatin1String(Field::RecordKey), keys);
    request(target, sql, signature);
}

void LogBookWidget::uploadShiftsTable()
{
    uploadOfDepartment(m_shifts, "void LogBookWidget::uploadShiftsTable()");
}

void LogBookWidget::uploadRolesTable()
{
    uploadOfDepartment(m_roles, "void LogBookWidget::uploadRolesTable()");
}

void LogBookWidget::uploadOfDepartment(CModelTable& target, const char* signature)
{
    if (m_location->departmentKey().isEmpty())
        return;
    const QString sql = QString::fromLatin1(LogbookSql::OfDepartment)
                            .arg(QString::fromStdString(target.name), m_location->departmentKey());
    request(target, sql, signature);
    setKeyLinkAsKey(target);
}

void LogBookWidget::uploadWorkerRolesTable()
{
    if (m_roles.data.RecCount() == 0)
        return;
    const QString sql =
        QString::fromLatin1(LogbookSql::WorkerRoles)
            .arg(QLatin1String(LogbookTable::WorkerRoles), TableLoad::quotedKeys(m_roles.data));
    request(m_workerRoles, sql, "void LogBookWidget::uploadWorkerRolesTable()");
    setKeyLinkAsKey(m_workerRoles);
}

void LogBookWidget::uploadTemplatesTable()
{
    for (CModelTable* table : {&m_categories, &m_templates})
        request(*table, QString::fromLatin1(LogbookSql::Templates).arg(QString::fromStdString(table->name)),
                "void LogBookWidget::uploadTemplatesTable()");
}

void LogBookWidget::prepareRecords()
{
    m_preparer.prepareRecords();
    for (int i = 0; i < m_records.data.RecCount(); ++i)
        m_census.put(MDARec(m_records.data.array, 0, i));
}

void LogBookWidget::prepareRecord(MDRData* record)
{
    m_preparer.prepareRecord(record);
    m_census.put(record);
}
