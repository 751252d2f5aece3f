#pragma once

#include "StoreAdmin.h"

#include <memory>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <vector>

/// The streams of a command; tests replace them by strings.
struct Streams {
    QTextStream& out;
    QTextStream& err;
    QTextStream* in = nullptr; ///< for commands that ask questions; null if nobody can answer
};

/// Makes a stream read and write UTF-8; in Qt 6 it does from the start.
inline void setUtf8(QTextStream* stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream->setCodec("UTF-8");
#else
    Q_UNUSED(stream)
#endif
}

/// One sub-command of vrk-admin.
class Command
{
public:
    /// Exit codes of the program.
    enum ExitCode {
        Success = 0,
        Failed = 1,      ///< the reason is on the error stream
        WrongUsage = 2,  ///< the usage is on the error stream
        FaultsFound = 3, ///< the check found faults
    };

    virtual ~Command() = default;

    /// The name of the sub-command.
    virtual QString name() const = 0;
    /// One line for the list of commands.
    virtual QString summary() const = 0;
    /// The arguments and their meaning, without the program's name.
    virtual QString usage() const = 0;
    virtual ExitCode run(const QStringList& arguments, Streams& streams) = 0;

protected:
    ExitCode wrongUsage(Streams& streams) const;
    static ExitCode fail(Streams& streams, const StoreError& error);
    /// Success, or the findings and FaultsFound; \a clean is the last line if there are no faults.
    static ExitCode report(const QVector<StoreAdmin::Finding>& findings, const QString& clean,
                           Streams& streams);
    /// Success, or the error and Failed.
    static ExitCode outcome(bool done, Streams& streams, const StoreError& error);
};

/// All sub-commands, in the order of the help.
std::vector<std::unique_ptr<Command>> adminCommands();

/// Runs the command named by the arguments (without the program's name). Shows help without arguments, with
/// "help" and with "--help"; "COMMAND --help" shows that command's usage.
Command::ExitCode runAdmin(const QStringList& arguments, Streams& streams);
