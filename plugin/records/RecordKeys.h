#pragma once

/// The keys of what a dispatcher does with a record: the context menu shows them, the tool tips name them, and the
/// page obeys them.
namespace RecordKey
{
constexpr const char* execution = "F6";
constexpr const char* secondMark = "F7";
constexpr const char* comment = "F8";
constexpr const char* file = "F9";
constexpr const char* approve = "Ctrl+Shift+A";
constexpr const char* visa = "Ctrl+Shift+B";
constexpr const char* origin = "Ctrl+Shift+O";
constexpr const char* copy = "Ctrl+Shift+C";
constexpr const char* paste = "Ctrl+Shift+V";
constexpr const char* edit = "F2"; ///< Enter, too

/// The property of a widget whose key is handled elsewhere: the tool tip shows this key (QString, portable).
constexpr const char* property = "shownKey";
} // namespace RecordKey
