#include "RecordEntries.h"

#include "Bookmarks.h"
#include "CVrkCliApp.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QMenu>
#include <QToolTip>

namespace
{
/// An action whose key works while the view has the focus, and which is disabled in a menu without a record.
QAction* entry(QMenu* menu, QWidget* view, const QString& text, const QKeySequence& key,
               const std::function<QByteArray()>& record)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(action);
    QObject::connect(menu, &QMenu::aboutToShow, action,
                     [action, record] { action->setEnabled(!record().isEmpty()); });
    // The key must work after a menu that was shown without a record.
    QObject::connect(menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    return action;
}

void appendBookmark(QMenu* menu, QWidget* view, CVrkCliApp* app, const std::function<QByteArray()>& record)
{
    QAction* action = entry(menu, view, QMenu::tr("Закладка"), QKeySequence(Qt::CTRL | Qt::Key_B), record);
    action->setObjectName(QStringLiteral("bookmarkAction"));
    action->setCheckable(true);
    QObject::connect(menu, &QMenu::aboutToShow, action, [action, app, record] {
        action->setChecked(Bookmarks(app->settings()).contains(record()));
    });
    QObject::connect(action, &QAction::triggered, app, [app, view, action, record] {
        const QByteArray key = record();
        if (key.isEmpty())
            return;
        const bool isSet = Bookmarks(app->settings()).toggle(key);
        action->setChecked(isSet);
        // A key that shows nothing would be pressed again.
        const auto* area = qobject_cast<const QAbstractScrollArea*>(view);
        const QPoint place = (area ? area->viewport() : view)->mapToGlobal(QPoint(20, 20));
        QToolTip::showText(
            place, isSet ? QMenu::tr("Закладка поставлена: модуль «Закладки»") : QMenu::tr("Закладка убрана"),
            view);
    });
}
} // namespace

void RecordEntries::append(QMenu* menu, QWidget* view, CVrkCliApp* app,
                           const std::function<QByteArray()>& key)
{
    menu->addSeparator();
    appendBookmark(menu, view, app, key);
    for (const CVrkCliApp::RecordEntry& one : app->recordEntries()) {
        QAction* action = entry(menu, view, one.title, one.key, key);
        action->setObjectName(one.module + QStringLiteral("Action"));
        QObject::connect(action, &QAction::triggered, app, [app, key, module = one.module] {
            if (const QByteArray record = key(); !record.isEmpty())
                app->notifyModule(module, QStringLiteral("showRecord"), QString::fromUtf8(record));
        });
    }
}
