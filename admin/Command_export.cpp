#include "Command.h"

#include "Arguments.h"
#include "EvidenceLog.h"
#include "JsonList.h"
#include "LogHistory.h"
#include "SheetExport.h"
#include "ShiftBook.h"
#include "StoreZone.h"

namespace
{
/// The directory as it was at a time; the last transaction until then is named.
bool loadAt(Store& store, const QString& typed, Directory* directory, QTextStream& out, StoreError* error)
{
    const double time = Arguments::timeOf(typed);
    if (time <= 0 || time > store.serverTime()) {
        error->text =
            time <= 0 ? QStringLiteral("Время не разобрано: %1. Пишите его так: 31.12.2026 08:00").arg(typed)
                      : QStringLiteral("%1 ещё не наступило.").arg(typed);
        return false;
    }
    const auto log = store.evidence(Store::Access::Read, error);
    if (!log)
        return false;
    LogHistory history(log.get());
    qint64 number = 0;
    if (!history.numberAt(time, &number))
        return false;
    if (number == 0) {
        error->text = QStringLiteral("Журнал изменений начинается позже, чем %1.").arg(typed);
        return false;
    }
    out << QStringLiteral("Справочники на %1, после транзакции %2\n").arg(ShiftBook::shown(time)).arg(number);
    return directory->load(&history, number);
}

void tellFiles(const Directory& directory, JsonList* list, QTextStream& out)
{
    for (const Sheet& sheet : Sheets::all()) {
        const int rows = directory.rows(sheet.table).size();
        if (sheet.earlier && rows == 0)
            continue;
        if (list->isWanted())
            list->add({{QStringLiteral("file"), sheet.file},
                       {QStringLiteral("rows"), rows},
                       {QStringLiteral("title"), sheet.title}});
        else
            out << QStringLiteral("%1: строк %2 (%3)\n").arg(sheet.file).arg(rows).arg(sheet.title);
    }
    if (list->isWanted())
        list->print(out);
}
} // namespace

Command::ExitCode Command::exportSheets(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    JsonList list(&rest);
    const bool isPast = rest.contains(QStringLiteral("--at"));
    const QString time = Arguments::takeValue(&rest, QStringLiteral("--at"));
    if (rest.size() != 2)
        return WrongUsage;
    StoreError error;
    const auto store = Store::open(rest[0], {}, &error);
    if (!store)
        return fail(streams, error);
    const StoreZone zone(*store);
    Directory directory;
    if (!(isPast ? loadAt(*store, time, &directory, list.isWanted() ? streams.err : streams.out, &error)
                 : directory.load(store.get(), &error)))
        return fail(streams, error);
    QString failure;
    const QDir folder(rest[1]);
    if (!folder.mkpath(QStringLiteral(".")) || !SheetExport::write(directory, folder, &failure)) {
        streams.err << QStringLiteral("Не удалось записать %1\n").arg(failure.isEmpty() ? rest[1] : failure);
        return Failed;
    }
    tellFiles(directory, &list, streams.out);
    return Success;
}
