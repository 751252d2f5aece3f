#include "ReferenceFields.h"

namespace
{
constexpr std::uint8_t keyWidth = 32;
constexpr std::uint8_t nameWidth = 100;
} // namespace

const MDRFieldDescr UsersFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"login", nameWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},
    {"deleted_", 0, mdr_TBool},
};

const MDRFieldDescr UserRightsFields[3] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"UserKey", keyWidth, mdr_TChar},
    {"rightName", nameWidth, mdr_TChar},
};

const MDRFieldDescr WorkersFields[8] = {
    {"KeyLink", keyWidth, mdr_TChar},       {"UserKey", keyWidth, mdr_TChar},
    {"DepartmentKey", keyWidth, mdr_TChar}, {"firstName", nameWidth, mdr_TChar},
    {"lastName", nameWidth, mdr_TChar},     {"patronymicName", nameWidth, mdr_TChar},
    {"safetyGroup", 0, mdr_TInt32},         {"deleted_", 0, mdr_TBool},
};

const MDRFieldDescr DepartmentsFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"OrganizationKey", keyWidth, mdr_TChar},
    {"ParentKey", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},
};

const MDRFieldDescr OrganizationsFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"OrgTypeKey", keyWidth, mdr_TChar},
    {"ParentKey", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},
};

const MDRFieldDescr OrgTypesFields[2] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},
};

const MDRFieldDescr ShiftsFields[5] = {
    {"KeyLink", keyWidth, mdr_TChar}, {"DepartmentKey", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},  {"startTime", 0, mdr_TDouble},
    {"endTime", 0, mdr_TDouble},
};

const MDRFieldDescr RolesFields[3] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"DepartmentKey", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},
};

const MDRFieldDescr WorkerRolesFields[3] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"RoleKey", keyWidth, mdr_TChar},
    {"WorkerKey", keyWidth, mdr_TChar},
};

const MDRFieldDescr TablesFields[3] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"nameLat", nameWidth, mdr_TChar},
    {"nameLoc", nameWidth, mdr_TChar},
};

const MDRFieldDescr FieldsFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"TablesKey", keyWidth, mdr_TChar},
    {"nameLat", nameWidth, mdr_TChar},
    {"nameLoc", nameWidth, mdr_TChar},
};

const MDRFieldDescr TemplateParamCategoriesFields[3] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"ParentKey", keyWidth, mdr_TChar},
    {"nameLoc", nameWidth, mdr_TChar},
};

const MDRFieldDescr TemplateParamsFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"CategoryKey", keyWidth, mdr_TChar},
    {"nameLoc", nameWidth, mdr_TChar},
    {"html", 0, mdr_TMemo},
};

const MDRFieldDescr EquipmentFields[6] = {
    {"KeyLink", keyWidth, mdr_TChar},       {"ParentKey", keyWidth, mdr_TChar},
    {"DepartmentKey", keyWidth, mdr_TChar}, {"kind", nameWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},        {"voltage", nameWidth, mdr_TChar},
};

const MDRFieldDescr OperLogCategoriesFields[5] = {
    {"KeyLink", keyWidth, mdr_TChar},    {"ParentKey", keyWidth, mdr_TChar},
    {"OrgTypeKey", keyWidth, mdr_TChar}, {"DepartmentKey", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},
};

const MDRFieldDescr OperLogTemplatesFields[10] = {
    {"KeyLink", keyWidth, mdr_TChar},         {"CategoryKey", keyWidth, mdr_TChar},
    {"name_", nameWidth, mdr_TChar},          {"text_", 0, mdr_TMemo},
    {"canStartShift", 0, mdr_TBool},          {"canEndShift", 0, mdr_TBool},
    {"isNecessaryFinishTime", 0, mdr_TBool},  {"icon", nameWidth, mdr_TChar},
    {"completingIcon", nameWidth, mdr_TChar}, {"completingCommand", nameWidth, mdr_TChar},
};

const MDRFieldDescr OperLogTemplateParamsFields[6] = {
    {"KeyLink", keyWidth, mdr_TChar},  {"nameLoc", nameWidth, mdr_TChar},
    {"nameLat", nameWidth, mdr_TChar}, {"param", 0, mdr_TMemo},
    {"TableKey", keyWidth, mdr_TChar}, {"FieldTypeKey", keyWidth, mdr_TChar},
};
