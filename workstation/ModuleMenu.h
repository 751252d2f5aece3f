#pragma once

#include "PluginCatalog.h"

#include <QMenu>
#include <QString>

class CVrkCliSes;
class HelpMenu;

/// The menu of the button "Модули" in the status line: the modules that the user may open, and the change
/// of user. It lists what the user's current rights allow.
class ModuleMenu : public QMenu
{
    Q_OBJECT

public:
    ModuleMenu(CVrkCliSes* session, const PluginCatalog& catalog, QWidget* parent = nullptr);

    /// The action for "Сменить пользователя"; it has its own shortcut and belongs to the menu.
    QAction* changeUserAction() const { return m_changeUser; }
    /// "Вид по умолчанию": restores the window's layout set by its module.
    QAction* ownViewAction() const { return m_ownView; }
    /// "Настройки…"; it has its own shortcut, too.
    QAction* settingsAction() const { return m_settings; }
    /// "Справка".
    HelpMenu* helpMenu() const { return m_help; }

signals:
    void moduleChosen(const QString& name);

private:
    void fill();

    CVrkCliSes* m_session;
    const PluginCatalog& m_catalog;
    QAction* m_changeUser;
    QAction* m_ownView;
    QAction* m_settings;
    HelpMenu* m_help;
};
