#include "ArchiveModule.h"

#include "CVrkArchive.h"
#include "CVrkUnfinished.h"

CVrkCliMod* CppCliModule(CVrkCliApp* app, const char* name)
{
    if (qstricmp(name, "unfinished") == 0)
        return new CVrkUnfinished(app);
    if (qstricmp(name, "archive") == 0)
        return new CVrkArchive(app);
    return nullptr;
}
