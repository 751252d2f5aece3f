#include "WidgetCut.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QTabBar>
#include <QTextDocument>
#include <QToolButton>

namespace
{
/// Tolerated difference in pixels between metrics and painting.
constexpr int slack = 2;

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

QString shortBy(const QWidget* widget, const QString& text, int room)
{
    int wide = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines)
        wide = qMax(wide, widget->fontMetrics().horizontalAdvance(line));
    if (wide <= room + slack)
        return QString();
    return QStringLiteral("\"%1\" needs %2 pixels, has %3").arg(text).arg(wide).arg(room);
}

QString cutLabel(const QLabel* label)
{
    const QRect room = label->contentsRect();
    if (label->text().isEmpty())
        return QString();
    if (label->wordWrap()) {
        const int tall = label->heightForWidth(label->width());
        return tall > label->height() + slack ? QStringLiteral("\"%1\" needs a height of %2 pixels, has %3")
                                                    .arg(label->text())
                                                    .arg(tall)
                                                    .arg(label->height())
                                              : QString();
    }
    if (Qt::mightBeRichText(label->text()))
        return label->sizeHint().width() > label->width() + slack ? QStringLiteral("rich text too wide")
                                                                  : QString();
    return shortBy(label, plain(label->text()), room.width() - 2 * label->margin());
}

QString cutButton(const QAbstractButton* button)
{
    if (button->objectName() == QLatin1String("qt_toolbar_ext_button"))
        return QStringLiteral("buttons of the tool bar have no room");
    const auto* tool = qobject_cast<const QToolButton*>(button);
    if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull())
        return QString();
    int room = button->width();
    const bool isBeside = !tool || tool->toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
    if (!button->icon().isNull() && isBeside)
        room -= button->iconSize().width();
    if (button->inherits("QCheckBox") || button->inherits("QRadioButton"))
        room -= button->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, button);
    return shortBy(button, plain(button->text()), room);
}

QString cutTabs(const QTabBar* bar)
{
    for (int i = 0; i < bar->count(); ++i) {
        const QRect tab = bar->tabRect(i);
        const QString cut = shortBy(bar, plain(bar->tabText(i)), tab.width());
        if (!cut.isEmpty())
            return cut;
        if (bar->isTabVisible(i) && !bar->rect().adjusted(-slack, -slack, slack, slack).contains(tab))
            return QStringLiteral("tab \"%1\" lies outside").arg(bar->tabText(i));
    }
    return QString();
}

/// Its own scroll area may show a part of it; all other parents must show all of it.
QString outsideParent(const QWidget* widget)
{
    QRect rect = widget->rect();
    for (const QWidget* inner = widget; !inner->isWindow(); inner = inner->parentWidget()) {
        const QWidget* outer = inner->parentWidget();
        if (qobject_cast<const QAbstractScrollArea*>(outer->parentWidget()) ||
            qobject_cast<const QAbstractScrollArea*>(outer))
            return QString();
        rect.translate(inner->pos());
        if (!outer->rect().adjusted(-slack, -slack, slack, slack).contains(rect))
            return QStringLiteral("reaches out of %1 %2")
                .arg(QLatin1String(outer->metaObject()->className()), outer->objectName());
    }
    return QString();
}

bool showsText(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
           qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget);
}

QString cutText(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return cutLabel(label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return cutButton(button);
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget))
        return cutTabs(tabs);
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        return shortBy(group, plain(group->title()), group->width());
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->isEditable()
                   ? QString()
                   : shortBy(combo, combo->currentText(), combo->width() - combo->height() / 2);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        const bool isFixed = qobject_cast<const QAbstractSpinBox*>(line->parentWidget());
        return isFixed ? shortBy(line, line->displayText(), line->contentsRect().width()) : QString();
    }
    return QString();
}
} // namespace

QString widgetCut(const QWidget* widget)
{
    if (showsText(widget)) {
        const QString outside = outsideParent(widget);
        if (!outside.isEmpty())
            return outside;
    }
    return cutText(widget);
}
