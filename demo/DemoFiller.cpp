#include "DemoFiller.h"

#include "DemoNetwork.h"
#include "HtmlParser.h"

#include <functional>
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
    QString voltage; ///< of the item named last
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

QPair<const DemoPerson*, int> DemoFiller::somebody(const Scene& scene, const std::string& type,
                                                   const QString& label)
{
    static const QStringList own{QStringLiteral("Диспетчер"), QStringLiteral("Старший смены"),
                                 QStringLiteral("Сдал"),      QStringLiteral("Состав смены"),
                                 QStringLiteral("Проверил"),  QStringLiteral("Дежурный"),
                                 QStringLiteral("Продлил"),   QStringLiteral("Разрешил")};
    if (own.contains(label))
        return {scene.crew.first(), scene.department};
    const bool grid = scene.department != DemoNetwork::Ods && scene.department != DemoNetwork::Plant;
    QVector<QPair<const DemoPerson*, int>> candidates;
    const auto offer = [&](int department, const std::function<bool(const DemoPerson&)>& fits) {
        for (const DemoPerson& person : m_network.department(department).people)
            if (!person.gone && person.key != scene.crew.first()->key && fits(person))
                candidates.append({&person, department});
    };
    if (type == "employee_fio_dep_org") {
        // The dispatcher at the other end of the line: for the network its dispatching centre, for the
        // others the network.
        offer(grid ? DemoNetwork::Ods : DemoNetwork::Cds,
              [](const DemoPerson& person) { return person.role.contains(QStringLiteral("испетчер")); });
    } else if (type == "employee_fio_group" && label != QStringLiteral("Принял") && grid) {
        // Work on site is done by the crews and at the substations, for records of every department.
        for (int department : {DemoNetwork::Cds, DemoNetwork::Zarechnaya, DemoNetwork::Lugovaya})
            offer(department, [](const DemoPerson& person) {
                return person.role.contains(QStringLiteral("ОВБ")) ||
                       person.role.contains(QStringLiteral("подстанции"));
            });
    } else {
        offer(scene.department, [](const DemoPerson&) { return true; });
    }
    return pick(candidates);
}

QString DemoFiller::bay(const DemoSubstation& substation, const QString& label)
{
    const QString beginning =
        label.startsWith(QStringLiteral("Трансформатор")) || label.startsWith(QStringLiteral("Перегруженное"))
            ? QStringLiteral("Т-")
            : QStringLiteral("В-");
    const bool section = label.startsWith(QStringLiteral("Секция"));
    QVector<QString> fitting;
    for (const auto& [key, name] : substation.bays)
        if (section ? name.contains(QStringLiteral("секция")) : name.startsWith(beginning))
            fitting.append(name);
    return fitting.isEmpty() ? pick(substation.bays).second : pick(fitting);
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
        return place.voltage;
    if (type == "substation")
        return place.substation->name;
    if (type == "line")
        return place.line->name;
    if (type == "equipmentName")
        return bay(*place.substation, label);
    if (type == "equipmentPath")
        return place.substation->name + QStringLiteral(" / ") + pick(place.substation->bays).second;
    if (type == "department")
        return m_network.department(scene.department).name;
    if (type == "organization")
        return label == QStringLiteral("Организация") ? m_network.organizationOf(scene.department).name
                                                      : pick(m_network.organizations()).name;
    const auto [person, department] = somebody(scene, type, label);
    if (type == "employee_fio")
        return person->fullName();
    if (type == "employee_fio_role")
        return QStringLiteral("%1, %2").arg(person->shortName(),
                                            person->role.left(1).toLower() + person->role.mid(1));
    if (type == "employee_fio_group" || type == "shift_workers_groups")
        return person->nameWithGroup();
    if (type == "employee_fio_dep_org")
        return QStringLiteral("%1, %2, %3")
            .arg(person->shortName(), m_network.department(department).name,
                 m_network.organizationOf(department).name);
    if (type == "shift_workers")
        return person->shortName();
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
    Place place{&m_network.substations().at(substation), pick(lines), QString()};
    place.voltage = place.substation->voltage;

    Values unused = values;
    for (unsigned i = 0; i < parser.countParameters(); ++i) {
        const std::string type = parser.propertyNameValue(i);
        const QString label = QString::fromStdString(parser.propertyValue(i, "locname"));
        QStringList choices;
        for (const std::string& choice : HtmlParser::listValues(parser.propertyValue(i, "list")))
            choices.append(QString::fromStdString(choice));
        const QString format = QString::fromStdString(parser.propertyValue(i, "format"));
        QString text = value(type, label, choices, format, record, scene, place);
        if (parser.isExistProperty(i, "optional") && chance(15))
            text.clear();
        for (int t = 0; t < unused.size(); ++t)
            if (unused[t].first == label) {
                text = unused.takeAt(t).second;
                break;
            }
        parser.setValueText(i, text.toStdString());
        for (const DemoSubstation& other : m_network.substations())
            if (text == other.name) {
                place.substation = &other; // the rest of the record is about this one
                place.voltage = other.voltage;
            }
        if (type == "equipmentName" && text.endsWith(QStringLiteral("10 кВ")))
            place.voltage = QStringLiteral("10 кВ");
        const QString bay = place.substation->name + QStringLiteral(" / ") + text;
        const QByteArray key =
            m_network.keyOf(type == "equipmentName" ? bay : text.section(QLatin1Char(','), 0, 0));
        if (!key.isEmpty() && type != "text" && type != "list")
            parser.setPropertyData(i, key.toStdString());
    }
    if (!unused.isEmpty())
        qFatal("\"%s\" has no parameter \"%s\"", qPrintable(record.name), qPrintable(unused.first().first));
    return parser.readyHtml(true);
}
