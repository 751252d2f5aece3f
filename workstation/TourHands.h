#pragma once

#include <functional>
#include <QAbstractItemView>
#include <QString>
#include <QStringList>

/// Keys and clicks of the tour, like those of a dispatcher, on any visible window.
namespace TourHands
{
/// Runs the event loop until the condition is true; false on timeout.
bool wait(const std::function<bool()>& condition);
/// Waits for pending painting and measuring.
void settle();
/// The same for animations of the style, such as expanding branches.
void settleAnimations();
/// Presses a key, with the text that it types, in the focus widget of this window.
void press(QWidget* window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString& text = QString());
void type(QWidget* window, const QString& text);
/// The visible window of this class, or null.
QWidget* visibleDialog(const char* className);
/// Runs a function as soon as a window of this class is visible. Call it before the code that shows the
/// window, which may not return.
void whenShown(const char* className, const std::function<void(QWidget*)>& act);

/// The page of the user's own department; other tabs have widgets with the same names.
QWidget* home(QWidget* window);
/// Its records.
QAbstractItemView* records(QWidget* window);
/// Makes the last row current whose text contains these words and that fits once it is current; false if
/// there is none.
bool selectRecord(QWidget* window, const QString& words, const std::function<bool()>& fits = {});
/// Scrolls to the first record after midnight.
void showMidnight(QWidget* window);

/// Presses a button of a message box or dialog by its text.
bool answer(QWidget* box, const QString& text);
/// Presses a button by its object name; false if it is missing or disabled.
bool click(const QWidget* window, const char* button);
/// The window of this class that a button opens, or null.
QWidget* openedBy(const QWidget* window, const char* button, const char* className);
/// Triggers an entry of the menu of a tool bar button; false if it is disabled.
bool trigger(QWidget* window, const char* action);
/// Types values into the filler's editors, starting at the one with the focus: Enter takes a suggestion,
/// Tab goes on. An empty value does not change its editor.
void fill(QWidget* dialog, const QStringList& values);
/// Chooses a worker in the visible organization tree, by the beginning of his name.
bool chooseWorker(const QString& name);
/// The entry of the record's menu with this text; null if it is disabled.
QAction* recordEntry(QWidget* window, const QString& text);
} // namespace TourHands
