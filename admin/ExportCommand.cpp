#include "ExportCommand.h"

#include "SheetExport.h"
#include "StoreZone.h"

QString ExportCommand::summary() const
{
    return QStringLiteral("выгрузить справочники в таблицы CSV");
}

QString ExportCommand::usage() const
{
    return QStringLiteral(
        "vrk-admin export URL DIR\n"
        "  Записывает в папку по одному файлу CSV на таблицу; они открываются двойным щелчком.\n"
        "  Таблицы пустого хранилища состоят из одних заголовков: это бланки для заполнения.\n"
        "  Что стоит в столбцах, рассказывает vrk-admin import --help.\n");
}

Command::ExitCode ExportCommand::run(const QStringList& arguments, Streams& streams)
{
    if (arguments.size() != 2)
        return wrongUsage(streams);
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
