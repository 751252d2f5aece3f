#pragma once

#include "VrkExport.h"

#include <QColor>

/// The contrast of a colour and its background, as defined by the accessibility guidelines: 1 is none, 21
/// black on white. Texts need 4.5, marks and frames 3.
namespace Contrast
{
constexpr double forTexts = 4.5;

VRK_EXPORT double between(const QColor& first, const QColor& second);
/// Returns \a color if its contrast to \a ground is sufficient, otherwise the closest lighter or darker
/// shade that is.
VRK_EXPORT QColor legible(const QColor& color, const QColor& ground, double least = forTexts);
} // namespace Contrast
