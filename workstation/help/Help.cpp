#include "Help.h"

#include "HelpWindow.h"

#include <QApplication>
#include <QKeyEvent>

Help::Help(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

Help::~Help()
{
    delete m_window;
}

/// A window that blocks all others gets a guide of its own, which it does not block.
HelpWindow* Help::window()
{
    if (QWidget* modal = QApplication::activeModalWidget()) {
        auto* own = modal->findChild<HelpWindow*>(QString(), Qt::FindDirectChildrenOnly);
        return own ? own : new HelpWindow(modal);
    }
    if (!m_window) {
        m_window = new HelpWindow;
        m_window->setAttribute(Qt::WA_QuitOnClose, false);
    }
    return m_window;
}

void Help::showFor(const QWidget* widget)
{
    HelpWindow* help = window();
    help->showSection(qMax(0, help->guide().sectionOf(widget)));
}

void Help::showSection(const QString& title)
{
    HelpWindow* help = window();
    help->showSection(qMax(0, help->guide().section(title)));
}

bool Help::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    auto* front = static_cast<QWidget*>(watched);
    if (qobject_cast<HelpWindow*>(front->window()))
        return false;
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close())
            break;
    showFor(front);
    return true;
}
