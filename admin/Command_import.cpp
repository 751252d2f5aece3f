#include "Command.h"

#include "DemoTemplates.h"
#include "JsonList.h"
#include "SheetImport.h"
#include "StoreAdmin.h"
#include "StoreZone.h"

namespace
{
QString describe(const SheetColumn& column)
{
    QString text = column.heading;
    if (column.use & SheetColumn::Required)
        text += QLatin1Char('*');
    return text;
}

void tell(const SheetImport::Report& report, bool names, QTextStream& out)
{
    out << QStringLiteral("%1: добавлено %2, изменено %3, нет в файле %4\n")
               .arg(report.sheet->file)
               .arg(report.added.size())
               .arg(report.changed.size())
               .arg(report.missing.size());
    if (!names)
        return;
    for (const QString& name : report.added)
        out << QStringLiteral("  + ") << name << QLatin1Char('\n');
    for (const QString& name : report.changed)
        out << QStringLiteral("  ~ ") << name << QLatin1Char('\n');
    for (const QString& name : report.missing)
        out << QStringLiteral("  - ") << name << QLatin1Char('\n');
}

QJsonObject jsonOf(const SheetImport::Report& report)
{
    return {{QStringLiteral("file"), report.sheet->file},
            {QStringLiteral("added"), QJsonArray::fromStringList(report.added)},
            {QStringLiteral("changed"), QJsonArray::fromStringList(report.changed)},
            {QStringLiteral("missing"), QJsonArray::fromStringList(report.missing)}};
}

void tellAll(const QVector<SheetImport::Report>& reports, bool isDry, JsonList* list, QTextStream& out)
{
    for (const SheetImport::Report& report : reports) {
        if (list->isWanted())
            list->add(jsonOf(report));
        else
            tell(report, isDry, out);
    }
    if (list->isWanted())
        list->print(out);
    else if (isDry)
        out << QStringLiteral("Ничего не записано.\n");
}
} // namespace

QStringList Command::importWords()
{
    QStringList markers = DemoTemplates::markerLabels();
    markers.sort();
    QStringList sheets;
    for (const Sheet& sheet : Sheets::all()) {
        QStringList columns;
        for (const SheetColumn& column : sheet.columns)
            columns << describe(column);
        sheets << QStringLiteral("  %1 (%2)\n    %3")
                      .arg(sheet.file, sheet.title, columns.join(QStringLiteral("; ")));
    }
    const QString comma = QStringLiteral(", ");
    return {Sheets::rights().join(comma), DemoTemplates::parameterKinds().join(comma), markers.join(comma),
            sheets.join(QLatin1Char('\n'))};
}

Command::ExitCode Command::importSheets(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    JsonList list(&rest);
    const bool dry = rest.removeAll(QStringLiteral("--dry-run")) > 0;
    if (rest.size() != 2 || rest[1].startsWith(QLatin1Char('-')))
        return WrongUsage;
    StoreError error;
    const auto store = StoreAdmin::openLoader(rest[0], &error);
    if (!store)
        return fail(streams, error);
    const StoreZone zone(*store);

    SheetImport import(store.get());
    const bool sound = import.read(QDir(rest[1])) && import.compare(&error);
    if (error)
        return fail(streams, error);
    if (!sound) {
        for (const QString& text : import.errors())
            streams.err << text << QLatin1Char('\n');
        streams.err << QStringLiteral("Ошибок: %1. Ничего не записано.\n").arg(import.errors().size());
        return Failed;
    }
    tellAll(import.reports(), dry, &list, streams.out);
    if (dry)
        return Success;
    return outcome(import.carryOut(rest[0], &error), streams, error);
}
