#pragma once

#include <QStringList>
#include <QTextStream>

/// The sub-commands of vrk-report; help.txt contains their texts for the user.
namespace ReportCommand
{
/// Exit codes of the program.
enum ExitCode {
    Success = 0,
    Failed = 1,     ///< the reason is on the error stream; no file was written or changed
    WrongUsage = 2, ///< the fault and the usage are on the error stream
};

/// Runs the command named by the arguments (without the program's name). Needs a QApplication, on any platform.
ExitCode run(const QStringList& arguments, QTextStream& out, QTextStream& err);
} // namespace ReportCommand
