#include "DemoScript.h"

#include "DemoKey.h"

#include <QDateTime>
#include <QRegularExpression>

DemoScript::DemoScript(DemoJournal* journal, const QString& prefix, int delay, Clock clock)
    : m_journal(journal), m_prefix(prefix), m_delay(delay), m_clock(std::move(clock))
{
}

QByteArray DemoScript::key(const QString& name) const
{
    return demoKey(m_prefix + QLatin1Char(' ') + name);
}

qint64 DemoScript::time(const DemoText::Line& line, const QString& text) const
{
    const QTime time = QTime::fromString(text.section(QLatin1Char(' '), -1), Qt::ISODate);
    if (!time.isValid())
        line.fail(QStringLiteral("no time: \"%1\"").arg(text));
    return m_clock(text.section(QLatin1Char(' '), 0, -2).toInt(), time);
}

const DemoPerson* DemoScript::person(const DemoText::Line& line, const QString& login) const
{
    const DemoPerson* person = m_journal->network().findPerson(login);
    if (!person)
        line.fail(QStringLiteral("no login \"%1\"").arg(login));
    return person;
}

QString DemoScript::shown(const DemoText::Line& line) const
{
    static const QRegularExpression moment(QStringLiteral("\\{([^;}]+);?([^}]*)\\}"));
    QString text = line.value == QLatin1String("-") ? QString() : line.value;
    for (auto found = moment.match(text); found.hasMatch(); found = moment.match(text)) {
        const QString format =
            found.captured(2).isEmpty() ? QStringLiteral("dd.MM.yyyy hh:mm") : found.captured(2);
        text.replace(found.capturedStart(), found.capturedLength(),
                     QDateTime::fromSecsSinceEpoch(time(line, found.captured(1))).toString(format));
    }
    return text;
}

qint64 DemoScript::eventTime(const DemoText::Block& block) const
{
    const DemoText::Line* line = block.line(QStringLiteral("at"));
    if (!line)
        block.title.fail(QStringLiteral("the record has no time"));
    return time(*line, line->value);
}

DemoRecord DemoScript::record(const DemoText::Block& block, const DemoShift& shift, DemoFiller* filler,
                              const DemoPerson* author) const
{
    DemoRecord record;
    record.eventTime = eventTime(block);
    record.recordTime = record.eventTime + m_delay;
    record.key = key(QString::number(record.eventTime));
    record.author = author ? author : shift.crew.first();
    DemoFiller::Values values;
    for (const DemoText::Line& line : block.lines) {
        if (line.word == QLatin1String("~"))
            values.append({line.label, shown(line)});
        else
            readWord(line, &record);
    }
    const std::string filled = filler->fill(m_journal->record(block.title.value),
                                            shift.scene(record.eventTime, record.author), values);
    if (record.html.empty())
        record.html = filled;
    return record;
}

void DemoScript::readWord(const DemoText::Line& line, DemoRecord* record) const
{
    static const QStringList writtenLater{QStringLiteral("at"), QStringLiteral("comment"),
                                          QStringLiteral("file"), QStringLiteral("replaced"),
                                          QStringLiteral("pasted")};
    static const QStringList states{QString(), QStringLiteral("draft"), QStringLiteral("deleted")};
    static const QStringList directions{QString(), QStringLiteral("left"), QStringLiteral("right")};
    const auto index = [&](const QStringList& values) {
        const int found = values.indexOf(line.value);
        if (found < 0)
            line.fail(QStringLiteral("unknown value"));
        return found;
    };
    if (line.word == QLatin1String("by")) {
        record->author = person(line, line.value);
    } else if (line.word == QLatin1String("visa")) {
        record->visa = person(line, line.value);
    } else if (line.word == QLatin1String("receiver")) {
        record->receiver = person(line, line.value);
    } else if (line.word == QLatin1String("second_mark")) {
        const QStringList values = line.values();
        record->secondMarkTime = time(line, values[0]);
        record->secondMarkWorker = values.size() > 1 ? person(line, values[1]) : record->author;
    } else if (line.word == QLatin1String("executed")) {
        record->executionTime = time(line, line.value);
    } else if (line.word == QLatin1String("status")) {
        record->status = static_cast<RecordStatus>(index(states));
    } else if (line.word == QLatin1String("direction")) {
        record->direction = static_cast<RecordDirection>(index(directions));
    } else if (line.word == QLatin1String("html")) {
        QString error;
        record->html = DemoTemplates::html(line.value, &error);
        if (!error.isEmpty())
            line.fail(error);
    } else if (!writtenLater.contains(line.word)) {
        line.failAtWord();
    }
}

void DemoScript::write(const DemoText::Block& block, const DemoShift& shift, const DemoRecord& record) const
{
    m_journal->add(shift, record);
    for (const DemoText::Line& line : block.lines) {
        if (line.word == QLatin1String("comment")) {
            writeComment(line, record);
        } else if (line.word == QLatin1String("file")) {
            writeFile(line, record);
        } else if (line.word == QLatin1String("replaced")) {
            DemoRecord successor = record;
            successor.key = key(QStringLiteral("successor"));
            successor.origin = record.key;
            successor.executionTime = time(line, line.value);
            successor.status = StatusApproved;
            successor.visa = nullptr;
            m_journal->add(shift, successor);
        }
    }
}

void DemoScript::writeComment(const DemoText::Line& line, const DemoRecord& record) const
{
    const QStringList values = line.values(4);
    m_journal->comment(record.key, *person(line, values[1]), time(line, values[0]), values[3],
                       values[2].isEmpty() ? 0 : time(line, values[2]));
}
