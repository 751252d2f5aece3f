#pragma once

#include <QString>

/// The path of a file or folder of the source tree; \a name counts from its top.
QString sourceFile(const char* name);
