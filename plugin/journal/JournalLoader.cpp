#include "JournalLoader.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnTime.h"
#include "LiveTable.h"
#include "LocationInfo.h"
#include "LogText.h"
#include "TableLoad.h"

namespace
{
QString sqlTime(const QDateTime& time)
{
    return QString::number(DateTime_To_HfnTime(time), 'g', 10);
}
} // namespace

JournalLoader::JournalLoader(CVrkCliSes* session, const LocationInfo* location, ShownJournal& shown)
    : m_session(session), m_location(location), m_shown(shown)
{
}

void JournalLoader::uploadRealTimeWorkshift()
{
    clearTables({&m_shown.workshifts, &m_shown.crew, &m_shown.records, &m_shown.comments, &m_shown.files,
                 &m_shown.shifts, &m_shown.roles, &m_shown.workerRoles, &m_shown.categories,
                 &m_shown.templates});
    uploadOpenWorkshift();
    uploadWorkersWorkshiftTable();
    uploadRecordsWorkshift();
    uploadCommentsAndFiles();
    uploadShiftsTable();
    uploadRolesTable();
    uploadWorkerRolesTable();
    uploadTemplatesTable();
}

void JournalLoader::uploadCurrentWorkshift()
{
    clearTables({&m_shown.crew, &m_shown.records, &m_shown.comments, &m_shown.files});
    uploadShownWorkshift();
}

void JournalLoader::uploadRecordsIn(const QString& workshiftKey)
{
    clearTables({&m_shown.workshifts, &m_shown.crew, &m_shown.records, &m_shown.comments, &m_shown.files});
    uploadWorkshift(workshiftKey);
    m_shown.workshift = MDARec(m_shown.workshifts.data.array, 0, 0);
    uploadShownWorkshift();
}

void JournalLoader::uploadRecordsIn(const QDateTime& from, const QDateTime& to)
{
    clearTables({&m_shown.workshifts, &m_shown.crew, &m_shown.records, &m_shown.comments, &m_shown.files});
    uploadRecordsInterval(from, to);
    uploadCommentsAndFiles();
}

void JournalLoader::uploadShownWorkshift()
{
    uploadWorkersWorkshiftTable();
    uploadRecordsWorkshift();
    uploadCommentsAndFiles();
    uploadRolesTable();
    uploadWorkerRolesTable();
    uploadTemplatesTable();
}

void JournalLoader::clearTables(std::initializer_list<CModelTable*> tables)
{
    m_shown.census.clear();
    m_hasFailed = false;
    for (CModelTable* table : tables)
        table->data.lastError = MDAClearRec(table->data.array);
}

bool JournalLoader::request(CModelTable& table, const QString& sql, const char* signature)
{
    if (LiveTable(table, m_session).load(sql))
        return true;
    m_hasFailed = true;
    LogText::warn(QLatin1String(signature), QStringLiteral("error SQL query execution [%1]").arg(sql));
    return false;
}

void JournalLoader::uploadOpenWorkshift()
{
    if (m_location->departmentKey().isEmpty())
        return;
    const QString sql = QString::fromLatin1(LogbookSql::OpenWorkshift)
                            .arg(QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::DepartmentKey),
                                 m_location->departmentKey(), QLatin1String(Field::CloseWorkerKey));
    request(m_shown.workshifts, sql, "void LogBookWidget::uploadOpenWorkshift()");
    m_shown.workshifts.data.setKeys({Field::KeyLink, Field::createdAt});
    m_shown.workshift = MDARec(m_shown.workshifts.data.array, 1, 0);
}

void JournalLoader::uploadWorkshift(const QString& key)
{
    if (key.isEmpty())
        return;
    const QString sql = QString::fromLatin1(LogbookSql::ByField)
                            .arg(QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::KeyLink), key);
    request(m_shown.workshifts, sql, "void LogBookWidget::uploadWorkshift(const QString&)");
    m_shown.workshifts.data.setKeys({Field::KeyLink});
}

void JournalLoader::uploadWorkersWorkshiftTable()
{
    if (!m_shown.workshift)
        return;
    const QString sql = QString::fromLatin1(LogbookSql::WorkersWorkshift)
                            .arg(QLatin1String(LogbookTable::WorkersWorkshift), m_shown.workshiftKeyLink());
    request(m_shown.crew, sql, "void LogBookWidget::uploadWorkersWorkshiftTable()");
    m_shown.crew.data.setKeys({Field::KeyLink});
}

void JournalLoader::uploadRecordsWorkshift()
{
    const QString workshift = m_shown.workshiftKeyLink();
    if (workshift.isEmpty())
        return;
    const QString sql =
        QString::fromLatin1(LogbookSql::ByField)
            .arg(QLatin1String(LogbookTable::Records), QLatin1String(Field::ShiftKey), workshift);
    CModelTable answer(LogbookTable::Records);
    if (request(answer, sql, "void LogBookWidget::uploadRecordsWorkshift()"))
        LiveTable(m_shown.records).append(answer);
}

void JournalLoader::uploadRecordsInterval(const QDateTime& from, const QDateTime& to)
{
    const QString sql =
        QString::fromLatin1(LogbookSql::RecordsInterval)
            .arg(QLatin1String(LogbookTable::Records), QLatin1String(LogbookTable::Workshifts),
                 QLatin1String(Field::KeyLink), QLatin1String(Field::ShiftKey),
                 QLatin1String(Field::DepartmentKey), m_location->departmentKey(),
                 QLatin1String(Field::recordTime), sqlTime(from), sqlTime(to));
    CModelTable answer(LogbookTable::Records);
    if (request(answer, sql, "void LogBookWidget::uploadRecordsInterval(const QDateTime&, const QDateTime&)"))
        LiveTable(m_shown.records).append(answer);
}

void JournalLoader::uploadCommentsAndFiles()
{
    if (m_shown.records.data.RecCount() == 0)
        return;
    const QString keys = TableLoad::quotedKeys(m_shown.records.data); // a long list: built once
    uploadByRecords(m_shown.comments, keys, "void LogBookWidget::uploadCommentsRecords()");
    uploadByRecords(m_shown.files, keys, "void LogBookWidget::uploadFilesRecords()");
}

void JournalLoader::uploadByRecords(CModelTable& target, const QString& keys, const char* signature)
{
    const QString sql = QString::fromLatin1(LogbookSql::ByRecords)
                            .arg(QString::fromStdString(target.name), QLatin1String(Field::RecordKey), keys);
    request(target, sql, signature);
}

void JournalLoader::uploadShiftsTable()
{
    uploadOfDepartment(m_shown.shifts, "void LogBookWidget::uploadShiftsTable()");
}

void JournalLoader::uploadRolesTable()
{
    uploadOfDepartment(m_shown.roles, "void LogBookWidget::uploadRolesTable()");
}

void JournalLoader::uploadOfDepartment(CModelTable& target, const char* signature)
{
    if (m_location->departmentKey().isEmpty())
        return;
    const QString sql = QString::fromLatin1(LogbookSql::OfDepartment)
                            .arg(QString::fromStdString(target.name), m_location->departmentKey());
    request(target, sql, signature);
    target.data.setKeys({Field::KeyLink});
}

void JournalLoader::uploadWorkerRolesTable()
{
    if (m_shown.roles.data.RecCount() == 0)
        return;
    const QString sql =
        QString::fromLatin1(LogbookSql::WorkerRoles)
            .arg(QLatin1String(LogbookTable::WorkerRoles), TableLoad::quotedKeys(m_shown.roles.data));
    request(m_shown.workerRoles, sql, "void LogBookWidget::uploadWorkerRolesTable()");
    m_shown.workerRoles.data.setKeys({Field::KeyLink});
}

void JournalLoader::uploadTemplatesTable()
{
    for (CModelTable* table : {&m_shown.categories, &m_shown.templates})
        request(*table, QString::fromLatin1(LogbookSql::Templates).arg(QString::fromStdString(table->name)),
                "void LogBookWidget::uploadTemplatesTable()");
}
