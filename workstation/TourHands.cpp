#include "TourHands.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace
{
constexpr int patienceMs = 10000;
constexpr int animationMs = 400; ///< longer than the toolkit's own
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

bool TourHands::trigger(QWidget* window, const char* action)
{
    auto* entry = window->findChild<QAction*>(QLatin1String(action));
    if (!entry || !entry->isEnabled() || !entry->isVisible())
        return false;
    entry->trigger();
    settle();
    return true;
}

void TourHands::fillGaps(QWidget* dialog, const QString& words)
{
    for (int i = 0; auto* editor = dialog->findChild<QWidget*>(QStringLiteral("parameterInput_%1").arg(i));
         ++i) {
        auto* line = qobject_cast<QLineEdit*>(editor);
        auto* text = qobject_cast<QPlainTextEdit*>(editor);
        auto* list = qobject_cast<QComboBox*>(editor);
        if ((line && !line->text().isEmpty()) || (text && !text->toPlainText().isEmpty()))
            continue;
        editor->setFocus();
        if (list) {
            if (list->currentIndex() <= 0)
                press(dialog, Qt::Key_Down);
            continue;
        }
        type(dialog, words);
        if (visibleDialog("SuggestionPopup"))
            press(dialog, Qt::Key_Escape);
        press(dialog, Qt::Key_Tab);
    }
    settle();
}
