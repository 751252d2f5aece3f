#pragma once

#include <QString>
#include <QVariant>

/// Values of a row as a person writes them into a cell.
namespace SheetCells
{
QString flag(bool set);
/// Invalid for what is neither yes nor no; an empty cell is no.
QVariant readFlag(const QString& text);

/// "hh:mm" for a time of day, "dd.MM.yyyy hh:mm" in the zone of the process for a moment.
QString time(double seconds);
/// Seconds are taken where they stand. Invalid for what is no time.
QVariant readTime(const QString& text);

/// "подстанция", "линия" and "присоединение" for the kinds that templates know, any other word as it stands.
QString equipmentKind(const QString& kind);
QString readEquipmentKind(const QString& text);

/// The label of a marker, or its path when it has none.
QString marker(const QString& path);
} // namespace SheetCells
