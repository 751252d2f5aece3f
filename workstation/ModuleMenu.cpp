#include "ModuleMenu.h"

#include "CVrkCliSes.h"

ModuleMenu::ModuleMenu(CVrkCliSes* session, QWidget* parent)
    : QMenu(parent), m_session(session), m_changeUser(new QAction(tr("Сменить пользователя…"), this))
{
    setObjectName(QStringLiteral("moduleMenu"));
    m_changeUser->setObjectName(QStringLiteral("changeUserAction"));
    m_changeUser->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_U);
    connect(this, &QMenu::aboutToShow, this, &ModuleMenu::fill);
    fill();
}

const QVector<ModuleMenu::Entry>& ModuleMenu::entries()
{
    static const QVector<Entry> all{
        {QStringLiteral("logbook"), tr("Оперативный журнал"), QString()},
        {QStringLiteral("template"), tr("Конфигуратор шаблонов"), QString()},
        {QStringLiteral("converter"), tr("Конвертер шаблонов"), QStringLiteral("ADMINISTRATOR")},
    };
    return all;
}

void ModuleMenu::fill()
{
    removeAction(m_changeUser);
    clear();
    for (const Entry& entry : entries()) {
        if (!entry.right.isEmpty() && !m_session->OperationRights(entry.right.toLatin1().constData()))
            continue;
        QAction* action = addAction(entry.title);
        action->setObjectName(entry.name + QStringLiteral("Action"));
        connect(action, &QAction::triggered, this, [this, name = entry.name] { emit moduleChosen(name); });
    }
    addSeparator();
    addAction(m_changeUser);
}
