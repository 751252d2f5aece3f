#pragma once

/// Names of the journal's tables, and the journal's selects. The texts are formats for QString::arg: only
/// keys and times are inserted, nothing is quoted. %1 is the table unless stated otherwise.

namespace LogbookTable
{
constexpr char Workshifts[] = "LogbookWorkshifts";
constexpr char WorkersWorkshift[] = "LogbookWorkersWorkshift";
constexpr char Records[] = "LogbookRecords";
constexpr char Comments[] = "LogbookComments";
constexpr char Files[] = "LogbookFiles";
constexpr char Shifts[] = "Shifts";
constexpr char Roles[] = "Roles";
constexpr char WorkerRoles[] = "WorkerRoles";
constexpr char CatsTemplate[] = "LogbookCatsTemplate";
constexpr char Templates[] = "LogbookTemplates";
constexpr char Workers[] = "Workers";
constexpr char Departments[] = "Departments";
constexpr char Organizations[] = "Organizations";
constexpr char OrgTypes[] = "OrgTypes";
} // namespace LogbookTable

namespace LogbookSql
{
/// %2 department field, %3 department, %4 field of the closing worker.
constexpr char OpenWorkshift[] = "SELECT * FROM %1 WHERE %2='%3' AND (%4 IS NULL OR %4='')";
/// %2 field, %3 key: one workshift by its key, the records of a workshift.
constexpr char ByField[] = "SELECT * FROM %1 WHERE %2='%3'";
/// %2 workshift.
constexpr char WorkersWorkshift[] = "SELECT * FROM %1 WHERE WorkshiftKey='%2'";
/// %2 department: shifts and roles.
constexpr char OfDepartment[] = "SELECT * FROM %1 WHERE DepartmentKey='%2'";
/// %2 list of quoted keys.
constexpr char WorkerRoles[] = "SELECT * FROM %1 WHERE RoleKey IN (%2);";
constexpr char Templates[] = "SELECT * FROM %1 ;";
/// %2 department field, %3 department, %4 field of the closing worker.
constexpr char ClosedWorkshifts[] =
    "SELECT * FROM %1 WHERE %2 = '%3'        AND %4 <> ''        AND %4 IS NOT NULL;";
/// %2 record.
constexpr char RecordByKey[] = "SELECT * FROM %1 WHERE KeyLink='%2';";
/// %2 field, %3 key.
constexpr char RecordByField[] = "SELECT * FROM %1 WHERE %2 = '%3';";
/// The records of a worker with unread comments. %1 records, %2 their key, %3 comments, %4 their reference,
/// %5 author field, %6 worker, %7 time of reading.
constexpr char UnreadRecords[] = "SELECT * FROM %1 WHERE %2 IN (SELECT %1.%2              FROM %1"
                                 "              INNER JOIN %3                 ON %1.%2 = %3.%4"
                                 "              WHERE %1.%5 = '%6'                    AND %3.%7 = 0"
                                 "              GROUP BY %1.%2);";
/// %2 field, %3 list of quoted keys: comments and files of records.
constexpr char ByRecords[] = "SELECT * FROM %1 WHERE %2 IN (%3)";
/// %1 records, %2 workshifts, %3 their key, %4 its reference, %5 department field, %6 department, %7 time field,
/// %8 from, %9 to.
constexpr char RecordsInterval[] = "SELECT %1.* FROM %1 INNER JOIN %2 ON %2.%3 = %1.%4 "
                                   "WHERE %2.%5 = '%6' AND %7 >= %8 AND %7 <= %9;";
} // namespace LogbookSql
