#include "StyleSheets.h"

#include <QApplication>
#include <QPointer>
#include <QVector>
#include <QWidget>

void StyleSheets::setAgain()
{
    QVector<QPointer<QWidget>> widgets;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->styleSheet().isEmpty())
            widgets.append(widget);
    }
    for (const QPointer<QWidget>& widget : qAsConst(widgets)) {
        if (!widget)
            continue;
        const QString sheet = widget->styleSheet();
        widget->setStyleSheet(QString());
        widget->setStyleSheet(sheet);
    }
}
