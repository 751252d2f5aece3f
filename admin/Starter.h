#pragma once

#include "StoreError.h"

#include <QString>

/// What a new site begins with, to be renamed and added to in a spreadsheet: one organization with a department, its
/// roles, a day and a night shift, and the templates that suit any department.
namespace Starter
{
/// Writes into an empty store, in one transaction.
bool write(const QString& url, StoreError* error);
} // namespace Starter
