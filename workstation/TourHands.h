#pragma once

#include <functional>
#include <QAbstractItemView>
#include <QString>
#include <QStringList>

/// The hands of the tour: keys and clicks as a dispatcher makes them, on whatever window is up.
namespace TourHands
{
/// Runs the event loop until the condition holds; false when it does not within the patience of a viewer.
bool wait(const std::function<bool()>& condition);
/// Lets what was asked for be shown: delayed painting and measuring included.
void settle();
/// The same for what the style animates, such as branches that unfold.
void settleAnimations();
/// A key, with the text that it types, to whoever has the keyboard in this window.
void press(QWidget* window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString& text = QString());
void type(QWidget* window, const QString& text);
/// The window of this class that is visible, or null.
QWidget* visibleDialog(const char* className);
/// Does something as soon as a window of this class is up; to be asked for before what shows it, which may not return.
void whenShown(const char* className, const std::function<void(QWidget*)>& act);

/// The page of the own department; other tabs have widgets of the same names.
QWidget* home(QWidget* window);
/// Its records.
QAbstractItemView* records(QWidget* window);
/// Makes the last row current whose text holds these words and that, once it is current, fits; false when there is none.
bool selectRecord(QWidget* window, const QString& words, const std::function<bool()>& fits = {});
/// Brings the first record after midnight into sight.
void showMidnight(QWidget* window);

/// Presses a button of a message box or dialog by its text.
bool answer(QWidget* box, const QString& text);
/// Chooses an entry of the menu behind a button of the tool bar; false when it is off.
bool trigger(QWidget* window, const char* action);
/// Types values into the filler's editors, beginning at the one that has the keyboard: what is suggested is taken with
/// Enter, Tab goes on. An empty value leaves its editor as it is.
void fill(QWidget* dialog, const QStringList& values);
/// Chooses a worker in the structure that is up, by the beginning of his name.
bool chooseWorker(const QString& name);
/// The entry of the record's menu with this text; null when it is off.
QAction* recordEntry(QWidget* window, const QString& text);
} // namespace TourHands
