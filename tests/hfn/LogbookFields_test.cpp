#include "ReferenceFields.h"

#include <cstring>
#include <QTest>

/// The descriptor tables are a contract with stores and other programs: a change here breaks it.
class LogbookFields_test : public QObject
{
    Q_OBJECT

private slots:
    void tablesHaveTheirAgreedRows_data();
    void tablesHaveTheirAgreedRows();
    void bothShapesOfARecordShareTheirFirstFields();
    void statesAndDirectionsHaveTheirNumbers();
};

void LogbookFields_test::tablesHaveTheirAgreedRows_data()
{
    QTest::addColumn<QByteArray>("rows"); // name width type, in this order
    QTest::addColumn<QByteArray>("agreed");
    const auto table = [](const char* name, const MDRFieldDescr* fields, int count, const char* agreed) {
        QByteArray rows;
        for (int i = 0; i < count; ++i)
            rows += QByteArray(i > 0 ? ", " : "") + fields[i].name + ' ' +
                    QByteArray::number(fields[i].width) + ' ' + QByteArray::number(fields[i].type);
        QTest::newRow(name) << rows << QByteArray(agreed);
    };
    table("workshifts", LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields),
          "KeyLink 32 9, DepartmentKey 32 9, OpenWorkerKey 32 9, CloseWorkerKey 32 9, createdAt 0 8, "
          "startTime 0 8, "
          "endTime 0 8");
    table("crew", LogbookWorkersWorkshiftFields, fieldCount(LogbookWorkersWorkshiftFields),
          "KeyLink 32 9, WorkshiftKey 32 9, WorkerKey 32 9, opening 0 1");
    table("records", LogbookRecordFields, fieldCount(LogbookRecordFields),
          "KeyLink 32 9, ShiftKey 32 9, WorkerKey 32 9, VisaWorkerKey 32 9, ReceiverWorkerKey 32 9, "
          "OriginRecordKey 32 9, SecondMarkWorkerKey 32 9, recordTime 0 8, eventTime 0 8, firstMarkTime 0 8, "
          "secondMarkTime 0 8, executionTime 0 8, html 0 10, status 0 5, direction 0 5");
    table("what records have in the client only", LogbookRecordExtFields + 15,
          fieldCount(LogbookRecordExtFields) - 15, "file 0 1, comment 0 1, object 0 10");
    table("comments", LogbookCommentFields, fieldCount(LogbookCommentFields),
          "KeyLink 32 9, WorkerKey 32 9, RecordKey 32 9, commentTime 0 8, text_ 0 10, readedTime 0 8");
    table("files", LogbookFilesFields, fieldCount(LogbookFilesFields),
          "KeyLink 32 9, WorkerKey 32 9, RecordKey 32 9, fileName 100 9, fileData 0 11");
    table("templates", LogbookTemplatesFields, fieldCount(LogbookTemplatesFields),
          "KeyLink 32 9, CategoryKey 32 9, nameLoc 100 9, html 0 10");
    table("categories", LogbookCatsTemplateFields, fieldCount(LogbookCatsTemplateFields),
          "KeyLink 32 9, ParentKey 32 9, OrgTypeKey 32 9, DepartmentKey 32 9, nameLoc 100 9");
    table("Users", UsersFields, fieldCount(UsersFields),
          "KeyLink 32 9, login 100 9, name_ 100 9, deleted_ 0 1");
    table("UserRights", UserRightsFields, fieldCount(UserRightsFields),
          "KeyLink 32 9, UserKey 32 9, rightName 100 9");
    table("Workers", WorkersFields, fieldCount(WorkersFields),
          "KeyLink 32 9, UserKey 32 9, DepartmentKey 32 9, firstName 100 9, lastName 100 9, patronymicName "
          "100 9, safetyGroup 0 5, deleted_ 0 1");
    table("Departments", DepartmentsFields, fieldCount(DepartmentsFields),
          "KeyLink 32 9, OrganizationKey 32 9, ParentKey 32 9, name_ 100 9");
    table("Organizations", OrganizationsFields, fieldCount(OrganizationsFields),
          "KeyLink 32 9, OrgTypeKey 32 9, ParentKey 32 9, name_ 100 9");
    table("OrgTypes", OrgTypesFields, fieldCount(OrgTypesFields), "KeyLink 32 9, name_ 100 9");
    table("Shifts", ShiftsFields, fieldCount(ShiftsFields),
          "KeyLink 32 9, DepartmentKey 32 9, name_ 100 9, startTime 0 8, endTime 0 8");
    table("Roles", RolesFields, fieldCount(RolesFields), "KeyLink 32 9, DepartmentKey 32 9, name_ 100 9");
    table("WorkerRoles", WorkerRolesFields, fieldCount(WorkerRolesFields),
          "KeyLink 32 9, RoleKey 32 9, WorkerKey 32 9");
    table("Tables", TablesFields, fieldCount(TablesFields), "KeyLink 32 9, nameLat 100 9, nameLoc 100 9");
    table("Fields", FieldsFields, fieldCount(FieldsFields),
          "KeyLink 32 9, TablesKey 32 9, nameLat 100 9, nameLoc 100 9");
    table("TemplateParamCategories", TemplateParamCategoriesFields, fieldCount(TemplateParamCategoriesFields),
          "KeyLink 32 9, ParentKey 32 9, nameLoc 100 9");
    table("TemplateParams", TemplateParamsFields, fieldCount(TemplateParamsFields),
          "KeyLink 32 9, CategoryKey 32 9, nameLoc 100 9, html 0 10");
    table("Equipment", EquipmentFields, fieldCount(EquipmentFields),
          "KeyLink 32 9, ParentKey 32 9, DepartmentKey 32 9, kind 100 9, name_ 100 9, voltage 100 9");
    table("OperLogCategories", OperLogCategoriesFields, fieldCount(OperLogCategoriesFields),
          "KeyLink 32 9, ParentKey 32 9, OrgTypeKey 32 9, DepartmentKey 32 9, name_ 100 9");
    table("OperLogTemplates", OperLogTemplatesFields, fieldCount(OperLogTemplatesFields),
          "KeyLink 32 9, CategoryKey 32 9, name_ 100 9, text_ 0 10, canStartShift 0 1, canEndShift 0 1, "
          "isNecessaryFinishTime 0 1, icon 100 9, completingIcon 100 9, completingCommand 100 9");
    table("OperLogTemplateParams", OperLogTemplateParamsFields, fieldCount(OperLogTemplateParamsFields),
          "KeyLink 32 9, nameLoc 100 9, nameLat 100 9, param 0 10, TableKey 32 9, FieldTypeKey 32 9");
}

void LogbookFields_test::tablesHaveTheirAgreedRows()
{
    QFETCH(QByteArray, rows);
    QTEST(rows, "agreed");
}

void LogbookFields_test::bothShapesOfARecordShareTheirFirstFields()
{
    // Answers and events are copied by position.
    QCOMPARE(std::memcmp(LogbookRecordFields, LogbookRecordExtFields, sizeof LogbookRecordFields), 0);
}

void LogbookFields_test::statesAndDirectionsHaveTheirNumbers()
{
    QCOMPARE(int(StatusApproved), 0);
    QCOMPARE(int(StatusDraft), 1);
    QCOMPARE(int(StatusDeleted), 2);
    QCOMPARE(int(DirectionNone), 0);
    QCOMPARE(int(DirectionLeft), 1);
    QCOMPARE(int(DirectionRight), 2);
}

QTEST_APPLESS_MAIN(LogbookFields_test)
#include "LogbookFields_test.moc"
