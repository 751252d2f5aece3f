#include "Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleOption>

namespace
{
const char* const settingsKey = "theme";

QString& inForce()
{
    static QString name = QStringLiteral("system");
    return name;
}

/// The style of both themes: its close buttons of tabs have the colour of the text, where the toolkit's own are black.
class ThemeStyle : public QProxyStyle
{
public:
    ThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) { setObjectName(QStringLiteral("fusion")); }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element != PE_IndicatorTabClose) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        constexpr qreal armShare = 0.22;
        const bool isUnderMouse = option->state.testFlag(State_MouseOver);
        const QRectF place(option->rect);
        const qreal arm = qMin(place.width(), place.height()) * armShare;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        if (isUnderMouse) {
            painter->setBrush(option->palette.brush(QPalette::Highlight));
            painter->drawRoundedRect(place.adjusted(1, 1, -1, -1), 3, 3);
        }
        painter->setPen(QPen(
            option->palette.color(isUnderMouse ? QPalette::HighlightedText : QPalette::WindowText), 1.6));
        painter->translate(place.center());
        painter->drawLine(QPointF(-arm, -arm), QPointF(arm, arm));
        painter->drawLine(QPointF(-arm, arm), QPointF(arm, -arm));
        painter->restore();
    }
};

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
        QApplication::setStyle(new ThemeStyle); // the application owns it
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
