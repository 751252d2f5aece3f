#include "ContentCheck.h"

#include "StoreErrors.h"
#include "TableCatalog.h"

namespace
{
using StoreAdmin::Finding;

struct Reference {
    const char* table;
    const char* field;
    const char* target;
    Finding::Grade grade;
};

// People come and go, so a missing worker is only a note.
const Reference references[] = {
    {"LogbookWorkshifts", "DepartmentKey", "Departments", Finding::Fault},
    {"LogbookWorkshifts", "OpenWorkerKey", "Workers", Finding::Note},
    {"LogbookWorkshifts", "CloseWorkerKey", "Workers", Finding::Note},
    {"LogbookWorkersWorkshift", "WorkerKey", "Workers", Finding::Note},
    {"LogbookRecords", "WorkerKey", "Workers", Finding::Note},
    {"LogbookRecords", "VisaWorkerKey", "Workers", Finding::Note},
    {"LogbookRecords", "ReceiverWorkerKey", "Workers", Finding::Note},
    {"LogbookRecords", "SecondMarkWorkerKey", "Workers", Finding::Note},
    {"LogbookRecords", "OriginRecordKey", "LogbookRecords", Finding::Note},
    {"LogbookComments", "WorkerKey", "Workers", Finding::Note},
    {"LogbookFiles", "WorkerKey", "Workers", Finding::Note},
    {"LogbookCatsTemplate", "OrgTypeKey", "OrgTypes", Finding::Fault},
    {"LogbookCatsTemplate", "DepartmentKey", "Departments", Finding::Fault},
    {"UserRights", "UserKey", "Users", Finding::Fault},
    {"Workers", "UserKey", "Users", Finding::Fault},
    {"Workers", "DepartmentKey", "Departments", Finding::Fault},
    {"Departments", "OrganizationKey", "Organizations", Finding::Fault},
    {"Departments", "ParentKey", "Departments", Finding::Fault},
    {"Organizations", "OrgTypeKey", "OrgTypes", Finding::Fault},
    {"Organizations", "ParentKey", "Organizations", Finding::Fault},
    {"Shifts", "DepartmentKey", "Departments", Finding::Fault},
    {"Roles", "DepartmentKey", "Departments", Finding::Fault},
    {"WorkerRoles", "RoleKey", "Roles", Finding::Fault},
    {"WorkerRoles", "WorkerKey", "Workers", Finding::Fault},
    {"Fields", "TablesKey", "Tables", Finding::Fault},
    {"Equipment", "ParentKey", "Equipment", Finding::Fault},
    {"Equipment", "DepartmentKey", "Departments", Finding::Fault},
};

const char* const trees[] = {"LogbookCatsTemplate", "TemplateParamCategories", "Departments", "Organizations",
                             "Equipment"};
} // namespace

void ContentCheck::add(QVector<Finding>* findings, Finding::Grade grade, const char* text,
                       const QByteArray& first, const QByteArray& second)
{
    findings->append(
        {grade, StoreErrors::make(StoreError::None, text, QString::fromUtf8(first), QString::fromUtf8(second))
                    .text});
}

bool ContentCheck::isSound(const QVector<Finding>& findings, StoreError* error, const char* text)
{
    for (const Finding& finding : findings)
        if (finding.grade == Finding::Fault)
            return StoreErrors::raise(error, StoreError::Internal, text, finding.text);
    return true;
}

void ContentCheck::compare(const Objects& fresh, const Objects& present, QVector<Finding>* findings)
{
    for (auto object = fresh.cbegin(); object != fresh.cend(); ++object)
        if (!present.contains(object.key()))
            add(findings, Finding::Fault, "В схеме хранилища недостаёт «%1».", object.key());
        else if (present.value(object.key()) != object.value())
            add(findings, Finding::Fault, "В схеме хранилища изменено «%1».", object.key());
    for (auto object = present.cbegin(); object != present.cend(); ++object)
        if (!fresh.contains(object.key()))
            add(findings, Finding::Fault, strange, object.key());
}

QVector<ContentCheck::Look> ContentCheck::looks()
{
    QVector<Look> all;
    for (const Reference& reference : references) {
        const QByteArray table(reference.table);
        const QByteArray field(reference.field);
        all.append({"SELECT '" + table + "." + field + "', KeyLink FROM " + table + " AS T WHERE coalesce(" +
                        field + ", '') <> '' AND NOT EXISTS (SELECT 1 FROM " + reference.target +
                        " AS P WHERE P.KeyLink = T." + field + ")",
                    reference.grade, "Поле «%1» строки «%2» указывает на строку, которой нет."});
    }
    for (const char* tree : trees) {
        // Walking down from the roots reaches every row except those in a cycle.
        const QByteArray table(tree);
        all.append({"WITH RECURSIVE reached (k) AS (SELECT KeyLink FROM " + table +
                        " WHERE coalesce(ParentKey, '') = '' OR ParentKey NOT IN (SELECT KeyLink FROM " +
                        table + ") UNION SELECT T.KeyLink FROM reached JOIN " + table +
                        " AS T ON T.ParentKey = reached.k) SELECT '" + table + "', KeyLink FROM " + table +
                        " WHERE KeyLink NOT IN (SELECT k FROM reached)",
                    Finding::Fault, "Строка «%2» таблицы «%1» лежит внутри самой себя."});
    }
    all.append({"SELECT KeyLink, coalesce(CAST(status AS TEXT), 'NULL') FROM LogbookRecords"
                " WHERE coalesce(status, -1) NOT IN (0, 1, 2)",
                Finding::Fault, "У записи «%1» недопустимое состояние %2."});
    all.append({"SELECT KeyLink FROM LogbookRecords WHERE coalesce(ShiftKey, '') = ''", Finding::Fault,
                "Запись «%1» не принадлежит ни одной смене."});
    all.append({"SELECT KeyLink FROM LogbookWorkshifts AS W"
                " WHERE NOT EXISTS (SELECT 1 FROM LogbookWorkersWorkshift WHERE WorkshiftKey = W.KeyLink)"
                " OR NOT EXISTS (SELECT 1 FROM LogbookRecords WHERE ShiftKey = W.KeyLink)",
                Finding::Note, "Смена «%1» не имеет состава или записей: её открытие было прервано."});
    all.append(
        {"SELECT KeyLink FROM LogbookWorkshifts AS W WHERE W.startTime > W.endTime"
         " OR W.endTime - W.startTime > (SELECT seconds FROM LongestShift)",
         Finding::Note,
         "Смена «%1» длиннее разрешённого или кончается раньше, чем начинается. Исправит vrk-admin shift."});
    for (const CatalogTable& table : TableCatalog::tables()) {
        QByteArray faults;
        for (const QByteArray& field : table.reals())
            faults += (faults.isEmpty() ? "abs(" : " OR abs(") + field + ") > 1.7976931348623157e308";
        if (!faults.isEmpty())
            all.append({"SELECT '" + table.name + "', KeyLink FROM " + table.name + " WHERE " + faults,
                        Finding::Fault,
                        "В строке «%2» таблицы «%1» стоит время или число, которого не бывает."});
    }
    return all;
}
