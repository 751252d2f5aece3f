#include "DemoClock.h"
#include "DemoKey.h"
#include "DemoNetwork.h"
#include "DemoStore.h"
#include "DemoWriter.h"

#include <QDateTime>
#include <QSet>

namespace
{
constexpr int hour = 3600;

void writeUser(DemoWriter* writer, const QString& login, const QString& name)
{
    writer->insert("Users", demoKey(QStringLiteral("user ") + login),
                   {{"login", login}, {"name_", name}, {"deleted_", false}});
}

void writeRights(DemoWriter* writer, const QString& login, const QStringList& rights)
{
    const QByteArray user = demoKey(QStringLiteral("user ") + login);
    for (const QString& right : rights)
        writer->insert("UserRights", demoKey(QStringLiteral("right %1 %2").arg(login, right)),
                       {{"UserKey", user}, {"rightName", right}});
}

void writePeople(DemoWriter* writer, const DemoDepartment& department)
{
    QSet<QString> roles;
    for (const DemoPerson& person : department.people) {
        const QByteArray user =
            person.login.isEmpty() ? QByteArray() : demoKey(QStringLiteral("user ") + person.login);
        writer->insert("Workers", person.key,
                       {{"UserKey", user.isEmpty() ? QVariant() : user},
                        {"DepartmentKey", department.key},
                        {"firstName", person.firstName},
                        {"lastName", person.lastName},
                        {"patronymicName", person.patronymicName},
                        {"safetyGroup", person.group},
                        {"deleted_", person.gone}});
        const QByteArray role = demoKey(QStringLiteral("role %1 %2").arg(department.name, person.role));
        if (!roles.contains(person.role))
            writer->insert("Roles", role, {{"DepartmentKey", department.key}, {"name_", person.role}});
        roles.insert(person.role);
        writer->insert("WorkerRoles", demoKey(QStringLiteral("role of ") + QString::fromLatin1(person.key)),
                       {{"RoleKey", role}, {"WorkerKey", person.key}});
    }
}

/// The opening dialog lists the rows by their keys and proposes the first: that is the shift that begins at
/// the next change, at \a nextStart o'clock.
void writeTimetable(DemoWriter* writer, const DemoDepartment& department, int nextStart)
{
    int row = 0;
    const auto shift = [&](const QString& name, int start, int end) {
        writer->insert("Shifts",
                       demoKey(QStringLiteral("timetable %1").arg(department.name)).left(31) +
                           QByteArray::number(row++),
                       {{"DepartmentKey", department.key},
                        {"name_", name},
                        {"startTime", start * hour},
                        {"endTime", end * hour}});
    };
    const auto day = [&] { shift(QStringLiteral("Дневная смена"), 8, 20); };
    const auto night = [&] { shift(QStringLiteral("Ночная смена"), 20, 8); };
    if (nextStart == 20) {
        night();
        day();
    } else {
        day();
        night();
    }
    shift(QStringLiteral("Усиленное дежурство"), 20, 20);
}
} // namespace

void DemoNetwork::write(DemoWriter* writer, qint64 now) const
{
    const int nextStart = QDateTime::fromSecsSinceEpoch(DemoClock::nextChange(now)).time().hour();
    for (const QString& type : m_orgTypes)
        writer->insert("OrgTypes", orgTypeKey(type), {{"name_", type}});
    for (const DemoOrganization& organization : m_organizations)
        writer->insert("Organizations", organization.key,
                       {{"OrgTypeKey", organization.typeKey}, {"name_", organization.name}});
    for (const DemoDepartment& department : m_departments)
        writer->insert("Departments", department.key,
                       {{"OrganizationKey", m_organizations[department.organization].key},
                        {"ParentKey", department.parentKey},
                        {"name_", department.name}});

    QSet<QString> logins;
    for (const DemoDepartment& department : m_departments) {
        for (const DemoPerson& person : department.people)
            if (!person.login.isEmpty() && !logins.contains(person.login)) {
                logins.insert(person.login);
                writeUser(writer, person.login, person.fullName());
            }
        writePeople(writer, department);
        writeTimetable(writer, department, nextStart);
    }
    writeUser(writer, DemoStore::loginWithoutWorker(), QStringLiteral("Стажёр без назначения"));
    writeRights(writer, DemoStore::administrator(),
                {QStringLiteral("ADMINISTRATOR"), QStringLiteral("ADMINISTRATOR_OPERLOG_LOCAL"),
                 QStringLiteral("SQL_EXEC"), QStringLiteral("SQL_REQUEST"), QStringLiteral("TBL_REQUEST"),
                 QStringLiteral("TBL_UPDATE")});
    writeRights(writer, DemoStore::localAdministrator(), {QStringLiteral("ADMINISTRATOR_OPERLOG_LOCAL")});

    for (const DemoSubstation& substation : m_substations) {
        const QByteArray& department = m_departments[substation.department].key;
        writer->insert("Equipment", substation.key,
                       {{"DepartmentKey", department},
                        {"kind", QStringLiteral("substation")},
                        {"name_", substation.name},
                        {"voltage", substation.voltage}});
        for (const auto& [key, name] : substation.bays)
            writer->insert("Equipment", key,
                           {{"ParentKey", substation.key},
                            {"DepartmentKey", department},
                            {"kind", QStringLiteral("bay")},
                            {"name_", name},
                            {"voltage", substation.voltage}});
    }
    for (const DemoLine& line : m_lines)
        writer->insert("Equipment", line.key,
                       {{"DepartmentKey", m_departments[m_substations[line.from].department].key},
                        {"kind", QStringLiteral("line")},
                        {"name_", line.name},
                        {"voltage", line.voltage}});
}
