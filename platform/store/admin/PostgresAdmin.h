#pragma once

#include "StoreAdmin.h"

/// StoreAdmin for stores on a PostgreSQL server. The addresses are those of an administrator of the server.
class EpochHistory;

namespace PostgresAdmin
{
/// Creates the database if it does not exist, and the store in it. An existing database must be empty. \a
/// isFilled is called when the store is complete; if it fails, everything is undone.
bool init(const QString& url, const QByteArray& codecName, const QByteArray& timeZone,
          const std::function<bool()>& isFilled, StoreError* error);
bool upgrade(const QString& url, StoreError* error);
bool rebuildSearch(const QString& url, StoreError* error);
bool changeProperty(const QString& url, const QByteArray& name, const QByteArray& value, StoreError* error);
bool check(const QString& url, QVector<StoreAdmin::Finding>* findings, StoreError* error);
bool checkSchema(const QString& url, QVector<StoreAdmin::Finding>* findings, StoreError* error);
/// Runs pg_dump, which must be installed, and checks that its copy can be read.
bool backup(const QString& url, const QString& file, StoreError* error);
/// Restores into an empty database, which is created if it does not exist, with the roles that the store
/// needs.
bool restore(const QString& url, const QString& file, const EpochHistory& replaced, QStringList* notes,
             StoreError* error);
int version(const QString& url, StoreError* error);

int endRunaways(const QString& url, int seconds, StoreError* error);

/// \name Persons as roles of the server
/// @{ Creates the role of a login, or enables an existing one again.
bool addRole(const QString& url, const QString& login, StoreError* error);
/// Disables a role and ends its sessions; its records keep its name.
bool lockRole(const QString& url, const QString& login, StoreError* error);
/// The password is hashed here; neither the server nor its log sees it.
bool setPassword(const QString& url, const QString& login, const QString& password, StoreError* error);
/// @}

QStringList files(const QString& url, StoreError* error);
} // namespace PostgresAdmin
