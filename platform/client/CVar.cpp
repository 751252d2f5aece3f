#include "CVar.h"

void CVarInit(CVar* var, int count)
{
    CVarClear(var, count);
}

void CVarClear(CVar* var, int count)
{
    for (int i = 0; var && i < count; ++i)
        var[i] = CVar();
}

void CVarSetArr(CVar* var, int count)
{
    if (!var)
        return;
    *var = CVar();
    var->type = CVar::Array;
    var->elements.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
}

void CVarSetStr(CVar* var, const char* bytes, int length)
{
    if (!var)
        return;
    *var = CVar();
    var->type = CVar::String;
    if (bytes && length > 0)
        var->text = QByteArray(bytes, length);
}
