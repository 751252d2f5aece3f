#pragma once

#include "VrkExport.h"

class CVrkCliApp;
class CVrkCliMod;

/// Entry point of the plug-in: creates the module called \a name, one of those in plugin.json, ignoring case.
/// Null for any other name. The caller owns the module and starts it with ModuleStart().
extern "C" VRK_EXPORT CVrkCliMod* CppCliModule(CVrkCliApp* app, const char* name);
