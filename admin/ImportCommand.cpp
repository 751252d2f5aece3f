#include "ImportCommand.h"

#include "DemoTemplates.h"
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
} // namespace

QString ImportCommand::summary() const
{
    return QStringLiteral("заполнить справочники из таблиц CSV");
}

QString ImportCommand::usage() const
{
    QStringList markers = DemoTemplates::markerLabels();
    markers.sort();
    QString text = QStringLiteral(
        "vrk-admin import URL DIR [--dry-run]\n"
        "  Читает из папки файлы CSV, добавляет новые строки и записывает изменённые ячейки: всё или "
        "ничего.\n"
        "  Строки, которых нет в файле, остаются; людей убирают словом «да» в столбце «Удалён».\n"
        "  Столбцы и файлы, которых нет, ничего не меняют. Повторная загрузка ничего не меняет.\n"
        "  --dry-run  показать, что добавится (+), изменится (~) и чего нет в файле (-), ничего не "
        "записывая\n"
        "\n"
        "  Бланки даёт vrk-admin export. Файл: UTF-8 или Windows-1251, точка с запятой или запятая.\n"
        "  Ссылки пишутся названием; одинаковые названия различают владельцем: «Организация / Отдел».\n"
        "  Время: чч:мм или дд.ММ.гггг чч:мм. Да и нет: «да», «нет» или пусто.\n"
        "  Код: пусто у новых строк; у прежних остаётся, тогда их можно переименовать.\n"
        "  Вид оборудования: подстанция, линия, присоединение или своё слово.\n"
        "  Права: ");
    text += Sheets::rights().join(QStringLiteral(", "));
    text += QStringLiteral(
                "; через запятую.\n"
                "  Текст шаблона: {вид:Название}, {вид?:Название} для необязательного поля, "
                "*жирный*, ~зачёркнутый~;\n"
                "  {list:Название;да|нет}, {datetime:Название;hh:mm}, {text:Название};\n"
                "  {text?:Номер; Бланк № ….}: слова вокруг многоточия стоят только вместе со значением.\n"
                "  Виды: %1.\n"
                "  Маркеры: %2.\n"
                "\n"
                "  Таблицы прежнего журнала (OperLog*.csv) берутся как есть, с ключами и именами полей; их "
                "преобразует модуль «Конвертер».\n"
                "\n"
                "  Файлы и столбцы (звёздочкой отмечены обязательные):\n")
                .arg(DemoTemplates::parameterKinds().join(QStringLiteral(", ")),
                     markers.join(QStringLiteral(", ")));
    for (const Sheet& sheet : Sheets::all()) {
        QStringList columns;
        for (const SheetColumn& column : sheet.columns)
            columns << describe(column);
        text += QStringLiteral("  %1 (%2)\n    %3\n")
                    .arg(sheet.file, sheet.title, columns.join(QStringLiteral("; ")));
    }
    return text;
}

Command::ExitCode ImportCommand::run(const QStringList& arguments, Streams& streams)
{
    QStringList rest = arguments;
    const bool dry = rest.removeAll(QStringLiteral("--dry-run")) > 0;
    if (rest.size() != 2 || rest[1].startsWith(QLatin1Char('-')))
        return wrongUsage(streams);
    StoreError error;
    Store::Options options;
    options.loader = true;
    const auto store = Store::open(rest[0], options, &error);
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
    for (const SheetImport::Report& report : import.reports())
        tell(report, dry, streams.out);
    if (dry) {
        streams.out << QStringLiteral("Ничего не записано.\n");
        return Success;
    }
    // A role without a row in Users has no rights, so it may be created first.
    for (const QString& login : import.admitted()) {
        if (!StoreAdmin::admit(rest[0], login, true, &error))
            return fail(streams, error);
    }
    if (!import.write(&error))
        return fail(streams, error);
    for (const QString& login : import.retired()) {
        if (!StoreAdmin::admit(rest[0], login, false, &error))
            return fail(streams, error);
    }
    return Success;
}
