#include "RecordEntries.h"

#include "CVrkCliApp.h"

#include <QAction>
#include <QMenu>

void RecordEntries::append(QMenu* menu, QWidget* view, CVrkCliApp* app,
                           const std::function<QByteArray()>& key)
{
    if (!app->recordEntries().isEmpty())
        menu->addSeparator();
    for (const CVrkCliApp::RecordEntry& entry : app->recordEntries()) {
        QAction* action = menu->addAction(entry.title);
        action->setObjectName(entry.module + QStringLiteral("Action"));
        action->setShortcut(entry.key);
        action->setShortcutContext(Qt::WidgetShortcut);
        view->addAction(action);
        QObject::connect(action, &QAction::triggered, app, [app, key, module = entry.module] {
            if (const QByteArray record = key(); !record.isEmpty())
                app->notifyModule(module, QStringLiteral("showRecord"), QString::fromUtf8(record));
        });
        QObject::connect(menu, &QMenu::aboutToShow, action,
                         [action, key] { action->setEnabled(!key().isEmpty()); });
        // The key must work after a menu that was shown without a record.
        QObject::connect(menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }
}
