#include "ModuleMenu.h"

#include "CVrkCliSes.h"
#include "HelpMenu.h"

ModuleMenu::ModuleMenu(CVrkCliSes* session, const PluginCatalog& catalog, QWidget* parent)
    : QMenu(parent),
      m_session(session),
      m_catalog(catalog),
      m_changeUser(new QAction(tr("Сменить пользователя…"), this)),
      m_ownView(new QAction(tr("Вид по умолчанию"), this)),
      m_settings(new QAction(tr("Настройки…"), this)),
      m_help(new HelpMenu(this))
{
    setObjectName(QStringLiteral("moduleMenu"));
    m_changeUser->setObjectName(QStringLiteral("changeUserAction"));
    m_changeUser->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_U);
    m_ownView->setObjectName(QStringLiteral("ownViewAction"));
    m_ownView->setToolTip(tr("Вернуть этому окну его место, размеры панелей и ширину столбцов"));
    m_settings->setObjectName(QStringLiteral("settingsAction"));
    m_settings->setShortcut(Qt::CTRL | Qt::Key_Comma);
    m_settings->setToolTip(tr("Буквы, цвета, звук и сообщения, столбцы, проверка правописания"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &ModuleMenu::fill);
    fill();
}

void ModuleMenu::fill()
{
    removeAction(m_changeUser);
    removeAction(m_ownView);
    removeAction(m_settings);
    removeAction(m_help->menuAction());
    clear();
    for (const PluginCatalog::Module& entry : m_catalog.modules()) {
        if (entry.isOfRecord ||
            (!entry.right.isEmpty() && !m_session->OperationRights(entry.right.toLatin1().constData())))
            continue;
        QAction* action = addAction(entry.title);
        action->setShortcut(QKeySequence(entry.key));
        action->setObjectName(entry.name + QStringLiteral("Action"));
        connect(action, &QAction::triggered, this, [this, name = entry.name] { emit moduleChosen(name); });
    }
    addSeparator();
    addAction(m_ownView);
    addAction(m_settings);
    addMenu(m_help);
    addAction(m_changeUser);
}
