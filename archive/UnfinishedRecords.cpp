#include "UnfinishedRecords.h"

#include "LogbookFields.h"
#include "MDRValues.h"
#include "RecordList.h"
#include "RecordRules.h"
#include "Row.h"

QString UnfinishedRecords::select(const QByteArray& departmentKey, const QString& condition)
{
    // RecordRules reads the templates' properties exactly; this only skips records that cannot have them.
    return QStringLiteral(
               "SELECT R.*, W.DepartmentKey, W.startTime, W.endTime, W.CloseWorkerKey FROM LogbookRecords AS "
               "R "
               "INNER JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey WHERE W.DepartmentKey = '%1' AND "
               "%2 "
               "AND (R.status = 1 AND W.CloseWorkerKey <> '' OR R.status = 0 AND ("
               "R.html LIKE '%time_exec%' AND (R.executionTime IS NULL OR R.executionTime = 0) OR "
               "R.html LIKE '%second_mark%' AND (R.secondMarkTime IS NULL OR R.secondMarkTime = 0))) "
               "ORDER BY R.recordTime")
        .replace(QLatin1String("%1"), QString::fromUtf8(departmentKey))
        .replace(QLatin1String("%2"), condition);
}

QString UnfinishedRecords::selectSince(const QByteArray& departmentKey, double time)
{
    return select(departmentKey, QStringLiteral("R.recordTime >= ") + QString::number(time, 'g', 10));
}

int UnfinishedRecords::lacksOf(const Row& record, bool isShiftClosed)
{
    RecordRules::State state;
    state.html = record.bytes(Field::html).toStdString();
    state.status = record.number(Field::status, StatusDeleted);
    state.hasExecutionTime = record.has(Field::executionTime);
    state.hasSecondMark = record.has(Field::secondMarkTime);
    state.isShiftClosed = isShiftClosed;
    return RecordRules::lacksOf(state);
}

void UnfinishedRecords::judge(const MDArray* answer, CMDArray* judged)
{
    const int rows = MDAKeyRecCount(answer, 0);
    for (int i = 0; i < rows; ++i) {
        const Row row(MDARec(answer, 0, i));
        MDRData* record = MDARecNew(judged->array);
        for (int number = 0; number < MDAFldCount(judged->array) - 1; ++number) {
            const MDRVar one = row.value(MDRFldByNum(judged->array, number)->name);
            MDRSetVal(MDRFldByNum(judged->array, number), record, &one);
        }
        const int lacks = lacksOf(Row(record), row.has(Field::CloseWorkerKey));
        judged->SetValF(record, Field::lacks, MDRValue::number(lacks));
        if (lacks)
            judged->RecPost(record);
        else
            MDARecDel(record);
    }
}
