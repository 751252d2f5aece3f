#pragma once

#include <QJsonObject>

/// The widgets of this program as JSON:
///
///     focus, active, popup, modal   ids of widgets, 0 for none
///     windows                       all with a native window, including hidden ones
///
/// A widget is {id, class, name, rect, seen?, enabled, cut?, items?, children…} and its content: text, hint
/// (placeholder), checked, columns. seen is the part that other widgets do not cover, unless that is all. A
/// window also has title, shown, minimized, wid and owner (the id of the widget it belongs to). Only visible
/// widgets are children. Items are the rows of a view, the tabs of a tab bar, the entries of a menu: {text,
/// rect, current, selected, enabled}. All rectangles are [x, y, width, height] in pixels of the screen. cut
/// says why a part of the widget's content is not visible.
namespace WidgetReport
{
QJsonObject make();
}
