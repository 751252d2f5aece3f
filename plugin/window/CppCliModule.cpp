#include "CppCliModule.h"

#include "CVrkConverter.h"
#include "CVrkLogBook.h"
#include "CVrkTemplateEditor.h"

#include <QTextCodec>

CVrkCliMod* CppCliModule(CVrkCliApp* app, const char* name)
{
    const QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    if (!name || !*name)
        return nullptr;

    const QString wanted = codec->toUnicode(name);
    const auto is = [&wanted](const char* module) {
        return wanted.compare(QLatin1String(module), Qt::CaseInsensitive) == 0;
    };
    if (is("logbook"))
        return new CVrkLogBook(app);
    if (is("template"))
        return new CVrkTemplateEditor(app);
    if (is("converter"))
        return new CVrkConverter(app);
    return nullptr;
}
