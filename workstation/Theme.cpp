#include "Theme.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>

namespace
{
const char* const settingsKey = "theme";

QString& inForce()
{
    static QString name = QStringLiteral("system");
    return name;
}

QPalette darkPalette()
{
    const QColor window(0x2B, 0x2E, 0x33);
    const QColor base(0x1F, 0x21, 0x25);
    const QColor text(0xE3, 0xE5, 0xE8);
    const QColor dim(0x8A, 0x8F, 0x96);

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
} // namespace

bool Theme::apply(const QString& name)
{
    if (name != QLatin1String("system")) {
        const bool dark = name == QLatin1String("dark");
        if (!dark && name != QLatin1String("light"))
            return false;
        // A style of the desktop would mix its own colours in.
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
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
