#pragma once

#include <QString>
#include <QVariant>

/// Values of a row in the form in which a person writes them into a cell.
namespace SheetCells
{
QString flag(bool set);
/// Invalid if the text is neither yes nor no; an empty cell is no.
QVariant readFlag(const QString& text);

/// "hh:mm" for a time of day, "dd.MM.yyyy hh:mm" in the zone of the process for a moment.
QString time(double seconds);
/// Accepts seconds, too. Invalid if the text is not a time.
QVariant readTime(const QString& text);

/// "подстанция", "линия" and "присоединение" for the kinds that templates use; any other word is unchanged.
QString equipmentKind(const QString& kind);
QString readEquipmentKind(const QString& text);

/// The label of a marker, or its path if it has none.
QString marker(const QString& path);
} // namespace SheetCells
