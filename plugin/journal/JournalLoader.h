#pragma once

#include "ShownJournal.h"

#include <initializer_list>

class CVrkCliSes;
class LocationInfo;

/// Reads what a page shows. A failed request is logged and does not change its table.
class JournalLoader
{
public:
    /// Nothing is owned.
    JournalLoader(CVrkCliSes* session, const LocationInfo* location, ShownJournal& shown);

    /// \name The loads: clear tables, then fill them
    /// @{
    /// The open workshift of the department, with all ten tables.
    void uploadRealTimeWorkshift();
    /// What belongs to the shown workshift, which has just appeared.
    void uploadCurrentWorkshift();
    void uploadRecordsIn(const QString& workshiftKey);
    void uploadRecordsIn(const QDateTime& from, const QDateTime& to);
    /// @}
    /// A request of the last load has failed.
    bool hasFailed() const { return m_hasFailed; }

private:
    void uploadShownWorkshift();
    void clearTables(std::initializer_list<CModelTable*> tables);
    /// Runs a select into a table; false, with a line under the signature, if it fails.
    bool request(CModelTable& table, const QString& sql, const char* signature);
    void uploadOpenWorkshift();
    void uploadWorkshift(const QString& key);
    void uploadWorkersWorkshiftTable();
    void uploadRecordsWorkshift();
    void uploadRecordsInterval(const QDateTime& from, const QDateTime& to);
    void uploadCommentsAndFiles();
    void uploadByRecords(CModelTable& target, const QString& keys, const char* signature);
    void uploadShiftsTable();
    void uploadRolesTable();
    void uploadOfDepartment(CModelTable& target, const char* signature);
    void uploadWorkerRolesTable();
    void uploadTemplatesTable();

    CVrkCliSes* m_session;
    const LocationInfo* m_location;
    ShownJournal& m_shown;
    bool m_hasFailed = false;
};
