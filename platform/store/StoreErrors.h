#pragma once

#include "StoreError.h"

/// The errors that every engine reports in the same words. A place is the store as the user knows it: its
/// file or its address.
namespace StoreErrors
{
/// No error if a store whose schema has the version \a found can be used.
StoreError version(int found, const QString& place);
} // namespace StoreErrors
