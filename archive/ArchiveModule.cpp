#include "ArchiveModule.h"

#include "CVrkArchive.h"
#include "CVrkBookmarks.h"
#include "CVrkHistory.h"
#include "CVrkPast.h"
#include "CVrkStatistics.h"
#include "CVrkUnfinished.h"

CVrkCliMod* CppCliModule(CVrkCliApp* app, const char* name)
{
    if (qstricmp(name, "unfinished") == 0)
        return new CVrkUnfinished(app);
    if (qstricmp(name, "archive") == 0)
        return new CVrkArchive(app);
    if (qstricmp(name, "bookmarks") == 0)
        return new CVrkBookmarks(app);
    if (qstricmp(name, "history") == 0)
        return new CVrkHistory(app);
    if (qstricmp(name, "past") == 0)
        return new CVrkPast(app);
    if (qstricmp(name, "statistics") == 0)
        return new CVrkStatistics(app);
    return nullptr;
}
