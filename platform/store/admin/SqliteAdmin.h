#pragma once

#include "StoreAdmin.h"

/// The operations of StoreAdmin for a store in a SQLite file. The contracts are those of StoreAdmin.
class EpochHistory;

namespace SqliteAdmin
{
/// \a isFilled is called when the store is complete; if it fails, the file is removed.
bool init(const QString& file, const QByteArray& codecName, const QByteArray& timeZone,
          const std::function<bool()>& isFilled, StoreError* error);
bool upgrade(const QString& file, StoreError* error);
bool rebuildSearch(const QString& file, StoreError* error);
bool changeProperty(const QString& file, const QByteArray& name, const QByteArray& value, StoreError* error);
bool check(const QString& file, QVector<StoreAdmin::Finding>* findings, StoreError* error);
bool checkSchema(const QString& file, QVector<StoreAdmin::Finding>* findings, StoreError* error);
bool backup(const QString& file, const QString& copy, StoreError* error);
bool restore(const QString& file, const QString& copy, const EpochHistory& replaced, QStringList* notes,
             StoreError* error);
int version(const QString& file, StoreError* error);
QStringList files(const QString& file, StoreError* error);
} // namespace SqliteAdmin
