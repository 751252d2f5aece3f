#include "Command.h"

#include "AdminText.h"
#include "JsonList.h"
#include "ProgressLine.h"
#include "StoreAdmin.h"
#include "StoreError.h"

namespace
{
struct Entry {
    const char* name;
    Command::ExitCode (*run)(const QStringList& arguments, Streams& streams);
    QStringList (*words)() = nullptr;
};

const Entry entries[] = {
    {"init", Command::init},
    {"setup", Command::setup},
    {"demo", Command::demo},
    {"doctor", Command::doctor},
    {"check", Command::check},
    {"upgrade", Command::upgrade},
    {"export", Command::exportSheets},
    {"import", Command::importSheets, Command::importWords},
    {"backup", Command::backup},
    {"restore", Command::restore},
    {"user", Command::user},
    {"merge", Command::merge},
    {"right", Command::right, Command::rightWords},
    {"file", Command::file},
    {"option", Command::option},
    {"words", Command::words},
    {"abbreviations", Command::abbreviations},
    {"shift", Command::shift},
    {"seal", Command::seal},
    {"export-evidence", Command::exportEvidence},
    {"archive", Command::archive},
    {"history", Command::history},
    {"stats", Command::stats},
    {"watchdog", Command::watchdog, Command::watchdogWords},
};

bool isHelp(const QString& argument)
{
    return argument == QLatin1String("--help") || argument == QLatin1String("-h") ||
           argument == QLatin1String("help");
}

/// A chapter of help.txt: the lines below its title.
QString chapter(const char* title)
{
    const QString text = QLatin1Char('\n') + AdminText::content("help.txt");
    const QString heading = QStringLiteral("\n== %1\n").arg(QLatin1String(title));
    const int begin = text.indexOf(heading) + heading.size();
    const int end = text.indexOf(QStringLiteral("\n== "), begin);
    return text.mid(begin, end < 0 ? -1 : end + 1 - begin);
}

/// Below the summary of a command in its chapter.
QString usage(const Entry& entry)
{
    QString text = chapter(entry.name).section(QLatin1Char('\n'), 1);
    for (const QString& word : entry.words ? entry.words() : QStringList())
        text = text.arg(word);
    return text;
}

void printHelp(QTextStream& out)
{
    QString commands;
    for (const Entry& entry : entries)
        commands += QStringLiteral("  %1 %2\n")
                        .arg(QLatin1String(entry.name), -15)
                        .arg(chapter(entry.name).section(QLatin1Char('\n'), 0, 0));
    out << chapter("vrk-admin").arg(commands);
}
} // namespace

Command::ExitCode Command::fail(Streams& streams, const StoreError& error)
{
    streams.err << error.text << QLatin1Char('\n');
    if (!error.detail.isEmpty())
        streams.err << QLatin1Char('(') << error.detail << QStringLiteral(")\n");
    return Failed;
}

Command::ExitCode Command::report(const QVector<StoreAdmin::Finding>& findings, const QString& clean,
                                  Streams& streams, JsonList* list)
{
    const bool isList = list && list->isWanted();
    int faults = 0;
    for (const StoreAdmin::Finding& finding : findings) {
        const bool isFault = finding.grade == StoreAdmin::Finding::Fault;
        faults += isFault ? 1 : 0;
        if (isList)
            list->add({{QStringLiteral("grade"), QLatin1String(isFault ? "fault" : "note")},
                       {QStringLiteral("text"), finding.text}});
        else
            streams.out << (isFault ? QStringLiteral("Ошибка: ") : QStringLiteral("Примечание: "))
                        << AdminText::printable(finding.text) << QLatin1Char('\n');
    }
    if (isList)
        list->print(streams.out);
    else
        streams.out << (faults ? QStringLiteral("Найдено ошибок: %1\n").arg(faults) : clean);
    return faults ? FaultsFound : Success;
}

Command::ExitCode Command::outcome(bool done, Streams& streams, const StoreError& error)
{
    return done ? Success : fail(streams, error);
}

QStringList adminCommands()
{
    QStringList names;
    for (const Entry& entry : entries)
        names << QLatin1String(entry.name);
    return names;
}

Command::ExitCode runAdmin(const QStringList& arguments, Streams& streams)
{
    if (arguments.isEmpty() || isHelp(arguments.constFirst())) {
        printHelp(arguments.isEmpty() ? streams.err : streams.out);
        return arguments.isEmpty() ? Command::WrongUsage : Command::Success;
    }
    if (arguments.constFirst() == QLatin1String("--version")) {
        streams.out << QStringLiteral("vrk-admin %1, версия хранилища %2\n")
                           .arg(QStringLiteral(VRK_VERSION))
                           .arg(StoreAdmin::schemaVersion());
        return Command::Success;
    }
    for (const Entry& entry : entries) {
        if (QLatin1String(entry.name) != arguments.constFirst())
            continue;
        const QStringList rest = arguments.mid(1);
        if (!rest.isEmpty() && isHelp(rest.constFirst())) {
            streams.out << usage(entry);
            return Command::Success;
        }
        const ProgressLine progress(streams);
        const Command::ExitCode code = entry.run(rest, streams);
        if (code == Command::WrongUsage)
            streams.err << usage(entry);
        return code;
    }
    streams.err << QStringLiteral("Нет команды «%1».\n\n").arg(arguments.constFirst());
    printHelp(streams.err);
    return Command::WrongUsage;
}
