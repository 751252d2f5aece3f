#include "Command.h"

#include "SheetExport.h"
#include "StoreZone.h"

Command::ExitCode Command::exportSheets(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage;
    StoreError error;
    const auto store = Store::open(arguments[0], {}, &error);
    Directory directory;
    if (!store || !directory.load(store.get(), &error))
        return fail(streams, error);
    const StoreZone zone(*store);
    QString failure;
    const QDir folder(arguments[1]);
    if (!folder.mkpath(QStringLiteral(".")) || !SheetExport::write(directory, folder, &failure)) {
        streams.err
            << QStringLiteral("Не удалось записать %1\n").arg(failure.isEmpty() ? arguments[1] : failure);
        return Failed;
    }
    for (const Sheet& sheet : Sheets::all())
        if (!sheet.earlier || !directory.rows(sheet.table).isEmpty())
            streams.out << QStringLiteral("%1: строк %2 (%3)\n")
                               .arg(sheet.file)
                               .arg(directory.rows(sheet.table).size())
                               .arg(sheet.title);
    return Success;
}
