#pragma once

#include "StoreError.h"

#include <QString>
#include <QtGlobal>

/// The demo journal: an invented network with its people, templates and equipment, a fortnight of shifts in
/// five departments, and one eventful night shift that is open at the moment of filling. All of it is written
/// through the store in the loader's role, so that the change log, the events and the checks hold for it.
///
/// Times are seconds since 1970-01-01 00:00 UTC; the days and shifts are those of the zone of the process.
/// The same \a now gives the same journal, keys included.
namespace DemoStore
{
/// What a store is to the demo.
enum class State {
    Empty,   ///< initialised, nobody has written anything
    Current, ///< a demo journal whose night shift is still running
    Ended,   ///< a demo journal whose shift has ended, and nobody but the demo has written
    Touched, ///< a demo journal whose shift has ended, and somebody has worked with it
    Foreign, ///< holds something that the demo did not make
};

/// Looks at an initialised store. False when it cannot be opened or read.
bool state(const QString& url, qint64 now, State* state, StoreError* error);

/// Fills an initialised, empty store; makes it first when \a url names a file that does not exist. Everything
/// else is refused and left as it is. On failure the store may hold a part, which state() calls Foreign.
bool fill(const QString& url, qint64 now, StoreError* error);

/// Brings a demo journal up to \a now: a current one stays as it is, an ended one is written anew, a touched
/// one keeps its records and gets its ended shift closed and a new one opened. Empty and foreign stores are
/// refused.
bool renew(const QString& url, qint64 now, StoreError* error);

/// Writes one more record by a colleague into the open night shift, as a second workstation would. The texts
/// follow one another by \a number. The records count as work of somebody: the store is touched from then on.
bool writeLiveRecord(const QString& url, qint64 now, int number, StoreError* error);

/// Replaces the tables of the earlier journal in a demo store: every construct that it knew, in so many templates.
/// Empty and foreign stores are refused.
bool writeEarlierJournal(const QString& url, qint64 now, int templates, StoreError* error);

/// The department of the story, its key in Departments.
QByteArray storyDepartment();

/// \name Logins that the demo makes
/// @{
QString dispatcher();         ///< in the story's shift, and a dispatcher of a second department
QString colleague();          ///< the other dispatcher of the story's shift
QString chief();              ///< has three unread comments
QString localAdministrator(); ///< right ADMINISTRATOR_OPERLOG_LOCAL
QString administrator();      ///< all rights
QString viewer();             ///< of the dispatching centre, in no shift
QString loginWithoutWorker(); ///< known to the store, a worker nowhere
/// @}
} // namespace DemoStore
