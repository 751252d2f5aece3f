#pragma once

#include "VrkExport.h"

class CVrkCliApp;
class CVrkCliMod;

/// The door of the plug-in: makes the module called \a name ("unfinished", "archive", case ignored). Null for any other
/// name. The caller owns the module and starts it with ModuleStart().
extern "C" VRK_EXPORT CVrkCliMod* CppCliModule(CVrkCliApp* app, const char* name);
