#pragma once

#include <functional>
#include <QString>
#include <Qt>

class QWidget;

/// What the tour does at the windows in a user's place: keys, words, buttons, and waiting for what comes of them.
namespace TourHands
{
/// Runs the event loop until the condition holds; false when it does not in good time.
bool wait(const std::function<bool()>& condition);
/// Lets what was asked for be shown: delayed painting and measuring included.
void settle();
/// The same for what the style animates, such as branches that unfold.
void settleAnimations();
/// A key, with the text that it types, to whoever has the keyboard in this window.
void press(QWidget* window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString& text = QString());
void type(QWidget* window, const QString& text);
/// A visible top-level window of this class, or null.
QWidget* visibleDialog(const char* className);
/// Presses a button of a message box or dialog by its text; false when it has none.
bool answer(QWidget* box, const QString& text);
/// Chooses an entry of the menu behind a button of the tool bar; false when it is not to be had.
bool trigger(QWidget* window, const char* action);
/// Fills what a template still lacks: a value of the list, or the words.
void fillGaps(QWidget* dialog, const QString& words);
} // namespace TourHands
