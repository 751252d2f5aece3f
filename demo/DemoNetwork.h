#pragma once

#include "DemoText.h"

#include <QByteArray>
#include <QHash>

class DemoWriter;

/// One person of the demo: a row of Workers.
struct DemoPerson {
    QByteArray key;
    QString lastName;
    QString firstName;
    QString patronymicName;
    int group = 0; ///< for electrical safety, 0 for none
    QString role;
    QString login;     ///< empty for most
    bool gone = false; ///< deleted_: has left, but occurs in old records

    QString shortName() const; ///< surname and initials
    QString fullName() const;
    QString nameWithGroup() const;
};

/// One substation with its bays.
struct DemoSubstation {
    QByteArray key;
    QString name;
    QString voltage;
    int department = 0;
    QVector<QPair<QByteArray, QString>> bays; ///< key, name
};

/// One line between two substations; the same substation twice for a line that only begins here.
struct DemoLine {
    QByteArray key;
    QString name;
    QString voltage;
    int from = 0;
    int to = 0;
};

/// One department and the equipment of its dispatchers.
struct DemoDepartment {
    QByteArray key;
    QString name;
    QByteArray parentKey; ///< empty for most
    int organization = 0;
    QVector<DemoPerson> people; ///< the first \a onShift of them work in shifts
    int onShift = 0;
    QVector<int> substations;
};

struct DemoOrganization {
    QByteArray key;
    QString name;
    QByteArray typeKey;
};

/// The invented network of network.txt: organizations, departments, people, substations, lines, bays. None
/// of them is real.
class DemoNetwork
{
public:
    enum DepartmentIndex { Ods, Cds, Zarechnaya, Lugovaya, Plant, DepartmentCount };

    DemoNetwork();

    /// Writes the reference tables: types, organizations, departments, logins, workers, roles, timetables,
    /// equipment. The shift of a timetable that is next at \a now is the first of its rows.
    void write(DemoWriter* writer, qint64 now) const;

    const DemoDepartment& department(int index) const { return m_departments.at(index); }
    const DemoOrganization& organizationOf(int department) const;
    const QVector<DemoOrganization>& organizations() const { return m_organizations; }
    const QVector<DemoSubstation>& substations() const { return m_substations; }
    const QVector<DemoLine>& lines() const { return m_lines; }
    /// The person with a login; who works in several departments is that of the first. Null if there is none.
    const DemoPerson* findPerson(const QString& login) const;
    /// The same; aborts the program if there is none.
    const DemoPerson& person(const QString& login) const;
    /// The key for a shown name (a person in any form, equipment, a department, an organization), or empty.
    QByteArray keyOf(const QString& shown) const { return m_keys.value(shown); }
    QByteArray orgTypeKey(const QString& name) const;
    QByteArray departmentKey(const QString& name) const;

private:
    void addOrganization(const DemoText::Line& line);
    void addDepartment(const DemoText::Line& line);
    void addPerson(const DemoText::Line& line);
    void addSubstation(const DemoText::Line& line);
    void addOperated(const DemoText::Line& line);
    void addLine(const DemoText::Line& line);
    /// The index of the department or substation of this name; aborts the program if there is none.
    int departmentOf(const QString& name, const DemoText::Line& line) const;
    int substationOf(const QString& name, const DemoText::Line& line) const;
    void makeBays(const QStringList& common);
    void index();

    QStringList m_orgTypes;
    QVector<DemoOrganization> m_organizations;
    QVector<DemoDepartment> m_departments;
    QVector<DemoSubstation> m_substations;
    QVector<DemoLine> m_lines;
    QHash<QString, QByteArray> m_keys;
};
