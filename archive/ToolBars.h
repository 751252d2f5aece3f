#pragma once

class QMainWindow;
class QString;
class QToolBar;
class QWidget;

/// The tool bars of windows with controls in them.
namespace ToolBars
{
/// A bar at the top of a window, which cannot be moved or hidden; the window owns it.
QToolBar* add(QMainWindow* window, const char* name);
/// Adds a control behind its label, which has the mnemonic.
void addLabelled(QToolBar* bar, const QString& text, QWidget* control);
} // namespace ToolBars
