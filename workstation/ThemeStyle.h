#pragma once

#include <QProxyStyle>

/// Qt's plain style, with stronger drawing of what is too weak in a dark or a bright room: marks of check
/// boxes and radio buttons, the crosses of tabs and of line edits, icons in selected rows, and the focus.
class ThemeStyle : public QProxyStyle
{
public:
    ThemeStyle();

    /// The colour that shows the focus; it has enough contrast to the backgrounds of \a palette.
    static QColor focusColor(const QPalette& palette);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                const QStyleOption* option) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};
