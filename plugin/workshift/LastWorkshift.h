#pragma once

#include <QDateTime>

class CVrkCliMod;

/// End of the department's latest workshift, found by a script on the server. Invalid if there is none, or
/// if the script could not be run.
QDateTime lastWorkshiftEnd(CVrkCliMod* module, const QString& departmentKey);
