#include "ModuleMenu.h"

#include "CVrkCliSes.h"

ModuleMenu::ModuleMenu(CVrkCliSes* session, const PluginCatalog& catalog, QWidget* parent)
    : QMenu(parent),
      m_session(session),
      m_catalog(catalog),
      m_changeUser(new QAction(tr("Сменить пользователя…"), this))
{
    setObjectName(QStringLiteral("moduleMenu"));
    m_changeUser->setObjectName(QStringLiteral("changeUserAction"));
    m_changeUser->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_U);
    connect(this, &QMenu::aboutToShow, this, &ModuleMenu::fill);
    fill();
}

void ModuleMenu::fill()
{
    removeAction(m_changeUser);
    clear();
    for (const PluginCatalog::Module& entry : m_catalog.modules()) {
        if (!entry.right.isEmpty() && !m_session->OperationRights(entry.right.toLatin1().constData()))
            continue;
        QAction* action = addAction(entry.title);
        action->setObjectName(entry.name + QStringLiteral("Action"));
        connect(action, &QAction::triggered, this, [this, name = entry.name] { emit moduleChosen(name); });
    }
    addSeparator();
    addAction(m_changeUser);
}
