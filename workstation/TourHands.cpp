#include "TourHands.h"

#include "CVrkCliMod.h"
#include "Workstation.h"

#include <algorithm>
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

QString tr(const char* text)
{
    return QCoreApplication::translate("Tour", text);
}
} // namespace

void TourHands::require(bool condition, const QString& fault)
{
    if (!condition)
        throw Fault{fault};
}

void TourHands::signIn(Workstation* desk, const QString& store, const QString& login,
                       const QString& department, bool remembers)
{
    Options options;
    options.keepsTexts = remembers;
    options.store = store;
    options.user = login;
    options.department = department;
    require(desk->enter(options), desk->errorText());
}

CVrkCliMod* TourHands::started(Workstation* desk, const QString& module, int height)
{
    CVrkCliMod* window = desk->startModule(module);
    require(window, desk->errorText());
    window->resize(1280, height);
    return window;
}

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

void TourHands::typeInto(QWidget* field, const QString& text)
{
    field->setFocus();
    QMetaObject::invokeMethod(field, "selectAll");
    type(field->window(), text);
}

QWidget* TourHands::findDialog(const char* className)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits(className))
            return widget;
    }
    return nullptr;
}

QWidget* TourHands::visibleDialog(const char* className)
{
    QWidget* dialog = findDialog(className);
    require(dialog, tr("Окно %1 не открылось.").arg(QLatin1String(className)));
    return dialog;
}

QWidget* TourHands::home(QWidget* window)
{
    return child<QWidget>(window, "homeLogbook");
}

QAbstractItemView* TourHands::records(QWidget* window)
{
    return child<QAbstractItemView>(home(window), "recordsTable");
}

int TourHands::countOfRecords(QWidget* window)
{
    return records(window)->model()->rowCount();
}

void TourHands::addRecord(QWidget* window, const std::function<void()>& act, const QString& fault)
{
    const int before = countOfRecords(window);
    act();
    require(wait([&] { return countOfRecords(window) > before; }), fault);
}

bool TourHands::findRecord(QWidget* window, const QString& words, const std::function<bool()>& fits)
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

bool TourHands::isAnswered(QWidget* box, const QString& text)
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

void TourHands::answer(QWidget* box, const QString& text)
{
    require(isAnswered(box, text), tr("В окне нет ответа «%1».").arg(text));
}

void TourHands::click(const QWidget* window, const char* name)
{
    auto* button = child<QAbstractButton>(window, name);
    require(button->isEnabled(), tr("Кнопка %1 недоступна.").arg(QLatin1String(name)));
    button->click();
    settle();
}

QWidget* TourHands::openedBy(const QWidget* window, const char* button, const char* className)
{
    click(window, button);
    return visibleDialog(className);
}

void TourHands::trigger(QWidget* window, const char* action)
{
    auto* entry = child<QAction>(window, action);
    require(entry->isEnabled() && entry->isVisible(),
            tr("Действие %1 недоступно.").arg(QLatin1String(action)));
    entry->trigger();
    settle();
}

QWidget* TourHands::triggered(QWidget* window, const char* action, const char* className)
{
    trigger(window, action);
    return visibleDialog(className);
}

void TourHands::whenShown(const char* className, const std::function<void(QWidget*)>& act)
{
    QTimer::singleShot(breathMs, qApp, [className, act] {
        if (QWidget* window = findDialog(className))
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
            if (findDialog("SuggestionPopup"))
                press(dialog, Qt::Key_Return);
        }
        if (dialog->focusWidget() == field) // accepting a suggestion moves on by itself
            press(dialog, Qt::Key_Tab);
        settle();
    }
}

void TourHands::chooseWorker(const QString& name)
{
    QWidget* structure = visibleDialog("OrgStructDialog");
    type(structure, name);
    press(structure, Qt::Key_Return);
    settle();
    require(!structure->isVisible(), tr("Работника выбрать нельзя: %1.").arg(name));
}

QMenu* TourHands::recordMenu(QWidget* window)
{
    const QPoint place = records(window)->visualRect(records(window)->currentIndex()).center();
    QMetaObject::invokeMethod(records(window), "customContextMenuRequested", Q_ARG(QPoint, place));
    settle();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    require(menu, tr("Меню записи не открылось."));
    return menu;
}

void TourHands::triggerEntry(QWidget* window, const QString& text)
{
    QMenu* menu = recordMenu(window);
    menu->close();
    const QList<QAction*> entries = menu->actions();
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const QAction* entry) {
        return entry->text() == text && entry->isEnabled();
    });
    require(found != entries.end(), tr("В меню записи недоступно «%1».").arg(text));
    (*found)->trigger();
    settle();
}
