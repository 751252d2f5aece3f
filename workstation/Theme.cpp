#include "Theme.h"

#include "ThemeStyle.h"

#include <QApplication>
#include <QPalette>
#include <QPointer>
#include <QSettings>
#include <QStyle>
#include <QVector>
#include <QWidget>

namespace
{
const char* const settingsKey = "theme";

QString& inForce()
{
    static QString name = QStringLiteral("system");
    return name;
}

/// Qt's light colours, with darker shades for disabled and dim texts, so that they are legible.
QPalette lightPalette()
{
    const QColor dim(0x66, 0x6B, 0x70);
    QPalette palette = QApplication::style()->standardPalette();
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xB2));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x66, 0x72, 0x7D));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette darkPalette()
{
    const QColor window(0x2B, 0x2E, 0x33);
    const QColor base(0x1F, 0x21, 0x25);
    const QColor text(0xE3, 0xE5, 0xE8);
    const QColor dim(0xA8, 0xAD, 0xB4);

    QPalette palette(QColor(0x3A, 0x3E, 0x44), window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x29, 0x2E));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, QColor(0xFF, 0x6B, 0x6B));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, QColor(0x6C, 0xB2, 0xFF));
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x65, 0xA8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x45, 0x4A, 0x52));
    return palette;
}

/// Widgets with a style sheet, and those inside of them, keep their palette until the sheet is set again.
void colourWidgetsWithSheets()
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

/// Without a style of the desktop, Qt's plain one is used: replace it by ours. Colours of the desktop are
/// kept.
void drawPlainStyleOurWay()
{
    const QStyle* style = QApplication::style();
    if (style->objectName() != QLatin1String("fusion") || dynamic_cast<const ThemeStyle*>(style))
        return;
    const QPalette colours = QApplication::palette();
    const bool hasOwnColours = colours != style->standardPalette();
    QApplication::setStyle(new ThemeStyle);
    QApplication::setPalette(hasOwnColours ? colours : lightPalette());
}
} // namespace

bool Theme::apply(const QString& name)
{
    if (name == QLatin1String("system")) {
        drawPlainStyleOurWay();
    } else {
        const bool dark = name == QLatin1String("dark");
        if (!dark && name != QLatin1String("light"))
            return false;
        // A style of the desktop would mix in its own colours.
        QApplication::setStyle(new ThemeStyle); // the application owns it
        QApplication::setPalette(dark ? darkPalette() : lightPalette());
        colourWidgetsWithSheets();
    }
    inForce() = name;
    return true;
}

QString Theme::current()
{
    return inForce();
}

QString Theme::remembered()
{
    return QSettings().value(QLatin1String(settingsKey), QStringLiteral("system")).toString();
}

void Theme::toggle()
{
    const bool dark = QApplication::palette().color(QPalette::Base).lightness() < 128;
    apply(dark ? QStringLiteral("light") : QStringLiteral("dark"));
    QSettings().setValue(QLatin1String(settingsKey), current());
}
