#pragma once

#include "CModelTable.h"

#include <QString>

class QTextCodec;

/// Names of reference rows, read from the tables. A key that is empty or not found, and a missing table,
/// give an empty text; key 0 of the tables must be KeyLink.
namespace HfnWrapper
{
/// The field name_ of a row.
VRK_EXPORT QString nameOf(const QTextCodec* codec, const CModelTable* table, const QString& key);
/// Surname, then the initials of first name and patronymic, each after a space and followed by a point.
VRK_EXPORT QString workerShortName(const QTextCodec* codec, CModelTable* workers, QString workerKey);
/// Surname, first name and patronymic, joined by spaces.
VRK_EXPORT QString workerFullName(const QTextCodec* codec, CModelTable* workers, QString workerKey);
/// Names of the worker's roles, sorted case-insensitively and joined by "/".
VRK_EXPORT QString workerRoles(const QTextCodec* codec, CModelTable* roles, CModelTable* workerRoles,
                               QString workerKey);
} // namespace HfnWrapper
