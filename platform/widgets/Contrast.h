#pragma once

#include "VrkExport.h"

#include <QColor>

/// How well a colour stands out from its ground, in the measure of the accessibility guidelines: 1 is not at all, 21
/// black on white. Texts need 4.5, marks and frames 3.
namespace Contrast
{
constexpr double forTexts = 4.5;

VRK_EXPORT double between(const QColor& first, const QColor& second);
/// \a color, or where it does not stand out from \a ground enough the nearest lighter or darker shade that does.
VRK_EXPORT QColor legible(const QColor& color, const QColor& ground, double least = forTexts);
} // namespace Contrast
