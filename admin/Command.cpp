#include "Command.h"

#include "BackupCommand.h"
#include "CheckCommand.h"
#include "DemoCommand.h"
#include "DoctorCommand.h"
#include "ExportCommand.h"
#include "FileCommand.h"
#include "ImportCommand.h"
#include "InitCommand.h"
#include "OptionCommand.h"
#include "RestoreCommand.h"
#include "RightCommand.h"
#include "SetupCommand.h"
#include "ShiftCommand.h"
#include "StoreAdmin.h"
#include "StoreError.h"
#include "UpgradeCommand.h"
#include "UserCommand.h"
#include "WatchdogCommand.h"

namespace
{
bool isHelp(const QString& argument)
{
    return argument == QLatin1String("--help") || argument == QLatin1String("-h") ||
           argument == QLatin1String("help");
}

void printHelp(QTextStream& out, const std::vector<std::unique_ptr<Command>>& commands)
{
    out << QStringLiteral("vrk-admin: хранилища оперативного журнала\n\n"
                          "Использование: vrk-admin КОМАНДА [АРГУМЕНТЫ]\n"
                          "               vrk-admin КОМАНДА --help\n"
                          "               vrk-admin --version\n\nКоманды:\n");
    for (const auto& command : commands)
        out << QStringLiteral("  %1 %2\n").arg(command->name(), -8).arg(command->summary());
    out << QStringLiteral(
        "\nURL хранилища: sqlite:///полный/путь/к/файлу или postgresql://имя@сервер/база\n"
        "Код завершения: 0 успех, 1 не удалось, 2 неверные аргументы, 3 проверка нашла ошибки.\n");
}
} // namespace

Command::ExitCode Command::wrongUsage(Streams& streams) const
{
    streams.err << usage();
    return WrongUsage;
}

Command::ExitCode Command::fail(Streams& streams, const StoreError& error)
{
    streams.err << error.text << QLatin1Char('\n');
    if (!error.detail.isEmpty())
        streams.err << QLatin1Char('(') << error.detail << QStringLiteral(")\n");
    return Failed;
}

Command::ExitCode Command::report(const QVector<StoreAdmin::Finding>& findings, const QString& clean,
                                  Streams& streams)
{
    int faults = 0;
    for (const StoreAdmin::Finding& finding : findings) {
        const bool isFault = finding.grade == StoreAdmin::Finding::Fault;
        faults += isFault ? 1 : 0;
        streams.out << (isFault ? QStringLiteral("Ошибка: ") : QStringLiteral("Примечание: ")) << finding.text
                    << QLatin1Char('\n');
    }
    streams.out << (faults ? QStringLiteral("Найдено ошибок: %1\n").arg(faults) : clean);
    return faults ? FaultsFound : Success;
}

Command::ExitCode Command::outcome(bool done, Streams& streams, const StoreError& error)
{
    return done ? Success : fail(streams, error);
}

std::vector<std::unique_ptr<Command>> adminCommands()
{
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<InitCommand>());
    commands.push_back(std::make_unique<SetupCommand>());
    commands.push_back(std::make_unique<DemoCommand>());
    commands.push_back(std::make_unique<DoctorCommand>());
    commands.push_back(std::make_unique<CheckCommand>());
    commands.push_back(std::make_unique<UpgradeCommand>());
    commands.push_back(std::make_unique<ExportCommand>());
    commands.push_back(std::make_unique<ImportCommand>());
    commands.push_back(std::make_unique<BackupCommand>());
    commands.push_back(std::make_unique<RestoreCommand>());
    commands.push_back(std::make_unique<UserCommand>());
    commands.push_back(std::make_unique<RightCommand>());
    commands.push_back(std::make_unique<FileCommand>());
    commands.push_back(std::make_unique<OptionCommand>());
    commands.push_back(std::make_unique<ShiftCommand>());
    commands.push_back(std::make_unique<WatchdogCommand>());
    return commands;
}

Command::ExitCode runAdmin(const QStringList& arguments, Streams& streams)
{
    const auto commands = adminCommands();
    if (arguments.isEmpty() || isHelp(arguments.constFirst())) {
        printHelp(arguments.isEmpty() ? streams.err : streams.out, commands);
        return arguments.isEmpty() ? Command::WrongUsage : Command::Success;
    }
    if (arguments.constFirst() == QLatin1String("--version")) {
        streams.out << QStringLiteral("vrk-admin %1, версия хранилища %2\n")
                           .arg(QStringLiteral(VRK_VERSION))
                           .arg(StoreAdmin::schemaVersion());
        return Command::Success;
    }
    for (const auto& command : commands) {
        if (command->name() != arguments.constFirst())
            continue;
        const QStringList rest = arguments.mid(1);
        if (!rest.isEmpty() && isHelp(rest.constFirst())) {
            streams.out << command->usage();
            return Command::Success;
        }
        return command->run(rest, streams);
    }
    streams.err << QStringLiteral("Нет команды «%1».\n\n").arg(arguments.constFirst());
    printHelp(streams.err, commands);
    return Command::WrongUsage;
}
