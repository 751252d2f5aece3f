#pragma once

#include "Store.h"

#include <functional>
#include <QStringList>

/// What an administrator does with a store; vrk-admin is a thin shell over it.
namespace StoreAdmin
{
/// Version of the schema that this program writes and reads.
int schemaVersion();

/// Puts the first rows into a new store, which it gets in the role of imports.
using Filling = std::function<bool(Store* store, StoreError* error)>;
/// Makes a new store, empty or with what \a filling puts into it; refuses to touch anything that is already there. When
/// it fails, no store is left.
bool init(const QString& url, const QByteArray& codecName, const QByteArray& timeZone, StoreError* error,
          const Filling& filling = Filling());

/// The version of a store; -1 with the reason when there is none.
int version(const QString& url, StoreError* error);

/// Brings a store of an older version to this one, in one transaction; one of this version stays as it is. Workstations
/// with the older program should be closed: they could not write any more.
bool upgrade(const QString& url, StoreError* error);

/// Fills the index of the search anew; the journal itself stays as it is.
bool rebuildSearch(const QString& url, StoreError* error);

/// From now on no workshift longer than this is opened. The present value is Store::longestShift.
bool setLongestShift(const QString& url, int seconds, StoreError* error);

/// One finding of a check.
struct Finding {
    enum Grade { Note, Fault } grade = Fault;
    QString text;
};
/// Looks through the whole store: integrity of the file, references, states of records, the change log and its chain.
/// An empty answer, or notes only, is a clean store. False when the check itself could not be done.
bool check(const QString& url, QVector<Finding>* findings, StoreError* error);

/// What is wrong with the surroundings of a store, and what helps.
struct Symptom {
    QString fault;
    QString cure;
};
/// Looks at access, encryption, encoding, version, safety of the data and clocks. Needs no store to be there yet.
QVector<Symptom> examine(const QString& url);

/// Ends the requests that a server's clients have kept running for longer than \a seconds, and the transactions that
/// have held up others and are older than that; the number of ended ones, -1 for a failure. For clients that ignore their own deadline; run it now and then.
int endRunaways(const QString& url, int seconds, StoreError* error);

/// Copies a store in use, of an older version too, into a new file and checks the copy. A server's is made by its own
/// pg_dump.
bool backup(const QString& url, const QString& file, StoreError* error);

/// Puts a copy back, brings it to this version, checks it and gives it a history of its own. A file takes the place of the
/// present store, which nobody may have open and which is kept beside it; a copy of a server's store goes into an empty
/// database, made where there is none, and every login gets its role. \a notes tells what the administrator must know.
bool restore(const QString& url, const QString& file, QStringList* notes, StoreError* error);

/// \name Logins, rights, files
/// @{
/// Why a text is no name to sign in by; no error for one that is.
StoreError loginError(const QString& login);
/// On a server the login is one of its roles, which cannot get in before it has a password.
bool addUser(const QString& url, const QString& login, const QString& name, StoreError* error);
/// Refused where logins have no passwords.
bool setPassword(const QString& url, const QString& login, const QString& password, StoreError* error);
bool removeUser(const QString& url, const QString& login, StoreError* error);
/// Lets a login that stands in Users in or locks it out where logins have roles of their own; elsewhere there is nothing
/// to do.
bool admit(const QString& url, const QString& login, bool admitted, StoreError* error);
bool grant(const QString& url, const QString& login, const QByteArray& right, bool given, StoreError* error);
QVector<QByteArray> rights(const QString& url, const QString& login, StoreError* error);
bool putFile(const QString& url, const QString& folder, const QString& name, const QByteArray& content,
             StoreError* error);
QStringList files(const QString& url, StoreError* error);
bool removeFile(const QString& url, const QString& folder, const QString& name, StoreError* error);
/// @}
} // namespace StoreAdmin
