#include "PlainLabels.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>

PlainLabels::PlainLabels(QObject* parent) : QObject(parent)
{
    if (QCoreApplication* application = QCoreApplication::instance())
        application->installEventFilter(this);
}

bool PlainLabels::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        auto* label = qobject_cast<QLabel*>(watched);
        if (label && label->textFormat() == Qt::AutoText)
            label->setTextFormat(Qt::PlainText);
    }
    return QObject::eventFilter(watched, event);
}
