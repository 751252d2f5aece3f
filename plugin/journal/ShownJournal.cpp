#include "ShownJournal.h"

#include "LogbookFields.h"
#include "RecordValue.h"

ShownJournal::ShownJournal()
{
    struct Shape {
        CModelTable& table;
        const MDRFieldDescr* fields;
        int count;
        const char* key;
    };
    const Shape shapes[] = {
        {workshifts, LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields), Field::KeyLink},
        {crew, LogbookWorkersWorkshiftFields, fieldCount(LogbookWorkersWorkshiftFields), Field::KeyLink},
        {records, LogbookRecordExtFields, fieldCount(LogbookRecordExtFields), ""},
        {comments, LogbookCommentFields, fieldCount(LogbookCommentFields), ""},
        {files, LogbookFilesFields, fieldCount(LogbookFilesFields), ""},
        {categories, LogbookCatsTemplateFields, fieldCount(LogbookCatsTemplateFields), ""},
        {templates, LogbookTemplatesFields, fieldCount(LogbookTemplatesFields), ""},
    };
    for (const Shape& shape : shapes) {
        CMDArray& rows = shape.table.data;
        rows.lastError = MDAFldAdd(rows.array, shape.count, shape.fields);
        rows.KeyAdd(shape.key, 0);
    }
}

CModelTable* ShownJournal::table(const QString& name)
{
    for (CModelTable* table : {&workshifts, &crew, &records, &comments, &files, &shifts, &roles, &workerRoles,
                               &categories, &templates})
        if (name == QLatin1String(table->name.c_str()))
            return table;
    return nullptr;
}

QString ShownJournal::workshiftKeyLink() const
{
    return workshift ? QString::fromUtf8(Row(workshift).key()) : QString();
}

void ShownJournal::prepareRecords()
{
    preparer.prepareRecords();
    for (int i = 0; i < records.data.RecCount(); ++i)
        census.put(MDARec(records.data.array, 0, i));
}

void ShownJournal::prepareRecord(MDRData* record)
{
    preparer.prepareRecord(record);
    census.put(record);
}
