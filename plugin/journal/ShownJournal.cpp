#include "ShownJournal.h"

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

QByteArray ShownJournal::departmentOf(const QByteArray& key) const
{
    return Row(recordByKeyLink(&workshifts, key.constData())).copy(Field::DepartmentKey);
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
