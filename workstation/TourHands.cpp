#include "TourHands.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QTableView>
#include <QTimer>

namespace
{
constexpr int patienceMs = 10000;
constexpr int breathMs = 20;
constexpr int animationMs = 400; ///< longer than Qt's own
} // namespace

bool TourHands::wait(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > patienceMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    return true;
}

void TourHands::settle()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void TourHands::settleAnimations()
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < animationMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void TourHands::press(QWidget* window, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    if (!window->isActiveWindow()) // there may be no window manager to do it
        QApplication::setActiveWindow(window);
    QWidget* receiver = window->focusWidget() ? window->focusWidget() : window;
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(receiver, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(receiver, &up);
    QCoreApplication::processEvents();
}

void TourHands::type(QWidget* window, const QString& text)
{
    for (const QChar character : text)
        press(window, 0, Qt::NoModifier, QString(character));
    settle();
}

QWidget* TourHands::visibleDialog(const char* className)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits(className))
            return widget;
    }
    return nullptr;
}

QWidget* TourHands::home(QWidget* window)
{
    return window->findChild<QWidget*>(QStringLiteral("homeLogbook"));
}

QAbstractItemView* TourHands::records(QWidget* window)
{
    return home(window)->findChild<QAbstractItemView*>(QStringLiteral("recordsTable"));
}

bool TourHands::selectRecord(QWidget* window, const QString& words, const std::function<bool()>& fits)
{
    QAbstractItemView* view = records(window);
    const QAbstractItemModel* model = view->model();
    for (int row = model->rowCount() - 1; row >= 0; --row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            if (index.data().toString().contains(words)) {
                view->setCurrentIndex(index);
                if (fits && !fits())
                    break;
                view->scrollTo(index, QAbstractItemView::PositionAtCenter);
                settle();
                return true;
            }
        }
    }
    return false;
}

void TourHands::showMidnight(QWidget* window)
{
    auto* view = qobject_cast<QTableView*>(records(window));
    const QAbstractItemModel* model = view->model();
    const int column = view->horizontalHeader()->sortIndicatorSection();
    for (int row = 1; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, column);
        if (index.data().toString() < model->index(row - 1, column).data().toString()) {
            view->scrollTo(index, QAbstractItemView::PositionAtCenter);
            return;
        }
    }
}

bool TourHands::answer(QWidget* box, const QString& text)
{
    for (QAbstractButton* button : box->findChildren<QAbstractButton*>()) {
        QString shown = button->text();
        if (shown.remove(QLatin1Char('&')) == text) {
            button->click();
            settle();
            return true;
        }
    }
    return false;
}

bool TourHands::click(const QWidget* window, const char* name)
{
    auto* button = window->findChild<QAbstractButton*>(QLatin1String(name));
    if (!button || !button->isEnabled())
        return false;
    button->click();
    settle();
    return true;
}

QWidget* TourHands::openedBy(const QWidget* window, const char* button, const char* className)
{
    return click(window, button) ? visibleDialog(className) : nullptr;
}

bool TourHands::trigger(QWidget* window, const char* action)
{
    auto* entry = window->findChild<QAction*>(QLatin1String(action));
    if (!entry || !entry->isEnabled() || !entry->isVisible())
        return false;
    entry->trigger();
    settle();
    return true;
}

void TourHands::whenShown(const char* className, const std::function<void(QWidget*)>& act)
{
    QTimer::singleShot(breathMs, qApp, [className, act] {
        if (QWidget* window = visibleDialog(className))
            act(window);
        else
            whenShown(className, act);
    });
}

void TourHands::fill(QWidget* dialog, const QStringList& values)
{
    for (const QString& value : values) {
        const QWidget* field = dialog->focusWidget();
        if (!value.isEmpty()) {
            type(dialog, value);
            if (visibleDialog("SuggestionPopup"))
                press(dialog, Qt::Key_Return);
        }
        if (dialog->focusWidget() == field) // accepting a suggestion moves on by itself
            press(dialog, Qt::Key_Tab);
        settle();
    }
}

bool TourHands::chooseWorker(const QString& name)
{
    QWidget* structure = visibleDialog("OrgStructDialog");
    if (!structure)
        return false;
    type(structure, name);
    press(structure, Qt::Key_Return);
    settle();
    return !structure->isVisible();
}

QAction* TourHands::recordEntry(QWidget* window, const QString& text)
{
    const QPoint place = records(window)->visualRect(records(window)->currentIndex()).center();
    QMetaObject::invokeMethod(records(window), "customContextMenuRequested", Q_ARG(QPoint, place));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return nullptr;
    QAction* found = nullptr;
    for (QAction* action : menu->actions())
        if (action->text() == text && action->isEnabled())
            found = action;
    menu->close();
    return found;
}
