#pragma once

#include "StoreAdmin.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

class JsonList;

/// The streams of a command; tests replace them by strings.
struct Streams {
    QTextStream& out;
    QTextStream& err;
    QTextStream* in = nullptr; ///< for commands that ask questions; null if nobody can answer
    bool isWatched = false;    ///< whether the error stream is a terminal
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

/// The sub-commands of vrk-admin, each in its own file. help.txt contains their texts for the user.
namespace Command
{
/// Exit codes of the program.
enum ExitCode {
    Success = 0,
    Failed = 1,      ///< the reason is on the error stream
    WrongUsage = 2,  ///< runAdmin() adds the usage on the error stream
    FaultsFound = 3, ///< the check found faults
};

/// Creates a new, empty store.
ExitCode init(const QStringList& arguments, Streams& streams);
/// Prepares a site for work from the answers to a series of questions.
ExitCode setup(const QStringList& arguments, Streams& streams);
/// Creates the demo journal or updates it to the current time; with --live keeps writing like a second
/// workstation.
ExitCode demo(const QStringList& arguments, Streams& streams);
/// Reports problems of a store's environment, and the remedies.
ExitCode doctor(const QStringList& arguments, Streams& streams);
/// Checks a whole store.
ExitCode check(const QStringList& arguments, Streams& streams);
/// Updates a store of an earlier version.
ExitCode upgrade(const QStringList& arguments, Streams& streams);
/// Writes the reference tables of a store as sheets for a spreadsheet.
ExitCode exportSheets(const QStringList& arguments, Streams& streams);
/// Updates the reference tables of a store from a folder of sheets.
ExitCode importSheets(const QStringList& arguments, Streams& streams);
/// Copies a store in use into a file and checks the copy.
ExitCode backup(const QStringList& arguments, Streams& streams);
/// Restores a copy of a store.
ExitCode restore(const QStringList& arguments, Streams& streams);
/// Lists, adds and removes logins.
ExitCode user(const QStringList& arguments, Streams& streams);
/// Joins two rows of one person in the table of workers.
ExitCode merge(const QStringList& arguments, Streams& streams);
/// Lists, grants and revokes rights of a login.
ExitCode right(const QStringList& arguments, Streams& streams);
/// Lists, fetches, stores and removes the store's named files.
ExitCode file(const QStringList& arguments, Streams& streams);
/// Shows and sets the options for the control of the length of workshifts.
ExitCode option(const QStringList& arguments, Streams& streams);
/// Abbreviations that unfold while users type.
ExitCode abbreviations(const QStringList& arguments, Streams& streams);
/// Words that the check of spelling knows at all workstations of the site.
ExitCode words(const QStringList& arguments, Streams& streams);
/// Shows the shifts that may be corrected, and corrects mistyped bounds of one.
ExitCode shift(const QStringList& arguments, Streams& streams);
/// Extends the tree over the change log and signs its head; creates and replaces the key.
ExitCode seal(const QStringList& arguments, Streams& streams);
/// Writes the change log, its proofs and a verifier into a folder.
ExitCode exportEvidence(const QStringList& arguments, Streams& streams);
/// Takes old shifts out of the journal into a folder.
ExitCode archive(const QStringList& arguments, Streams& streams);
/// Shows who changed a row, when and how, from the change log.
ExitCode history(const QStringList& arguments, Streams& streams);
/// Counts records, late entries, overdue orders and signed handovers.
ExitCode stats(const QStringList& arguments, Streams& streams);
/// Ends requests that run too long on a server.
ExitCode watchdog(const QStringList& arguments, Streams& streams);

/// The words for %1, %2 ... in the usage of some commands.
QStringList importWords();
QStringList rightWords();
QStringList watchdogWords();

/// Failed; writes the error.
ExitCode fail(Streams& streams, const StoreError& error);
/// Success, or the findings and FaultsFound; \a clean is the last line if there are no faults.
/// If the user wants a \a list, prints the findings in it instead.
ExitCode report(const QVector<StoreAdmin::Finding>& findings, const QString& clean, Streams& streams,
                JsonList* list = nullptr);
/// Success, or the error and Failed.
ExitCode outcome(bool done, Streams& streams, const StoreError& error);
} // namespace Command

/// The names of all sub-commands, in the order of the help.
QStringList adminCommands();

/// Runs the command named by the arguments (without the program's name). Shows help without arguments, with
/// "help" and with "--help"; "COMMAND --help" shows that command's usage.
Command::ExitCode runAdmin(const QStringList& arguments, Streams& streams);
