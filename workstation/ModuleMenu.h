#pragma once

#include "PluginCatalog.h"

#include <QMenu>
#include <QString>

class CVrkCliSes;

/// The menu behind "Модули" in the status line: the modules that the user may open, and the change of the user. It lists
/// what the rights of the moment allow.
class ModuleMenu : public QMenu
{
    Q_OBJECT

public:
    ModuleMenu(CVrkCliSes* session, const PluginCatalog& catalog, QWidget* parent = nullptr);

    /// What "Сменить пользователя" triggers; it has a key of its own and belongs to the menu.
    QAction* changeUserAction() const { return m_changeUser; }
    /// "Вид по умолчанию": the window is to look as its module made it.
    QAction* ownViewAction() const { return m_ownView; }

signals:
    void moduleChosen(const QString& name);

private:
    void fill();

    CVrkCliSes* m_session;
    const PluginCatalog& m_catalog;
    QAction* m_changeUser;
    QAction* m_ownView;
};
