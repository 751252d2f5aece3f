#include "Theme.h"

#include "LookChange.h"
#include "ThemeStyle.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>

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

/// For eyes that see badly: black and white, and yellow for what is selected.
QPalette contrastPalette()
{
    const QColor text(Qt::white);
    const QColor dim(0xC8, 0xC8, 0xC8);
    const QColor mark(0xFF, 0xE6, 0x00);

    QPalette palette(QColor(0x1C, 0x1C, 0x1C), Qt::black);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                     QPalette::ToolTipText, QPalette::BrightText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::AlternateBase, QColor(0x14, 0x14, 0x14));
    palette.setColor(QPalette::ToolTipBase, Qt::black);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Link, QColor(0x7F, 0xD4, 0xFF));
    palette.setColor(QPalette::LinkVisited, QColor(0xE0, 0xB0, 0xFF));
    palette.setColor(QPalette::Highlight, mark);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x8A, 0x7D, 0x00));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, Qt::black);
    return palette;
}

/// How the desktop draws; found before the first change.
struct Desktop {
    QString style = QApplication::style()->objectName();
    QPalette colours = QApplication::palette();
};

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

bool Theme::isKnown(const QString& name)
{
    return names().contains(name);
}

QStringList Theme::names()
{
    return {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("system"),
            QStringLiteral("contrast")};
}

bool Theme::apply(const QString& name)
{
    static const Desktop desktop;
    if (!isKnown(name))
        return false;
    const LookChange change;
    if (name == QLatin1String("system")) {
        if (inForce() != name) {
            QApplication::setStyle(desktop.style);
            QApplication::setPalette(desktop.colours);
        }
        drawPlainStyleOurWay();
    } else {
        // A style of the desktop would mix in its own colours.
        QApplication::setStyle(new ThemeStyle); // the application owns it
        QApplication::setPalette(name == QLatin1String("dark")       ? darkPalette()
                                 : name == QLatin1String("contrast") ? contrastPalette()
                                                                     : lightPalette());
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
    const QString name = QSettings().value(QLatin1String(settingsKey)).toString();
    return isKnown(name) ? name : QStringLiteral("system");
}

void Theme::toggle()
{
    const bool dark = QApplication::palette().color(QPalette::Base).lightness() < 128;
    apply(dark ? QStringLiteral("light") : QStringLiteral("dark"));
    QSettings().setValue(QLatin1String(settingsKey), current());
}
