#pragma once

#include "VrkExport.h"

#include <functional>
#include <QByteArray>

class CVrkCliApp;
class QMenu;
class QWidget;

/// The entries that every context menu of a record has: the user's bookmark on it (Bookmarks), and those of other modules
/// (CVrkCliApp::recordEntries).
namespace RecordEntries
{
/// Appends them to the menu, behind a separator. Their shortcuts work while \a view has the focus. \a key returns the
/// current record's key; while it is empty they do nothing. All objects must outlive the menu.
VRK_EXPORT void append(QMenu* menu, QWidget* view, CVrkCliApp* app, const std::function<QByteArray()>& key);
} // namespace RecordEntries
