#pragma once

#include <QString>
#include <string>
#include <vector>

/// Reads the small language in which the earlier journal described its parameters; texts are decoded.
namespace ParamText
{
/// Whether the text contains the word, ignoring case.
bool contains(const QString& text, const char* word);
/// Date and time layout in Qt's notation for the name of an old format; empty for an unknown name.
QString toQtDateTimeLayout(const QString& name);
/// The values of an enumeration in their order, UTF-8. An item without exactly one "=" gives an empty value.
std::vector<std::string> enumValues(const QString& param);
/// Base name, in lower case, of the parameter for a reference to equipment.
QString equipmentParameter(const QString& param);
/// Base name of the parameter for a reference to an organization; empty if there is none.
QString organizationParameter(const QString& param);
} // namespace ParamText
