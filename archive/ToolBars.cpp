#include "ToolBars.h"

#include <QLabel>
#include <QMainWindow>
#include <QToolBar>

QToolBar* ToolBars::add(QMainWindow* window, const char* name)
{
    auto* bar = new QToolBar(window);
    bar->setObjectName(QLatin1String(name));
    bar->setFloatable(false);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    window->addToolBar(Qt::TopToolBarArea, bar);
    return bar;
}

void ToolBars::addLabelled(QToolBar* bar, const QString& text, QWidget* control)
{
    auto* label = new QLabel(text, bar);
    label->setBuddy(control);
    label->setMargin(4);
    bar->addWidget(label);
    bar->addWidget(control);
}
