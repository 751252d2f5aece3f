#include "Contrast.h"

#include <cmath>

namespace
{
double linear(double part)
{
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}
} // namespace

double Contrast::between(const QColor& first, const QColor& second)
{
    const double a = luminance(first);
    const double b = luminance(second);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

QColor Contrast::legible(const QColor& color, const QColor& ground, double least)
{
    if (between(color, ground) >= least)
        return color;
    // Away from the background, towards the side with more range.
    const bool isLighter = between(Qt::white, ground) > between(Qt::black, ground);
    for (int step = 1; step < 20; ++step) {
        const qreal share = step / 20.0;
        const qreal to = isLighter ? 1 : 0;
        const QColor shade = QColor::fromRgbF(color.redF() + (to - color.redF()) * share,
                                              color.greenF() + (to - color.greenF()) * share,
                                              color.blueF() + (to - color.blueF()) * share);
        if (between(shade, ground) >= least)
            return shade;
    }
    return isLighter ? Qt::white : Qt::black;
}
