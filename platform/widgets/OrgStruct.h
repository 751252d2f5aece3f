#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

/// Items of the organization structure.
namespace OrgStruct
{
/// Kinds of items; combined as flags, the kinds that may be selected.
enum ItemType {
    None = 0,
    OrgType = 1,
    Organization = 2,
    Department = 4,
    Person = 8,
};

/// A worker in plain values.
struct Worker {
    QString keyLink;
    QString firstName;
    QString lastName;
    QString patronymicName;
    QStringList path; ///< names of the levels above him, from the type of organization to the department
    int group = 0;    ///< safety group, 0 for none
};

/// The selected item. The keys of all levels above it are set, too, if they exist.
struct SelectedItem {
    int type = None;
    QString orgTypeKey;
    QString organizationKey;
    QString departmentKey;
    Worker worker; ///< for Person
};
} // namespace OrgStruct

Q_DECLARE_METATYPE(OrgStruct::SelectedItem)
