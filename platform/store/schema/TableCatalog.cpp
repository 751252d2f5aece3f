#include "TableCatalog.h"

#include "ReferenceFields.h"

#include <QHash>

namespace
{
template <int N>
CatalogTable described(const char* name, const MDRFieldDescr (&fields)[N],
                       const QVector<QByteArray>& moreKeys = {})
{
    CatalogTable table{name, {}, {"KeyLink"}, {"KeyLink"}};
    for (const MDRFieldDescr& field : fields)
        table.fields.append({field.name, static_cast<MDRType>(field.type), field.width});
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

        described("Users", UsersFields),
        described("UserRights", UserRightsFields),
        described("Workers", WorkersFields),
        described("Departments", DepartmentsFields),
        described("Organizations", OrganizationsFields),
        described("OrgTypes", OrgTypesFields),
        described("Shifts", ShiftsFields),
        described("Roles", RolesFields),
        described("WorkerRoles", WorkerRolesFields),
        described("Tables", TablesFields, {"nameLat"}),
        described("Fields", FieldsFields),
        described("TemplateParamCategories", TemplateParamCategoriesFields),
        described("TemplateParams", TemplateParamsFields),
        described("Equipment", EquipmentFields),
        described("OperLogCategories", OperLogCategoriesFields),
        described("OperLogTemplates", OperLogTemplatesFields),
        described("OperLogTemplateParams", OperLogTemplateParamsFields),
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
        tables() + QVector<CatalogTable>{
                       {"StoreProperties", {{"name", mdr_TChar, 100}, {"value", mdr_TMemo, 0}}, {}, {"name"}},
                       {"StoreFiles",
                        {{"folder", mdr_TChar, 100}, {"name", mdr_TChar, 100}, {"content", mdr_TBlob, 0}},
                        {},
                        {"folder", "name"}},
                       {"LogSignatures",
                        {{"KeyLink", mdr_TChar, 32},
                         {"meaning", mdr_TChar, 20},
                         {"login", mdr_TChar, 100},
                         {"person", mdr_TChar, 100},
                         {"time", mdr_TDouble, 0},
                         {"signedTable", mdr_TChar, 40},
                         {"signedKey", mdr_TChar, 32},
                         {"rowHash", mdr_TChar, 64}},
                        {},
                        {"KeyLink"}}};
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

QVector<QByteArray> CatalogTable::reals() const
{
    QVector<QByteArray> names;
    for (const CatalogField& field : fields)
        if (field.type == mdr_TDouble)
            names.append(field.name);
    return names;
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
