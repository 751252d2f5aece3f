#pragma once

#include "StoreError.h"

#include <QString>
#include <QtGlobal>

/// The demo journal: an invented network with its people, templates and equipment, a fortnight of shifts in
/// five departments, and one eventful night shift that is open when the store is filled. Everything is
/// written through the store in the loader's role, so that change log, events and checks apply to it.
///
/// Times are seconds since 1970-01-01 00:00 UTC; the days and shifts are those of the zone of the process.
/// The same \a now gives the same journal, including its keys.
namespace DemoStore
{
/// State of a store, as seen by the demo.
enum class State {
    Empty,   ///< initialised, nobody has written anything
    Current, ///< a demo journal whose night shift is still running
    Ended,   ///< a demo journal whose shift has ended, and only the demo has written to it
    Touched, ///< a demo journal whose shift has ended, and somebody has worked with it
    Foreign, ///< contains data that the demo did not create
};

/// Examines an initialised store. False if it cannot be opened or read.
bool state(const QString& url, qint64 now, State* state, StoreError* error);

/// Fills an initialised, empty store; creates it first if \a url names a file that does not exist. Refuses
/// and does not change any other store. On failure the store may contain a part, which state() calls
/// Foreign.
bool fill(const QString& url, qint64 now, StoreError* error);

/// Updates a demo journal to \a now: a current one is unchanged, an ended one is written again, a touched
/// one keeps its records; its ended shift is closed and a new one opened. Empty and foreign stores are
/// refused.
bool renew(const QString& url, qint64 now, StoreError* error);

/// Writes one more record of a colleague into the open night shift, like a second workstation. \a number
/// selects the text. The records count as somebody's work: the store is touched from then on.
bool writeLiveRecord(const QString& url, qint64 now, int number, StoreError* error);

/// Replaces the tables of the earlier journal in a demo store: every construct that it had, in this number
/// of templates. Empty and foreign stores are refused.
bool writeEarlierJournal(const QString& url, qint64 now, int templates, StoreError* error);

/// The department of the story, its key in Departments.
QByteArray storyDepartment();

/// \name Logins that the demo creates
/// @{
QString dispatcher();         ///< in the story's shift, and a dispatcher of a second department
QString colleague();          ///< the other dispatcher of the story's shift
QString chief();              ///< has three unread comments
QString localAdministrator(); ///< right ADMINISTRATOR_OPERLOG_LOCAL
QString administrator();      ///< all rights
QString viewer();             ///< of the dispatching centre, not in a shift
QString loginWithoutWorker(); ///< a login of the store that is no worker
/// @}
} // namespace DemoStore
