#include "DemoFiller.h"

#include "DemoNetwork.h"
#include "HtmlParser.h"

#include <QDateTime>

namespace
{
constexpr int minute = 60;
constexpr int hour = 3600;

QString shown(qint64 time, const QString& format)
{
    return QDateTime::fromSecsSinceEpoch(time).toString(format);
}
} // namespace

/// Substation, bay and line that belong together within one record.
struct DemoFiller::Place {
    const DemoSubstation* substation;
    const DemoLine* line;
};

DemoFiller::DemoFiller(const DemoNetwork& network, quint32 seed) : m_network(network), m_random(seed) {}

QString DemoFiller::sample(const QString& notation)
{
    if (!notation.startsWith(QLatin1Char('#')))
        return notation;
    const int dots = notation.indexOf(QLatin1String(".."));
    const int comma = notation.indexOf(QLatin1Char(','), dots);
    const int from = notation.mid(1, dots - 1).toInt();
    const int to = (comma < 0 ? notation.mid(dots + 2) : notation.mid(dots + 2, comma - dots - 2)).toInt();
    const QString whole = QString::number(number(from, to + 1));
    return comma < 0 ? whole : QStringLiteral("%1,%2").arg(whole).arg(number(0, 10));
}

QString DemoFiller::moment(const QString& label, const QString& format, qint64 time)
{
    const QString lower = label.toLower();
    qint64 shift = 0;
    if (lower.contains(QStringLiteral("срок")) || lower.endsWith(QStringLiteral("до")))
        shift = number(2, 30) * hour;
    else if (lower == QStringLiteral("прибытие"))
        shift = number(20, 70) * minute;
    const bool toTheHour = shift >= hour;
    return shown(toTheHour ? (time + shift) / hour * hour : time + shift, format);
}

QString DemoFiller::interval(const QString& label, const Scene& scene)
{
    qint64 from = scene.shiftStart;
    qint64 to = scene.shiftEnd;
    if (label != QStringLiteral("Период смены")) {
        from = scene.time / hour * hour + number(1, 20) * hour;
        to = from + number(2, 10) * hour;
    }
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
    return QStringLiteral("с %1 по %2").arg(shown(from, format), shown(to, format));
}

const DemoPerson& DemoFiller::somebody(const Scene& scene, const QString& label)
{
    static const QStringList own{QStringLiteral("Диспетчер"), QStringLiteral("Старший смены"),
                                 QStringLiteral("Сдал"),      QStringLiteral("Состав смены"),
                                 QStringLiteral("Проверил"),  QStringLiteral("Дежурный")};
    if (own.contains(label))
        return *scene.crew.first();
    const QVector<DemoPerson>& people = m_network.department(scene.department).people;
    for (;;) {
        const DemoPerson& person = pick(people);
        if (!person.gone && (people.size() < 2 || person.key != scene.crew.first()->key))
            return person;
    }
}

QString DemoFiller::value(const std::string& type, const QString& label, const QStringList& choices,
                          const QString& format, const DemoTemplate& record, const Scene& scene,
                          const Place& place)
{
    if (type == "text" || type == "signalName" || type == "signalNum")
        return sample(pick(record.samples.value(label).toVector()));
    if (type == "list")
        return pick(choices.toVector());
    if (type == "datetime")
        return moment(label, format, scene.time);
    if (type == "interval")
        return interval(label, scene);
    if (type == "baseVoltage")
        return place.substation->voltage;
    if (type == "substation")
        return place.substation->name;
    if (type == "line")
        return place.line->name;
    if (type == "equipmentName")
        return pick(place.substation->bays).second;
    if (type == "equipmentPath")
        return place.substation->name + QStringLiteral(" / ") + pick(place.substation->bays).second;
    if (type == "department")
        return m_network.department(scene.department).name;
    if (type == "organization")
        return label == QStringLiteral("Организация") && !record.flags.isEmpty()
                   ? m_network.organizationOf(scene.department).name
                   : pick(m_network.organizations()).name;
    const DemoPerson& person = somebody(scene, label);
    if (type == "employee_fio")
        return person.fullName();
    if (type == "employee_fio_role")
        return QStringLiteral("%1, %2").arg(person.shortName(), person.role.toLower());
    if (type == "employee_fio_group" || type == "shift_workers_groups")
        return person.nameWithGroup();
    if (type == "employee_fio_dep_org")
        return QStringLiteral("%1, %2, %3")
            .arg(person.shortName(), m_network.department(scene.department).name,
                 m_network.organizationOf(scene.department).name);
    if (type == "shift_workers")
        return person.shortName();
    qFatal("The demo has no values for parameters of the kind %s", type.c_str());
}

std::string DemoFiller::fill(const DemoTemplate& record, const Scene& scene, const Values& values)
{
    HtmlParser parser(record.html);
    const int substation = pick(m_network.department(scene.department).substations);
    QVector<const DemoLine*> lines;
    for (const DemoLine& line : m_network.lines())
        if (line.from == substation || line.to == substation)
            lines.append(&line);
    Place place{&m_network.substations().at(substation), pick(lines)};

    Values told = values;
    for (unsigned i = 0; i < parser.countParameters(); ++i) {
        const std::string type = parser.propertyNameValue(i);
        const QString label = QString::fromStdString(parser.propertyValue(i, "locname"));
        QStringList choices;
        for (const std::string& choice : HtmlParser::listValues(parser.propertyValue(i, "list")))
            choices.append(QString::fromStdString(choice));
        const QString format = QString::fromStdString(parser.propertyValue(i, "format"));
        QString text = value(type, label, choices, format, record, scene, place);
        if (parser.isExistProperty(i, "optional") && chance(25))
            text.clear();
        for (int t = 0; t < told.size(); ++t)
            if (told[t].first == label) {
                text = told.takeAt(t).second;
                break;
            }
        parser.setDisplayText(i, text.toStdString());
        for (const DemoSubstation& other : m_network.substations())
            if (text == other.name)
                place.substation = &other; // what follows speaks of this one
        const QString bay = place.substation->name + QStringLiteral(" / ") + text;
        const QByteArray key =
            m_network.keyOf(type == "equipmentName" ? bay : text.section(QLatin1Char(','), 0, 0));
        if (!key.isEmpty() && type != "text" && type != "list")
            parser.setPropertyData(i, key.toStdString());
    }
    if (!told.isEmpty())
        qFatal("\"%s\" has no parameter \"%s\"", qPrintable(record.name), qPrintable(told.first().first));
    return parser.readyHtml(true);
}
