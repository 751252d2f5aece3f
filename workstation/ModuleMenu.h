#pragma once

#include <QMenu>
#include <QString>
#include <QVector>

class CVrkCliSes;

/// The menu behind "Модули" in the status line: the modules that the user may open, and the change of the user. It lists
/// what the rights of the moment allow.
class ModuleMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ModuleMenu(CVrkCliSes* session, QWidget* parent = nullptr);

    /// What "Сменить пользователя" triggers; it has a key of its own and belongs to the menu.
    QAction* changeUserAction() const { return m_changeUser; }

    struct Entry {
        QString name;  ///< as the plug-in knows it
        QString title; ///< as the user does
        QString right; ///< that opens it; empty: the module itself decides what it shows to whom
    };
    static const QVector<Entry>& entries();

signals:
    void moduleChosen(const QString& name);

private:
    void fill();

    CVrkCliSes* m_session;
    QAction* m_changeUser;
};
