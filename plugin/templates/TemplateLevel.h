#pragma once

#include "Fields.h"

/// The properties of a level of templates: common ones, those of types of organizations, those of
/// departments.
struct TemplateLevel {
    enum Roots {
        NoRoots,        ///< the top level contains categories
        OrgTypeRoots,   ///< the top level contains the rows of OrgTypes
        DepartmentRoots ///< the top level contains the rows of Departments
    };

    Roots roots;
    const char* scopeField; ///< field of a category with the key of its root row; null without root rows
    bool takesMoves;        ///< items can be moved by drag and drop
    bool tellsKey;          ///< the tool tip of an item is its key
};

namespace TemplateLevels
{
constexpr TemplateLevel publicLevel = {TemplateLevel::NoRoots, nullptr, true, false};
constexpr TemplateLevel orgsLevel = {TemplateLevel::OrgTypeRoots, Field::OrgTypeKey, true, false};
constexpr TemplateLevel depsLevel = {TemplateLevel::DepartmentRoots, Field::DepartmentKey, false, true};
} // namespace TemplateLevels
