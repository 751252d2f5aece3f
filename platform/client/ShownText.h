#pragma once

#include "VrkExport.h"

#include <QString>

/// Fits a text of a record, a template or a name to a place that cannot show every text.
namespace ShownText
{
/// For a menu entry or a tab: one line, "&" shown literally, a very long text truncated.
VRK_EXPORT QString entry(const QString& text);

/// For a tool tip: keeps the lines, breaks long ones, truncates a very long text.
VRK_EXPORT QString tip(const QString& text);

/// For a desktop notification, which may read angle brackets as markup or show escapes literally.
VRK_EXPORT QString notification(const QString& text);
} // namespace ShownText
