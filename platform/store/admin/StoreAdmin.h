#pragma once

#include "Store.h"

#include <functional>
#include <QStringList>

/// The administrator's operations on a store; vrk-admin is a thin shell over it.
namespace StoreAdmin
{
/// Version of the schema that this program writes and reads.
int schemaVersion();

/// Opens a store in the role of imports, in which the rules of the journal do not apply. Null with \a error on
/// failure.
std::unique_ptr<Store> openLoader(const QString& url, StoreError* error,
                                  int deadlineMs = Store::Options().deadlineMs);

/// Whether what openLoader() opened may write: the account of a server may have no such right. \a url is the address of
/// the store. True if the server does not answer.
bool mayLoad(Store& store, const QString& url);

/// Writes the first rows into a new store, which it receives in the role of imports.
using Filling = std::function<bool(Store* store, StoreError* error)>;
/// Creates a new store, empty or filled by \a filling; never touches existing data. On failure, no store is
/// left.
bool init(const QString& url, const QByteArray& codecName, const QByteArray& timeZone, StoreError* error,
          const Filling& filling = Filling());

/// The version of a store; -1 with the reason if there is none.
int version(const QString& url, StoreError* error);

/// Upgrades a store of an older version to this one, in one transaction; a store of this version is
/// unchanged. Workstations with the older program should be closed: they could not write any more.
bool upgrade(const QString& url, StoreError* error);

/// Rebuilds the search index from records that agree with the change log; refused if they do not, because the
/// index may be the last trace of what they were.
bool rebuildSearch(const QString& url, StoreError* error);

/// From now on no longer workshift is opened. Store::longestShift returns the current value.
bool setLongestShift(const QString& url, int seconds, StoreError* error);

/// One finding of a check.
struct Finding {
    enum Grade { Note, Fault } grade = Fault;
    QString text;
};
/// Checks the whole store: integrity of the file, references, states of records, the change log and its
/// chain. No findings, or only notes, mean a clean store. False if the check could not be done.
bool check(const QString& url, QVector<Finding>* findings, StoreError* error);
/// The part of check() that compares tables, rules and triggers with those of this program.
bool checkSchema(const QString& url, QVector<Finding>* findings, StoreError* error);

/// A problem in a store's environment, and its remedy.
struct Symptom {
    QString fault;
    QString cure;
};
/// Examines access, encryption, encoding, version, safety of the data and clocks. The store need not exist
/// yet.
QVector<Symptom> examine(const QString& url);

/// Ends requests of a server's clients that have run longer than \a seconds, and transactions that block
/// others and are older than that. Returns the number of ended ones, -1 on failure. For clients that ignore
/// their own deadline; run it regularly.
int endRunaways(const QString& url, int seconds, StoreError* error);

/// Copies a store in use, also of an older version, into a new file and checks the copy. For a server, its
/// own pg_dump makes the copy.
bool backup(const QString& url, const QString& file, StoreError* error);

/// Restores a copy, upgrades it to this version, checks it and gives it its own history. A file replaces
/// the current store, which nobody may have open and which is kept under another name; a copy of a server's
/// store goes into an empty database, created if missing, and every login gets its role. The log of the restored
/// store names the epochs of the one that it replaces (EpochHistory): the current store of a file, or the store
/// at \a replaced unless empty. \a notes receives what the administrator must know.
bool restore(const QString& url, const QString& file, const QString& replaced, QStringList* notes,
             StoreError* error);

/// \name Logins, rights, files
/// @{ Why a text cannot be a login; no error if it can.
StoreError loginError(const QString& login);
/// On a server the login is one of its roles, which cannot log in before it has a password.
bool addUser(const QString& url, const QString& login, const QString& name, StoreError* error);
/// Also of an account that seals. Refused where logins have no passwords.
bool setPassword(const QString& url, const QString& login, const QString& password, StoreError* error);
bool removeUser(const QString& url, const QString& login, StoreError* error);
/// Where logins have their own roles, enables or disables a login of the table Users; elsewhere does
/// nothing.
bool admit(const QString& url, const QString& login, bool admitted, StoreError* error);
/// Lets an account of a server seal the change log (PostgresSealer), or no longer. Refused for a file: who may
/// write it may do everything.
bool admitSealer(const QString& url, const QString& login, bool admitted, StoreError* error);
bool grant(const QString& url, const QString& login, const QByteArray& right, bool given, StoreError* error);
QVector<QByteArray> rights(const QString& url, const QString& login, StoreError* error);
bool putFile(const QString& url, const QString& folder, const QString& name, const QByteArray& content,
             StoreError* error);
QStringList files(const QString& url, StoreError* error);
bool removeFile(const QString& url, const QString& folder, const QString& name, StoreError* error);
/// @}
} // namespace StoreAdmin
