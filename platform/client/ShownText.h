#pragma once

#include "VrkExport.h"

#include <QString>

/// Fits a text of a record, a template or a name into a place that is not made for any text.
namespace ShownText
{
/// For an entry of a menu or a tab: one line, "&" as it stands, the end of a very long text left out.
VRK_EXPORT QString entry(const QString& text);

/// For a tool tip: the lines stay, long ones are broken, the end of a very long text is left out.
VRK_EXPORT QString tip(const QString& text);

/// For a notification of the desktop, which may take angle brackets for markup, or show escapes as they stand.
VRK_EXPORT QString notification(const QString& text);
} // namespace ShownText
