#pragma once

#include <QMenu>

/// The entry "Справка" of the menu "Модули": guide, keys, news, and facts about the program.
class HelpMenu : public QMenu
{
    Q_OBJECT

public:
    explicit HelpMenu(QWidget* parent = nullptr);

signals:
    /// The guide at the section of the window in front.
    void guideWanted();
    /// The section with this title.
    void sectionWanted(const QString& title);
    void aboutWanted();
};
