#pragma once

#include "VrkExport.h"

#include <QByteArray>
#include <vector>

/// A dynamic value of the server's script language.
struct VRK_EXPORT CVar {
    enum Type : int { None = 0, Int = 1, Double = 2, String = 3, Array = 4 };

    int type = None;
    double number = 0; ///< Int, Double
    QByteArray text;   ///< String, UTF-8
    std::vector<CVar> elements;
};

/// Prepare and free \a count contiguous values.
VRK_EXPORT void CVarInit(CVar* var, int count);
VRK_EXPORT void CVarClear(CVar* var, int count);
/// Makes \a var an array of \a count empty elements.
VRK_EXPORT void CVarSetArr(CVar* var, int count);
VRK_EXPORT void CVarSetStr(CVar* var, const char* bytes, int length);
