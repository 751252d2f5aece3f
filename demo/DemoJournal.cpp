#include "DemoJournal.h"

#include "DemoKey.h"
#include "DemoText.h"
#include "DemoWriter.h"
#include "HtmlParser.h"

#include <algorithm>

namespace
{
constexpr int minute = 60;

QVariant timeOrNull(qint64 time)
{
    return time > 0 ? QVariant(static_cast<double>(time)) : QVariant();
}

QVariant keyOrNull(const DemoPerson* person)
{
    return person ? QVariant(person->key) : QVariant();
}
} // namespace

DemoFiller::Scene DemoShift::scene(qint64 time, const DemoPerson* author) const
{
    QVector<const DemoPerson*> people{author};
    for (const DemoPerson* person : crew)
        if (person != author)
            people.append(person);
    return {department, time, start, end, people};
}

DemoJournal::DemoJournal(DemoWriter* writer, const DemoNetwork& network, QVector<DemoTemplate> templates)
    : m_writer(writer),
      m_network(network),
      m_templates(std::move(templates)),
      m_remarks(DemoText::list(QStringLiteral("everyday.txt"), QStringLiteral("remarks")).toVector())
{
}

const DemoTemplate& DemoJournal::record(const QString& name) const
{
    for (const DemoTemplate& candidate : m_templates)
        if (candidate.name == name)
            return candidate;
    qFatal("The demo has no template \"%s\"", qPrintable(name));
}

QVector<const DemoTemplate*> DemoJournal::recordsOf(int department) const
{
    const QByteArray type = m_network.organizationOf(department).typeKey;
    QVector<const DemoTemplate*> found;
    for (const DemoTemplate& candidate : m_templates) {
        const bool shiftRecord = candidate.flags.contains(QStringLiteral("open_wshift")) ||
                                 candidate.flags.contains(QStringLiteral("close_wshift"));
        const bool offered =
            candidate.level == DemoTemplate::Common ||
            (candidate.level == DemoTemplate::OrgType && m_network.orgTypeKey(candidate.owner) == type) ||
            (candidate.level == DemoTemplate::Department &&
             candidate.owner == m_network.department(department).name);
        if (offered && !shiftRecord)
            found.append(&candidate);
    }
    return found;
}

QVector<const DemoTemplate*> DemoJournal::everydayRecords(const QString& word) const
{
    QVector<const DemoTemplate*> found;
    for (const QString& name : DemoText::list(QStringLiteral("everyday.txt"), word))
        found.append(&record(name));
    return found;
}

QByteArray DemoJournal::shiftKey(int department, qint64 start)
{
    return demoKey(QStringLiteral("shift %1 %2").arg(department).arg(start));
}

DemoShift DemoJournal::plan(int department, qint64 start, qint64 end, int turn) const
{
    const DemoDepartment& owner = m_network.department(department);
    constexpr int crewSize = 2;
    const int crews = owner.onShift / crewSize;
    const auto crew = [&](int which) {
        QVector<const DemoPerson*> people;
        for (int i = 0; i < crewSize; ++i)
            people.append(&owner.people.at(which % crews * crewSize + i));
        return people;
    };
    DemoShift shift;
    shift.key = shiftKey(department, start);
    shift.department = department;
    shift.start = start;
    shift.end = end;
    shift.crew = crew(turn);
    shift.relief = crew(turn + 1);
    return shift;
}

void DemoJournal::add(const DemoShift& shift)
{
    const QString name = QString::fromLatin1(shift.key);
    m_writer->insert("LogbookWorkshifts", shift.key,
                     {{"DepartmentKey", m_network.department(shift.department).key},
                      {"OpenWorkerKey", shift.crew.first()->key},
                      {"CloseWorkerKey", shift.open ? QVariant() : shift.crew.first()->key},
                      {"createdAt", static_cast<double>(shift.start)},
                      {"startTime", static_cast<double>(shift.start)},
                      {"endTime", static_cast<double>(shift.end)}});
    const auto member = [&](const DemoPerson* person, bool opening) {
        m_writer->insert("LogbookWorkersWorkshift",
                         demoKey(QStringLiteral("crew %1 %2 %3").arg(name, person->fullName()).arg(opening)),
                         {{"WorkshiftKey", shift.key}, {"WorkerKey", person->key}, {"opening", opening}});
    };
    for (const DemoPerson* person : shift.crew)
        member(person, true);
    if (!shift.open)
        for (const DemoPerson* person : shift.relief)
            member(person, false);
}

void DemoJournal::add(const DemoShift& shift, const DemoRecord& record)
{
    std::string mark;
    HtmlParser(record.html).templatePropertyValue("first_mark", mark);
    m_writer->insert("LogbookRecords", record.key,
                     {{"ShiftKey", shift.key},
                      {"WorkerKey", record.author->key},
                      {"VisaWorkerKey", keyOrNull(record.visa)},
                      {"ReceiverWorkerKey", keyOrNull(record.receiver)},
                      {"OriginRecordKey", record.origin.isEmpty() ? QVariant() : record.origin},
                      {"SecondMarkWorkerKey", keyOrNull(record.secondMarkWorker)},
                      {"recordTime", timeOrNull(record.recordTime)},
                      {"eventTime", timeOrNull(record.eventTime)},
                      {"firstMarkTime", timeOrNull(mark.empty() ? 0 : record.eventTime)},
                      {"secondMarkTime", timeOrNull(record.secondMarkTime)},
                      {"executionTime", timeOrNull(record.executionTime)},
                      {"html", QString::fromStdString(record.html)},
                      {"status", static_cast<int>(record.status)},
                      {"direction", static_cast<int>(record.direction)}});
}

void DemoJournal::comment(const QByteArray& record, const DemoPerson& author, qint64 time,
                          const QString& text, qint64 readTime)
{
    m_writer->insert(
        "LogbookComments",
        demoKey(QStringLiteral("comment %1 %2").arg(QString::fromLatin1(record)).arg(++m_comments)),
        {{"WorkerKey", author.key},
         {"RecordKey", record},
         {"commentTime", static_cast<double>(time)},
         {"text_", text},
         {"readedTime", static_cast<double>(readTime)}});
}

void DemoJournal::file(const QByteArray& record, const DemoPerson& author, const QString& name,
                       const QByteArray& content)
{
    m_writer->insert(
        "LogbookFiles", demoKey(QStringLiteral("file %1 %2").arg(QString::fromLatin1(record), name)),
        {{"WorkerKey", author.key}, {"RecordKey", record}, {"fileName", name}, {"fileData", content}});
}

void DemoJournal::opening(const DemoShift& shift, DemoFiller* filler, qint64 time)
{
    static const QStringList names{QStringLiteral("Приём смены диспетчерского центра"),
                                   QStringLiteral("Приём смены"), QStringLiteral("Приём смены"),
                                   QStringLiteral("Приём смены"), QStringLiteral("Приём и сдача смены цеха")};
    DemoFiller::Values values;
    if (shift.department == DemoNetwork::Plant)
        values.append({QStringLiteral("Действие"), QStringLiteral("принята")});
    DemoRecord entry;
    entry.key = demoKey(QStringLiteral("opening ") + QString::fromLatin1(shift.key));
    entry.author = shift.crew.first();
    entry.recordTime = entry.eventTime = time;
    entry.html = filler->fill(record(names.at(shift.department)), shift.scene(time, entry.author), values);
    add(shift, entry);
}

void DemoJournal::closing(const DemoShift& shift, DemoFiller* filler, qint64 time)
{
    const bool plant = shift.department == DemoNetwork::Plant;
    DemoFiller::Values values;
    if (plant)
        values.append({QStringLiteral("Действие"), QStringLiteral("сдана")});
    else
        values.append({QStringLiteral("Принял"), shift.relief.first()->nameWithGroup()});
    DemoRecord entry;
    entry.key = demoKey(QStringLiteral("closing ") + QString::fromLatin1(shift.key));
    entry.author = shift.crew.first();
    entry.recordTime = entry.eventTime = time;
    entry.html = filler->fill(
        record(plant ? QStringLiteral("Приём и сдача смены цеха") : QStringLiteral("Сдача смены")),
        shift.scene(time, entry.author), values);
    add(shift, entry);
}

void DemoJournal::routine(const DemoShift& shift, DemoFiller* filler, int count, qint64 from, qint64 to,
                          const QVector<const DemoTemplate*>& kinds)
{
    if (to <= from)
        return;
    QVector<qint64> times;
    for (int i = 0; i < count; ++i)
        times.append(from + filler->number(0, static_cast<int>(to - from)));
    std::sort(times.begin(), times.end());
    for (int i = 0; i < count; ++i)
        everyday(shift, filler, *filler->pick(kinds), times.at(i), to, i);
}

void DemoJournal::everyday(const DemoShift& shift, DemoFiller* filler, const DemoTemplate& kind, qint64 time,
                           qint64 latest, int number)
{
    const DemoPerson* author = filler->pick(shift.crew);
    const DemoPerson* other = shift.crew.first() == author ? shift.crew.last() : shift.crew.first();
    DemoRecord entry;
    entry.key =
        demoKey(QStringLiteral("record %1 %2 %3").arg(QString::fromLatin1(shift.key)).arg(time).arg(number));
    entry.author = author;
    entry.eventTime = time;
    entry.recordTime = time + filler->number(0, 5) * minute;
    entry.html = filler->fill(kind, shift.scene(time, author));
    const auto later = [&](int from, int to) {
        return std::max(entry.recordTime,
                        std::min(entry.recordTime + filler->number(from, to) * minute, latest));
    };
    if (filler->chance(3))
        entry.status = StatusDeleted;
    if (kind.flags.contains(QStringLiteral("time_exec")) && filler->chance(92))
        entry.executionTime = later(5, 90);
    if (!kind.secondMark.isEmpty() && filler->chance(85)) {
        entry.secondMarkTime = later(5, 150);
        entry.secondMarkWorker = filler->chance(60) ? author : other;
    }
    if (kind.name.startsWith(QStringLiteral("Телефонограмма"))) {
        entry.direction = kind.name.endsWith(QStringLiteral("принята")) ? DirectionLeft : DirectionRight;
        const int counterpart = (shift.department + 1) % DemoNetwork::DepartmentCount;
        entry.receiver = &m_network.department(counterpart).people.first();
    }
    if (entry.status == StatusApproved && filler->chance(20))
        entry.visa = other;
    add(shift, entry);
    if (filler->chance(4) && entry.recordTime + 25 * minute < latest)
        comment(entry.key, *other, entry.recordTime + 10 * minute, filler->pick(m_remarks),
                entry.recordTime + 25 * minute);
}
