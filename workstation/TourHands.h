#pragma once

#include <functional>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

class CVrkCliMod;
class QMenu;
class Workstation;

/// Keys and clicks of the tour, like those of a dispatcher, on any visible window. What cannot be done
/// throws a Fault.
namespace TourHands
{
/// Why a scene cannot be played, for the user. Never thrown through Qt's event loop.
struct Fault {
    QString text;
};
/// Throws the fault unless the condition is true.
void require(bool condition, const QString& fault);

/// Signs in at a desk, which keeps typed texts and the history that it has seen only if \a remembers is true.
void signIn(Workstation* desk, const QString& store, const QString& login, const QString& department = {},
            bool remembers = false);
/// Opens the window of a module, with this height.
CVrkCliMod* started(Workstation* desk, const QString& module, int height);

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
/// Types into a widget that gets the focus, instead of the text in it.
void typeInto(QWidget* field, const QString& text);
/// The visible window of this class, or null.
QWidget* findDialog(const char* className);
QWidget* visibleDialog(const char* className);
/// Runs a function as soon as a window of this class is visible. Call it before the code that shows the
/// window, which may not return.
void whenShown(const char* className, const std::function<void(QWidget*)>& act);

/// The object of this name in a window.
template <class T>
T* child(const QObject* window, const char* name)
{
    auto* found = window->findChild<T*>(QLatin1String(name));
    require(found, QCoreApplication::translate("Tour", "В окне нет %1.").arg(QLatin1String(name)));
    return found;
}
/// The page of the user's own department; other tabs have widgets with the same names.
QWidget* home(QWidget* window);
/// Its records.
QAbstractItemView* records(QWidget* window);
int countOfRecords(QWidget* window);
/// Does something and waits until a record is added; throws the fault if none is.
void addRecord(QWidget* window, const std::function<void()>& act, const QString& fault);
/// Makes the last row current whose text contains these words and that fits once it is current; false if
/// there is none.
bool findRecord(QWidget* window, const QString& words, const std::function<bool()>& fits = {});
/// Scrolls to the first record after midnight.
void showMidnight(QWidget* window);

/// Presses a button of a message box or dialog by its text; false if there is none.
bool isAnswered(QWidget* box, const QString& text);
/// The same; throws if there is none.
void answer(QWidget* box, const QString& text);
/// Presses a button by its object name.
void click(const QWidget* window, const char* button);
/// The window of this class that a button opens.
QWidget* openedBy(const QWidget* window, const char* button, const char* className);
/// Triggers an entry of the menu of a tool bar button.
void trigger(QWidget* window, const char* action);
/// The window of this class that such an entry opens.
QWidget* triggered(QWidget* window, const char* action, const char* className);
/// Types values into the filler's editors, starting at the one with the focus: Enter takes a suggestion,
/// Tab goes on. An empty value does not change its editor.
void fill(QWidget* dialog, const QStringList& values);
/// Chooses a worker in the visible organization tree, by the beginning of his name.
void chooseWorker(const QString& name);
/// Opens the menu of the current record.
QMenu* recordMenu(QWidget* window);
/// Triggers the entry of this menu with this text.
void triggerEntry(QWidget* window, const QString& text);
} // namespace TourHands
