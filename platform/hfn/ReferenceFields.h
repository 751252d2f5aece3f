#pragma once

/// Descriptor tables of the reference data: people, departments, equipment, parameters, and the tables of the earlier
/// journal; the fields are in the order on which server and client agree.

#include "LogbookFields.h"

extern VRK_EXPORT const MDRFieldDescr UsersFields[4];
extern VRK_EXPORT const MDRFieldDescr UserRightsFields[3];
extern VRK_EXPORT const MDRFieldDescr WorkersFields[8];
extern VRK_EXPORT const MDRFieldDescr DepartmentsFields[4];
extern VRK_EXPORT const MDRFieldDescr OrganizationsFields[4];
extern VRK_EXPORT const MDRFieldDescr OrgTypesFields[2];
extern VRK_EXPORT const MDRFieldDescr ShiftsFields[5];
extern VRK_EXPORT const MDRFieldDescr RolesFields[3];
extern VRK_EXPORT const MDRFieldDescr WorkerRolesFields[3];
extern VRK_EXPORT const MDRFieldDescr TablesFields[3];
extern VRK_EXPORT const MDRFieldDescr FieldsFields[4];
extern VRK_EXPORT const MDRFieldDescr TemplateParamCategoriesFields[3];
extern VRK_EXPORT const MDRFieldDescr TemplateParamsFields[4];
extern VRK_EXPORT const MDRFieldDescr EquipmentFields[6];
extern VRK_EXPORT const MDRFieldDescr OperLogCategoriesFields[5];
extern VRK_EXPORT const MDRFieldDescr OperLogTemplatesFields[10];
extern VRK_EXPORT const MDRFieldDescr OperLogTemplateParamsFields[6];
