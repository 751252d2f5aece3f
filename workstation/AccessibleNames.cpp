#include "AccessibleNames.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QRegularExpression>

namespace
{
QString withoutKeys(const QString& toolTip)
{
    static const QRegularExpression keys(QStringLiteral("\\s*\\([^()]*\\)$"));
    return QString(toolTip).remove(keys);
}
} // namespace

AccessibleNames::AccessibleNames(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool AccessibleNames::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTipChange && event->type() != QEvent::Polish)
        return false;
    constexpr const char* given = "nameOfToolTip"; // set by us, and to be updated
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button && button->text().isEmpty() &&
        (button->accessibleName().isEmpty() || button->property(given).toBool())) {
        button->setAccessibleName(withoutKeys(button->toolTip()));
        button->setProperty(given, true);
    }
    return false;
}
