#include "DemoNetwork.h"

#include "DemoKey.h"
#include "DemoWriter.h"

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

/// Surname, first name, patronymic, group, role, login; "-" for none, a "!" before the surname: has left.
const QVector<QStringList>& people()
{
    static const QVector<QStringList> lists = [] {
        const QVector<QString> texts{
            // The dispatching centre
            QStringLiteral("Северов Максим Юрьевич 5 Старший_диспетчер severov;"
                           "Лугин Олег Романович 5 Диспетчер -;"
                           "Дубова Вера Степановна 5 Старший_диспетчер -;"
                           "Рябинин Пётр Ильич 4 Диспетчер -;"
                           "Осинин Кирилл Львович 5 Старший_диспетчер -;"
                           "Вишнёв Егор Тимофеевич 4 Диспетчер -;"
                           "Снегина Мария Павловна 4 Инженер_по_режимам snegina;"
                           "Холмов Денис Андреевич 5 Начальник_службы -"),
            // The dispatching service of the network
            QStringLiteral("Озеров Андрей Николаевич 5 Старший_диспетчер ozerov;"
                           "Рощин Илья Викторович 4 Диспетчер roshchin;"
                           "Горин Борис Фёдорович 5 Старший_диспетчер gorin;"
                           "Ручьёва Анна Дмитриевна 4 Диспетчер -;"
                           "Ключников Савелий Петрович 5 Старший_диспетчер -;"
                           "Заводнов Яков Миронович 4 Диспетчер -;"
                           "Полозов Никита Глебович 5 Старший_диспетчер -;"
                           "Криницына Ольга Борисовна 4 Диспетчер -;"
                           "Клёнов Степан Аркадьевич 5 Начальник_ЦДС klenov;"
                           "Листов Глеб Олегович 4 Инженер-технолог listov;"
                           "Полянский Роман Игоревич 3 Инженер_АСУ admin;"
                           "Туманов Иван Кузьмич 4 Старший_ОВБ -;"
                           "Мохов Дмитрий Антонович 4 Электромонтёр_ОВБ -;"
                           "!Берегов Тимофей Ильич 5 Старший_диспетчер beregov"),
            // The two groups of the network
            QStringLiteral("Заречнов Фёдор Максимович 5 Старший_диспетчер zarechnov;"
                           "Ивушкин Роман Савельевич 4 Диспетчер -;"
                           "Мостовая Елена Яковлевна 4 Диспетчер -;"
                           "Пристанев Антон Егорович 4 Диспетчер -;"
                           "Озеров Андрей Николаевич 5 Диспетчер ozerov;"
                           "Ветров Павел Сергеевич 4 Дежурный_подстанции -;"
                           "Кирпичёв Аркадий Ильич 4 Дежурный_подстанции -;"
                           "Родников Лев Денисович 3 Электромонтёр_ОВБ -"),
            QStringLiteral("Луговой Матвей Петрович 5 Старший_диспетчер lugovoy;"
                           "Колосова Дарья Игоревна 4 Диспетчер -;"
                           "Стогов Виктор Юрьевич 4 Диспетчер -;"
                           "Ольховой Семён Андреевич 4 Диспетчер -;"
                           "Мельников Захар Борисович 4 Дежурный_подстанции -;"
                           "Выселков Юрий Львович 3 Электромонтёр_ОВБ -;"
                           "Травин Игнат Олегович 4 Старший_ОВБ -"),
            // The works
            QStringLiteral("Гранитов Артём Викторович 4 Дежурный_энергетик granitov;"
                           "Кварцева Инна Сергеевна 4 Дежурный_энергетик -;"
                           "Базальтов Эдуард Ильич 4 Дежурный_энергетик -;"
                           "Песков Родион Фёдорович 3 Электромонтёр_цеха -;"
                           "Щебнев Марк Антонович 5 Главный_энергетик -"),
        };
        QVector<QStringList> departments;
        for (const QString& text : texts)
            departments.append(text.split(QLatin1Char(';')));
        return departments;
    }();
    return lists;
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
    const QString center = QStringLiteral("Диспетчерский центр");
    const QString networks = QStringLiteral("Электросетевая организация");
    const QString consumer = QStringLiteral("Промышленный потребитель");
    const auto organization = [this](const QString& name, const QString& type) {
        m_organizations.append({demoKey(QStringLiteral("organization ") + name), name, orgTypeKey(type)});
    };
    organization(QStringLiteral("ДЦ «Северная дуга»"), center);
    organization(QStringLiteral("Электросети «Ключевой край»"), networks);
    organization(QStringLiteral("Завод «Гранит-Юг»"), consumer);

    const auto department = [this](const QString& name, int owner, int onShift, QVector<int> substations) {
        DemoDepartment added;
        added.key = departmentKey(name);
        added.name = name;
        added.organization = owner;
        added.onShift = onShift;
        added.substations = std::move(substations);
        m_departments.append(added);
    };
    department(QStringLiteral("ОДС"), 0, 6, {0, 1, 2, 3, 5});
    department(QStringLiteral("ЦДС"), 1, 8, {0, 2, 3, 4, 5, 6, 7, 8});
    department(QStringLiteral("Заречная диспетчерская группа"), 1, 4, {2, 4, 9, 10});
    department(QStringLiteral("Луговая диспетчерская группа"), 1, 4, {3, 5, 7, 8});
    department(QStringLiteral("Служба главного энергетика"), 2, 3, {11, 4});
    makePeople();
    makeSubstations();
    makeLines();
    makeBays();
    index();
}

void DemoNetwork::makePeople()
{
    for (int d = 0; d < m_departments.size(); ++d)
        for (const QString& line : people().at(d)) {
            QStringList words = line.split(QLatin1Char(' '));
            DemoPerson person;
            person.gone = words[0].startsWith(QLatin1Char('!'));
            person.lastName = person.gone ? words[0].mid(1) : words[0];
            person.firstName = words[1];
            person.patronymicName = words[2];
            person.group = words[3].toInt();
            person.role = words[4].replace(QLatin1Char('_'), QLatin1Char(' '));
            person.login = words[5] == QLatin1String("-") ? QString() : words[5];
            person.key = demoKey(QStringLiteral("worker %1 %2").arg(d).arg(person.fullName()));
            m_departments[d].people.append(person);
        }
}

void DemoNetwork::makeSubstations()
{
    const auto add = [this](const char* voltage, const QString& name, int department) {
        DemoSubstation substation;
        substation.voltage = QStringLiteral("%1 кВ").arg(QLatin1String(voltage));
        substation.name = name.startsWith(QStringLiteral("РП"))
                              ? name
                              : QStringLiteral("ПС %1 %2").arg(substation.voltage, name);
        substation.key = demoKey(QStringLiteral("substation ") + name);
        substation.department = department;
        m_substations.append(substation);
    };
    add("220", QStringLiteral("Полевая"), Ods);
    add("220", QStringLiteral("Перевальная"), Ods);
    add("110", QStringLiteral("Заречная"), Zarechnaya);
    add("110", QStringLiteral("Луговая"), Lugovaya);
    add("110", QStringLiteral("Кирпичная"), Zarechnaya);
    add("110", QStringLiteral("Мельничная"), Cds);
    add("110", QStringLiteral("Родниковая"), Cds);
    add("35", QStringLiteral("Ольховка"), Lugovaya);
    add("35", QStringLiteral("Выселки"), Lugovaya);
    add("10", QStringLiteral("РП-4"), Zarechnaya);
    add("10", QStringLiteral("РП-11"), Zarechnaya);
    add("35", QStringLiteral("Гранитная"), Plant);
}

void DemoNetwork::makeLines()
{
    const auto add = [this](const QString& name, const char* voltage, int from, int to) {
        m_lines.append({demoKey(QStringLiteral("line ") + name), name,
                        QStringLiteral("%1 кВ").arg(QLatin1String(voltage)), from, to});
    };
    add(QStringLiteral("ВЛ 220 кВ Полевая – Перевальная"), "220", 0, 1);
    add(QStringLiteral("ВЛ 110 кВ Полевая – Заречная I цепь"), "110", 0, 2);
    add(QStringLiteral("ВЛ 110 кВ Полевая – Заречная II цепь"), "110", 0, 2);
    add(QStringLiteral("ВЛ 110 кВ Полевая – Луговая"), "110", 0, 3);
    add(QStringLiteral("ВЛ 110 кВ Заречная – Кирпичная"), "110", 2, 4);
    add(QStringLiteral("ВЛ 110 кВ Луговая – Мельничная"), "110", 3, 5);
    add(QStringLiteral("ВЛ 110 кВ Перевальная – Мельничная"), "110", 1, 5);
    add(QStringLiteral("ВЛ 110 кВ Мельничная – Родниковая"), "110", 5, 6);
    add(QStringLiteral("ВЛ 110 кВ Родниковая – Кирпичная"), "110", 6, 4);
    add(QStringLiteral("ВЛ 35 кВ Луговая – Ольховка"), "35", 3, 7);
    add(QStringLiteral("ВЛ 35 кВ Ольховка – Выселки"), "35", 7, 8);
    add(QStringLiteral("ВЛ 35 кВ Кирпичная – Гранитная I цепь"), "35", 4, 11);
    add(QStringLiteral("ВЛ 35 кВ Кирпичная – Гранитная II цепь"), "35", 4, 11);
    add(QStringLiteral("ф. 7 ПС Ольховка"), "10", 7, 7);
    add(QStringLiteral("ф. 12 ПС Ольховка"), "10", 7, 7);
    add(QStringLiteral("ф. 3 ПС Выселки"), "10", 8, 8);
    add(QStringLiteral("КЛ 10 кВ Заречная – РП-4"), "10", 2, 9);
    add(QStringLiteral("КЛ 10 кВ Кирпичная – РП-11"), "10", 4, 10);
}

void DemoNetwork::makeBays()
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
        names << QStringLiteral("Т-1") << QStringLiteral("Т-2") << QStringLiteral("СВ-10")
              << QStringLiteral("1 секция 10 кВ") << QStringLiteral("2 секция 10 кВ")
              << QStringLiteral("ТН-1") << QStringLiteral("ТН-2") << QStringLiteral("В-10 ф. 5")
              << QStringLiteral("В-10 ф. 8") << QStringLiteral("ТСН-1");
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

const DemoPerson& DemoNetwork::person(const QString& login, int department) const
{
    for (const DemoPerson& person : m_departments.at(department).people)
        if (person.login == login)
            return person;
    qFatal("The demo has no login %s in this department", qPrintable(login));
}

const DemoPerson& DemoNetwork::byLastName(const QString& lastName) const
{
    for (const DemoDepartment& department : m_departments)
        for (const DemoPerson& person : department.people)
            if (person.lastName == lastName)
                return person;
    qFatal("The demo has no %s", qPrintable(lastName));
}

QByteArray DemoNetwork::orgTypeKey(const QString& name) const
{
    return demoKey(QStringLiteral("type ") + name);
}

QByteArray DemoNetwork::departmentKey(const QString& name) const
{
    return demoKey(QStringLiteral("department ") + name);
}
