#pragma once

#include <QString>

/// The texts of vrk-admin that are files of this folder.
namespace AdminText
{
/// The whole text of a file such as "help.txt".
QString content(const char* file);
} // namespace AdminText
