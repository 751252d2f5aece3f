#include "LogbookFields.h"

#include <cstring>
#include <QTest>

/// The descriptor tables are an agreement with stores and with other programs: a change here breaks it.
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
