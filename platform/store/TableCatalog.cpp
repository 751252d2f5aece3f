#include "TableCatalog.h"

#include "LogbookFields.h"

#include <QHash>

namespace
{
template <int N>
CatalogTable described(const char* name, const MDRFieldDescr (&fields)[N], QVector<QByteArray> moreKeys = {})
{
    CatalogTable table{name, {}, {"KeyLink"}, {"KeyLink"}};
    for (const MDRFieldDescr& field : fields)
        table.fields.append({field.name, static_cast<MDRType>(field.type), field.width});
    table.keys += moreKeys;
    return table;
}

CatalogField key(const char* name)
{
    return {name, mdr_TChar, 32};
}
CatalogField name(const char* name)
{
    return {name, mdr_TChar, 100};
}
CatalogField memo(const char* name)
{
    return {name, mdr_TMemo, 0};
}
CatalogField flag(const char* name)
{
    return {name, mdr_TBool, 0};
}
CatalogField time(const char* name)
{
    return {name, mdr_TDouble, 0};
}
CatalogField number(const char* name)
{
    return {name, mdr_TInt32, 0};
}

CatalogTable reference(const char* name, QVector<CatalogField> fields, QVector<QByteArray> moreKeys = {})
{
    CatalogTable table{name, {key("KeyLink")}, {"KeyLink"}, {"KeyLink"}};
    table.fields += fields;
    table.keys += moreKeys;
    return table;
}

QVector<CatalogTable> makeTables()
{
    return {
        described("LogbookWorkshifts", LogbookWorkshiftFields, {"DepartmentKey;startTime:0x4"}),
        described("LogbookWorkersWorkshift", LogbookWorkersWorkshiftFields),
        described("LogbookRecords", LogbookRecordFields),
        described("LogbookComments", LogbookCommentFields),
        described("LogbookFiles", LogbookFilesFields),
        described("LogbookTemplates", LogbookTemplatesFields),
        described("LogbookCatsTemplate", LogbookCatsTemplateFields),

        reference("Users", {name("login"), name("name_"), flag("deleted_")}),
        reference("UserRights", {key("UserKey"), name("rightName")}),
        reference("Workers", {key("UserKey"), key("DepartmentKey"), name("firstName"), name("lastName"),
                              name("patronymicName"), number("safetyGroup"), flag("deleted_")}),
        reference("Departments", {key("OrganizationKey"), key("ParentKey"), name("name_")}),
        reference("Organizations", {key("OrgTypeKey"), key("ParentKey"), name("name_")}),
        reference("OrgTypes", {name("name_")}),
        reference("Shifts", {key("DepartmentKey"), name("name_"), time("startTime"), time("endTime")}),
        reference("Roles", {key("DepartmentKey"), name("name_")}),
        reference("WorkerRoles", {key("RoleKey"), key("WorkerKey")}),
        reference("Tables", {name("nameLat"), name("nameLoc")}, {"nameLat"}),
        reference("Fields", {key("TablesKey"), name("nameLat"), name("nameLoc")}),
        reference("TemplateParamCategories", {key("ParentKey"), name("nameLoc")}),
        reference("TemplateParams", {key("CategoryKey"), name("nameLoc"), memo("html")}),
        reference("Equipment",
                  {key("ParentKey"), key("DepartmentKey"), name("kind"), name("name_"), name("voltage")}),

        reference("OperLogCategories",
                  {key("ParentKey"), key("OrgTypeKey"), key("DepartmentKey"), name("name_")}),
        reference("OperLogTemplates",
                  {key("CategoryKey"), name("name_"), memo("text_"), flag("canStartShift"),
                   flag("canEndShift"), flag("isNecessaryFinishTime"), name("icon"), name("completingIcon"),
                   name("completingCommand")}),
        reference("OperLogTemplateParams",
                  {name("nameLoc"), name("nameLat"), memo("param"), key("TableKey"), key("FieldTypeKey")}),
    };
}
} // namespace

const QVector<CatalogTable>& TableCatalog::tables()
{
    static const QVector<CatalogTable> all = makeTables();
    return all;
}

const QVector<CatalogTable>& TableCatalog::loggedTables()
{
    static const QVector<CatalogTable> all =
        tables() + QVector<CatalogTable>{{"StoreProperties", {name("name"), memo("value")}, {}, {"name"}},
                                         {"StoreFiles",
                                          {name("folder"), name("name"), {"content", mdr_TBlob, 0}},
                                          {},
                                          {"folder", "name"}}};
    return all;
}

const CatalogTable* TableCatalog::table(const QByteArray& name)
{
    static const QHash<QByteArray, const CatalogTable*> byName = [] {
        QHash<QByteArray, const CatalogTable*> map;
        for (const CatalogTable& table : tables())
            map.insert(table.name.toLower(), &table);
        return map;
    }();
    return byName.value(name.toLower());
}

int CatalogTable::fieldIndex(const QByteArray& field) const
{
    for (int i = 0; i < fields.size(); ++i)
        if (qstricmp(fields.at(i).name, field) == 0)
            return i;
    return -1;
}

QByteArray CatalogTable::rowKeyOf(const QByteArray& alias) const
{
    QByteArray key;
    for (const QByteArray& field : rowKey)
        key += (key.isEmpty() ? "" : " || '/' || ") + alias + '.' + field;
    return key;
}

QVector<MDRFieldDescr> CatalogTable::descriptors() const
{
    QVector<MDRFieldDescr> rows;
    rows.reserve(fields.size());
    for (const CatalogField& field : fields) {
        MDRFieldDescr row = {};
        qstrncpy(row.name, field.name.constData(), sizeof row.name);
        row.width = static_cast<std::uint8_t>(field.width);
        row.type = field.type;
        rows.append(row);
    }
    return rows;
}
