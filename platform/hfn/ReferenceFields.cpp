#include "ReferenceFields.h"

const MDRFieldDescr UsersFields[4] = {
    Field::KeyLink,
    Field::login,
    Field::name_,
    Field::deleted_,
};

const MDRFieldDescr UserRightsFields[3] = {
    Field::KeyLink,
    Field::UserKey,
    Field::rightName,
};

const MDRFieldDescr WorkersFields[8] = {
    Field::KeyLink,  Field::UserKey,        Field::DepartmentKey, Field::firstName,
    Field::lastName, Field::patronymicName, Field::safetyGroup,   Field::deleted_,
};

const MDRFieldDescr DepartmentsFields[4] = {
    Field::KeyLink,
    Field::OrganizationKey,
    Field::ParentKey,
    Field::name_,
};

const MDRFieldDescr OrganizationsFields[4] = {
    Field::KeyLink,
    Field::OrgTypeKey,
    Field::ParentKey,
    Field::name_,
};

const MDRFieldDescr OrgTypesFields[2] = {
    Field::KeyLink,
    Field::name_,
};

const MDRFieldDescr ShiftsFields[5] = {
    Field::KeyLink, Field::DepartmentKey, Field::name_, Field::startTime, Field::endTime,
};

const MDRFieldDescr RolesFields[3] = {
    Field::KeyLink,
    Field::DepartmentKey,
    Field::name_,
};

const MDRFieldDescr WorkerRolesFields[3] = {
    Field::KeyLink,
    Field::RoleKey,
    Field::WorkerKey,
};

const MDRFieldDescr TablesFields[3] = {
    Field::KeyLink,
    Field::nameLat,
    Field::nameLoc,
};

const MDRFieldDescr FieldsFields[4] = {
    Field::KeyLink,
    Field::TablesKey,
    Field::nameLat,
    Field::nameLoc,
};

const MDRFieldDescr TemplateParamCategoriesFields[3] = {
    Field::KeyLink,
    Field::ParentKey,
    Field::nameLoc,
};

const MDRFieldDescr TemplateParamsFields[4] = {
    Field::KeyLink,
    Field::CategoryKey,
    Field::nameLoc,
    Field::html,
};

const MDRFieldDescr EquipmentFields[6] = {
    Field::KeyLink, Field::ParentKey, Field::DepartmentKey, Field::kind, Field::name_, Field::voltage,
};

const MDRFieldDescr OperLogCategoriesFields[5] = {
    Field::KeyLink, Field::ParentKey, Field::OrgTypeKey, Field::DepartmentKey, Field::name_,
};

const MDRFieldDescr OperLogTemplatesFields[10] = {
    Field::KeyLink,
    Field::CategoryKey,
    Field::name_,
    Field::text_,
    Field::canStartShift,
    Field::canEndShift,
    Field::isNecessaryFinishTime,
    Field::icon,
    Field::completingIcon,
    Field::completingCommand,
};

const MDRFieldDescr OperLogTemplateParamsFields[6] = {
    Field::KeyLink, Field::nameLoc, Field::nameLat, Field::param, Field::TableKey, Field::FieldTypeKey,
};
