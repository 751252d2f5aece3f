#pragma once

#include <QJsonObject>

/// The widgets of this program as JSON:
///
///     focus, active, popup, modal   ids of widgets, 0 for none
///     windows                       all that have a window of the window system, the hidden ones too
///
/// A widget is {id, class, name, rect, seen?, enabled, cut?, items?, children…} and what it shows: text, hint (placeholder),
/// checked, columns. seen is the part that other widgets leave to be seen, where that is not all. A window has title, shown, minimized, wid and owner (the id of the widget it belongs to) as well. Only
/// visible widgets are children. Items are the rows of a view, the tabs of a tab bar, the entries of a menu: {text, rect,
/// current, selected, enabled}. All rectangles are [x, y, width, height] in pixels of the screen. cut says why not all that
/// a widget has to show can be seen.
namespace WidgetReport
{
QJsonObject make();
}
