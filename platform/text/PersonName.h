#pragma once

#include "VrkExport.h"

#include <QString>

/// Names of persons as texts write them.
namespace PersonName
{
/// Surname and initials, each after a space and followed by a point; an empty part has none.
VRK_EXPORT QString shortName(const QString& surname, const QString& firstName, const QString& patronymic);
/// A safety group as written after a name: "I" to "V", higher ones as a number.
VRK_EXPORT QString groupText(int group);
/// A name with its safety group; without one, or without a name, the name alone.
VRK_EXPORT QString withGroup(const QString& name, int group);
} // namespace PersonName
