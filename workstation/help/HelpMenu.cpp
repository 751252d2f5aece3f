#include "HelpMenu.h"

#include "GuideText.h"

HelpMenu::HelpMenu(QWidget* parent) : QMenu(tr("Справка"), parent)
{
    setObjectName(QStringLiteral("helpMenu"));
    const auto add = [this](const QString& text, const char* name, const QKeySequence& key) {
        QAction* action = addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        return action;
    };
    connect(add(tr("Руководство"), "guideAction", QKeySequence(Qt::Key_F1)), &QAction::triggered, this,
            &HelpMenu::guideWanted);
    connect(add(tr("Клавиши"), "keysAction", QKeySequence(Qt::SHIFT | Qt::Key_F1)), &QAction::triggered, this,
            [this] { emit sectionWanted(GuideText::keys()); });
    connect(add(tr("Что нового"), "newsAction", {}), &QAction::triggered, this,
            [this] { emit sectionWanted(GuideText::news()); });
    connect(add(tr("О программе"), "aboutAction", {}), &QAction::triggered, this, &HelpMenu::aboutWanted);
}
