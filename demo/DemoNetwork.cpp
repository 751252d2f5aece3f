#include "DemoNetwork.h"

#include "DemoKey.h"

#include <QRegularExpression>

namespace
{
QString initial(const QString& name)
{
    return name.isEmpty() ? QString() : QStringLiteral(" %1.").arg(name.at(0));
}

QString roman(int group)
{
    static const QStringList numbers{QStringLiteral("I"), QStringLiteral("II"), QStringLiteral("III"),
                                     QStringLiteral("IV"), QStringLiteral("V")};
    return numbers.value(group - 1, QString::number(group));
}

/// The place of the thing with this key; the line must name one.
template <class Things>
int indexOf(const Things& things, const QByteArray& key, const QString& name, const DemoText::Line& line)
{
    for (int i = 0; i < things.size(); ++i)
        if (things.at(i).key == key)
            return i;
    line.fail(QStringLiteral("nothing above has the name \"%1\"").arg(name));
}

QByteArray organizationKey(const QString& name)
{
    return demoKey(QStringLiteral("organization ") + name);
}

QByteArray substationKey(const QString& name)
{
    return demoKey(QStringLiteral("substation ") + name);
}

QString kilovolts(const QString& voltage)
{
    return QStringLiteral("%1 кВ").arg(voltage);
}
} // namespace

QString DemoPerson::shortName() const
{
    return lastName + initial(firstName) + initial(patronymicName);
}

QString DemoPerson::fullName() const
{
    return QStringList{lastName, firstName, patronymicName}.join(QLatin1Char(' '));
}

QString DemoPerson::nameWithGroup() const
{
    return group > 0 ? shortName() + QStringLiteral(" гр.") + roman(group) : shortName();
}

DemoNetwork::DemoNetwork()
{
    for (const DemoText::Line& line : DemoText::lines(QStringLiteral("network.txt"))) {
        if (line.word == QLatin1String("type"))
            m_orgTypes.append(line.value);
        else if (line.word == QLatin1String("organization"))
            addOrganization(line);
        else if (line.word == QLatin1String("department"))
            addDepartment(line);
        else if (line.word == QLatin1String("person") || line.word == QLatin1String("former"))
            addPerson(line);
        else if (line.word == QLatin1String("substation"))
            addSubstation(line);
        else if (line.word == QLatin1String("operates"))
            addOperated(line);
        else if (line.word == QLatin1String("line"))
            addLine(line);
        else if (line.word == QLatin1String("bays"))
            makeBays(line.values());
        else
            line.failAtWord();
    }
    if (m_departments.size() != DepartmentCount)
        qFatal("The demo's network has other departments than the program");
    index();
}

void DemoNetwork::addOrganization(const DemoText::Line& line)
{
    const QStringList values = line.values(2);
    if (!m_orgTypes.contains(values[1]))
        line.fail(QStringLiteral("unknown type \"%1\"").arg(values[1]));
    m_organizations.append({organizationKey(values[0]), values[0], orgTypeKey(values[1])});
}

void DemoNetwork::addDepartment(const DemoText::Line& line)
{
    const QStringList values = line.values(4);
    DemoDepartment department;
    department.key = departmentKey(values[0]);
    department.name = values[0];
    department.organization = indexOf(m_organizations, organizationKey(values[1]), values[1], line);
    if (!values[2].isEmpty())
        department.parentKey = m_departments[departmentOf(values[2], line)].key;
    department.onShift = values[3].toInt();
    m_departments.append(department);
}

void DemoNetwork::addPerson(const DemoText::Line& line)
{
    const QStringList values = line.values(4);
    const QStringList names = values[0].split(QLatin1Char(' '));
    if (names.size() != 3 || m_departments.isEmpty())
        line.fail(QStringLiteral("a person has three names and a department"));
    DemoPerson person;
    person.gone = line.word == QLatin1String("former");
    person.lastName = names[0];
    person.firstName = names[1];
    person.patronymicName = names[2];
    person.group = values[1].toInt();
    person.role = values[2];
    person.login = values[3];
    person.key = demoKey(QStringLiteral("worker %1 %2").arg(m_departments.size() - 1).arg(values[0]));
    m_departments.last().people.append(person);
}

void DemoNetwork::addSubstation(const DemoText::Line& line)
{
    const QStringList values = line.values(3);
    DemoSubstation substation;
    substation.voltage = kilovolts(values[1]);
    substation.name = values[0].startsWith(QStringLiteral("РП"))
                          ? values[0]
                          : QStringLiteral("ПС %1 %2").arg(substation.voltage, values[0]);
    substation.key = substationKey(values[0]);
    substation.department = departmentOf(values[2], line);
    m_substations.append(substation);
}

void DemoNetwork::addOperated(const DemoText::Line& line)
{
    const QStringList values = line.values();
    DemoDepartment& department = m_departments[departmentOf(values[0], line)];
    for (const QString& name : values.mid(1))
        department.substations.append(substationOf(name, line));
}

void DemoNetwork::addLine(const DemoText::Line& line)
{
    const QStringList values = line.values(4);
    m_lines.append({demoKey(QStringLiteral("line ") + values[0]), values[0], kilovolts(values[1]),
                    substationOf(values[2], line), substationOf(values[3], line)});
}

int DemoNetwork::departmentOf(const QString& name, const DemoText::Line& line) const
{
    return indexOf(m_departments, departmentKey(name), name, line);
}

int DemoNetwork::substationOf(const QString& name, const DemoText::Line& line) const
{
    return indexOf(m_substations, substationKey(name), name, line);
}

void DemoNetwork::makeBays(const QStringList& common)
{
    constexpr int baysOfSubstation = 10;
    static const QRegularExpression kind(QStringLiteral("^(ПС )?(\\d+ кВ )?"));
    const auto shortOf = [](QString name) { return name.remove(kind); };
    for (int s = 0; s < m_substations.size(); ++s) {
        DemoSubstation& substation = m_substations[s];
        QStringList names;
        for (const DemoLine& line : qAsConst(m_lines))
            if (line.from == s || line.to == s) {
                const bool feeder = line.from == line.to;
                const int other = line.from == s ? line.to : line.from;
                const QString circuit = line.name.contains(QStringLiteral(" II цепь")) ? QStringLiteral(" II")
                                        : line.name.contains(QStringLiteral(" I цепь")) ? QStringLiteral(" I")
                                                                                        : QString();
                names << QStringLiteral("В-%1 %2").arg(line.voltage.section(QLatin1Char(' '), 0, 0),
                                                       feeder
                                                           ? line.name.section(QStringLiteral(" ПС"), 0, 0)
                                                           : shortOf(m_substations.at(other).name) + circuit);
            }
        names << common;
        for (const QString& name : names.mid(0, baysOfSubstation))
            substation.bays.append({demoKey(QStringLiteral("bay %1 %2").arg(substation.name, name)), name});
    }
}

void DemoNetwork::index()
{
    for (const DemoDepartment& department : qAsConst(m_departments)) {
        m_keys.insert(department.name, department.key);
        for (const DemoPerson& person : department.people)
            for (const QString& form : {person.shortName(), person.fullName(), person.nameWithGroup()})
                if (!m_keys.contains(form))
                    m_keys.insert(form, person.key);
    }
    for (const DemoOrganization& organization : qAsConst(m_organizations))
        m_keys.insert(organization.name, organization.key);
    for (const DemoSubstation& substation : qAsConst(m_substations)) {
        m_keys.insert(substation.name, substation.key);
        for (const auto& [key, name] : substation.bays)
            m_keys.insert(substation.name + QStringLiteral(" / ") + name, key);
    }
    for (const DemoLine& line : qAsConst(m_lines))
        m_keys.insert(line.name, line.key);
}

const DemoOrganization& DemoNetwork::organizationOf(int department) const
{
    return m_organizations.at(m_departments.at(department).organization);
}

const DemoPerson* DemoNetwork::findPerson(const QString& login) const
{
    for (const DemoDepartment& department : m_departments)
        for (const DemoPerson& person : department.people)
            if (person.login == login)
                return &person;
    return nullptr;
}

const DemoPerson& DemoNetwork::person(const QString& login) const
{
    const DemoPerson* person = findPerson(login);
    if (!person)
        qFatal("The demo has no login %s", qPrintable(login));
    return *person;
}

QByteArray DemoNetwork::orgTypeKey(const QString& name) const
{
    return demoKey(QStringLiteral("type ") + name);
}

QByteArray DemoNetwork::departmentKey(const QString& name) const
{
    return demoKey(QStringLiteral("department ") + name);
}
