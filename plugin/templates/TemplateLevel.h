#pragma once

#include "Fields.h"
#include "Rights.h"

/// The properties of a level of templates: common ones, those of types of organizations, those of
/// departments.
struct TemplateLevel {
    enum Roots {
        NoRoots,        ///< the top level contains categories
        OrgTypeRoots,   ///< the top level contains the rows of OrgTypes
        DepartmentRoots ///< the top level contains the rows of Departments
    };

    const char* name; ///< in the functions of log lines
    Roots roots;
    const char* scopeField;     ///< field of a category with the key of its root row; null without root rows
    const char* noParent;       ///< the log's reason why no category can be created
    Rights::AdminRights editor; ///< the least rights that change items
    bool takesMoves;            ///< items can be moved by drag and drop
    bool tellsKey;              ///< the tool tip of an item is its key
};

namespace TemplateLevels
{
constexpr char noCategory[] = "failed get record by index. Can't find parent category record.";
constexpr TemplateLevel publicLevel = {
    "Public", TemplateLevel::NoRoots, nullptr, noCategory, Rights::Admin, true, false};
constexpr TemplateLevel orgsLevel = {"Orgs",
                                     TemplateLevel::OrgTypeRoots,
                                     Field::OrgTypeKey,
                                     "Not found organization type or parent key",
                                     Rights::Admin,
                                     true,
                                     false};
constexpr TemplateLevel depsLevel = {"Deps",
                                     TemplateLevel::DepartmentRoots,
                                     Field::DepartmentKey,
                                     "Not found department or parent key",
                                     Rights::LocalAdmin,
                                     false,
                                     true};
} // namespace TemplateLevels
