#pragma once

#include <QString>
#include <string>
#include <vector>

/// The small language in which the earlier journal described its parameters, read out of decoded text.
namespace ParamText
{
/// The text holds the word, whatever the case.
bool contains(const QString& text, const char* word);
/// Date and time layout in Qt's notation for the name of an old format; empty for an unknown name.
QString toQtDateTimeLayout(const QString& name);
/// The values of an enumeration in their order, UTF-8. An item without exactly one "=" gives an empty value.
std::vector<std::string> enumValues(const QString& param);
/// Base name, in lower case, of the parameter that a reference to equipment stands for.
QString equipmentParameter(const QString& param);
/// Base name of the parameter that a reference to an organization stands for; empty when there is none.
QString organizationParameter(const QString& param);
} // namespace ParamText
