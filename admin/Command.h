#pragma once

#include <memory>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <vector>

struct StoreError;

/// Where a command reads and writes; tests put strings in their place.
struct Streams {
    QTextStream& out;
    QTextStream& err;
    QTextStream* in = nullptr; ///< for commands that ask; null where nobody answers
};

/// One sub-command of vrk-admin.
class Command
{
public:
    /// What the program returns to the shell.
    enum ExitCode {
        Success = 0,
        Failed = 1,      ///< the reason stands on the error stream
        WrongUsage = 2,  ///< the usage stands on the error stream
        FaultsFound = 3, ///< a check that found faults
    };

    virtual ~Command() = default;

    /// The word by which it is called.
    virtual QString name() const = 0;
    /// One line for the list of commands.
    virtual QString summary() const = 0;
    /// Arguments and what they mean, without the program's name.
    virtual QString usage() const = 0;
    virtual ExitCode run(const QStringList& arguments, Streams& streams) = 0;

protected:
    ExitCode wrongUsage(Streams& streams) const;
    static ExitCode fail(Streams& streams, const StoreError& error);
    /// Success, or the error and Failed.
    static ExitCode outcome(bool done, Streams& streams, const StoreError& error);
};

/// All sub-commands, in the order of the help.
std::vector<std::unique_ptr<Command>> adminCommands();

/// Runs the command that the arguments (without the program's name) call. Help without arguments, with "help"
/// and with "--help"; "COMMAND --help" tells that command's usage.
Command::ExitCode runAdmin(const QStringList& arguments, Streams& streams);
