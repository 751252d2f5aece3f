#include "ThemeStyle.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>

namespace
{
constexpr int darkGround = 128; ///< lightness below which a background counts as dark
constexpr qreal focusWidth = 2;
constexpr qreal corner = 2.5;

QColor mixed(const QColor& first, const QColor& second, qreal share)
{
    const auto mix = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {mix(first.red(), second.red()), mix(first.green(), second.green()),
            mix(first.blue(), second.blue())};
}

void drawCross(QPainter* painter, const QRectF& place, qreal armShare, const QColor& color, qreal width)
{
    const qreal arm = qMin(place.width(), place.height()) * armShare;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
    painter->translate(place.center());
    painter->drawLine(QPointF(-arm, -arm), QPointF(arm, arm));
    painter->drawLine(QPointF(-arm, arm), QPointF(arm, -arm));
    painter->restore();
}

void drawFocus(QPainter* painter, const QRectF& place, const QPalette& palette, qreal width = focusWidth)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(ThemeStyle::focusColor(palette), width));
    const qreal inset = width / 2;
    painter->drawRoundedRect(place.adjusted(inset, inset, -inset, -inset), corner, corner);
    painter->restore();
}

void drawCellFocus(QPainter* painter, const QStyleOption* option)
{
    const bool isSelected = option->state & QStyle::State_Selected;
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(isSelected ? option->palette.color(QPalette::HighlightedText)
                               : ThemeStyle::focusColor(option->palette));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < darkGround;
}

/// The frame of a field: the one of Qt has almost the colour of the background and is invisible.
void drawFieldFrame(QPainter* painter, const QStyleOption* option)
{
    const QPalette& palette = option->palette;
    if (option->state & QStyle::State_HasFocus) {
        drawFocus(painter, QRectF(option->rect), palette);
    } else {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(
            QPen(mixed(palette.color(QPalette::Text), palette.color(QPalette::Window), 0.425), 1));
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
        painter->restore();
    }
}

/// A checked button: Qt's own shade is almost invisible.
void drawDown(QPainter* painter, const QStyleOption* option)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QColor mark = ThemeStyle::focusColor(option->palette);
    QColor veil = mark;
    veil.setAlphaF(isDark(option->palette) ? 0.12 : 0.22); // a light veil takes contrast from light letters
    painter->setBrush(veil);
    painter->setPen(QPen(mark, 1.4));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), corner, corner);
    painter->restore();
}

/// The background, frame and mark of a check box or a checkable button, in the colours of texts: legible on
/// every background.
void drawMark(QPainter* painter, const QStyleOption* option, bool isRound)
{
    const QPalette& palette = option->palette;
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const bool isLit = option->state & (QStyle::State_HasFocus | QStyle::State_MouseOver) &&
                       option->state & QStyle::State_Enabled;
    const qreal side = qMin(option->rect.width(), option->rect.height()) - 1;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(option->rect).center());

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(
        QPen(isLit ? ThemeStyle::focusColor(palette) : mixed(text, base, 0.7), isLit ? 1.6 : 1.2));
    painter->setBrush(option->state & QStyle::State_Sunken ? mixed(text, base, 0.2) : base);
    const QRectF frame = box.adjusted(0.6, 0.6, -0.6, -0.6);
    isRound ? painter->drawEllipse(frame) : painter->drawRoundedRect(frame, 2, 2);
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    if (option->state & QStyle::State_NoChange) {
        painter->setPen(QPen(text, 2));
        painter->drawLine(at(0.28, 0.5), at(0.72, 0.5));
    } else if (option->state & QStyle::State_On && isRound) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(text);
        painter->drawEllipse(box.center(), side * 0.25, side * 0.25);
    } else if (option->state & QStyle::State_On) {
        painter->setPen(QPen(text, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        painter->drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.28)}));
    }
    painter->restore();
}

/// The cross that clears a line edit, in the text colour at the time of painting.
class ClearIcon : public QIconEngine
{
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        drawCross(painter, QRectF(rect), 0.26, QApplication::palette().color(QPalette::Text), 1.8);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new ClearIcon(*this); }
};
} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStringLiteral("Fusion"))
{
    setObjectName(QStringLiteral("fusion"));
}

QColor ThemeStyle::focusColor(const QPalette& palette)
{
    return palette.color(QPalette::Active, isDark(palette) ? QPalette::Link : QPalette::Highlight);
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    switch (element) {
    case PE_IndicatorTabClose: {
        const bool isUnderMouse = option->state.testFlag(State_MouseOver);
        if (isUnderMouse) {
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(option->palette.brush(QPalette::Highlight));
            painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), 3, 3);
            painter->restore();
        }
        drawCross(painter, QRectF(option->rect), 0.22,
                  option->palette.color(isUnderMouse ? QPalette::HighlightedText : QPalette::WindowText),
                  1.6);
        return;
    }
    case PE_IndicatorCheckBox:
        drawMark(painter, option, false);
        return;
    case PE_IndicatorRadioButton:
        drawMark(painter, option, true);
        return;
    case PE_FrameFocusRect:
        // Not only when it was set by the keyboard: a question sets the focus to its safe answer. In a row, Qt
        // would lay a veil over the text.
        if (!(option->state & State_Item))
            drawFocus(painter, QRectF(option->rect), option->palette, 1.5);
        else
            drawCellFocus(painter, option);
        return;
    case PE_FrameLineEdit:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        drawFieldFrame(painter, option);
        return;
    case PE_PanelButtonCommand:
    case PE_PanelButtonTool:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (option->state & State_On)
            drawDown(painter, option);
        if (option->state & State_HasFocus)
            drawFocus(painter, QRectF(option->rect), option->palette);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_ShapedFrame && qobject_cast<const QAbstractScrollArea*>(widget))
        drawFieldFrame(painter, option);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_SpinBox || control == CC_ComboBox)
        drawFieldFrame(painter, option);
}

/// Draws a tile in the icon's intended background colour under the icon of a selected row.
QPixmap ThemeStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                        const QStyleOption* option) const
{
    if (mode != QIcon::Selected)
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    QPixmap tile(pixmap.size());
    tile.setDevicePixelRatio(pixmap.devicePixelRatio());
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(option->palette.color(QPalette::Active, QPalette::Base));
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(pixmap.size()) / pixmap.devicePixelRatio()), corner,
                            corner);
    painter.drawPixmap(0, 0, pixmap);
    return tile;
}

QIcon ThemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    return icon == SP_LineEditClearButton ? QIcon(new ClearIcon)
                                          : QProxyStyle::standardIcon(icon, option, widget);
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const
{
    // The journal's own dialogs have buttons without icons.
    return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0
                                                       : QProxyStyle::styleHint(hint, option, widget, result);
}
