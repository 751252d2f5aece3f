#include "KeyTips.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHelpEvent>
#include <QKeySequence>
#include <QToolTip>

KeyTips::KeyTips(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

QString KeyTips::tipOf(const QObject* object)
{
    const auto* button = qobject_cast<const QAbstractButton*>(object);
    if (!button || button->toolTip().isEmpty())
        return {};
    const QVariant shown = button->property("shownKey");
    const QString key =
        shown.isValid() ? shown.toString() : button->shortcut().toString(QKeySequence::PortableText);
    const QString tip = button->toolTip();
    if (key.isEmpty() || QString(tip).remove(QLatin1Char(' ')).contains(key))
        return tip;
    QString spaced = key;
    spaced.replace(QLatin1Char('+'), QStringLiteral(" + "));
    return QStringLiteral("%1 (%2)").arg(tip, spaced);
}

bool KeyTips::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return false;
    const QString tip = tipOf(watched);
    if (tip.isEmpty() || tip == static_cast<QWidget*>(watched)->toolTip())
        return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, static_cast<QWidget*>(watched));
    return true;
}
