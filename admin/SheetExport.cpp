#include "SheetExport.h"

#include "Csv.h"
#include "LongWork.h"
#include "SheetCells.h"
#include "TemplateCells.h"

#include <QSaveFile>

namespace
{
/// The department that restricts the references of a row: that of the row's worker.
QByteArray scopeOf(const Directory& directory, const Sheet& sheet, const DirectoryRow& row)
{
    for (const SheetColumn& column : sheet.columns) {
        if (column.kind != SheetColumn::Scope)
            continue;
        const DirectoryRow* worker = directory.row("Workers", row.reference("WorkerKey"));
        return worker ? worker->reference(column.field) : QByteArray();
    }
    return {};
}
} // namespace

QStringList SheetExport::cells(const Directory& directory, const Sheet& sheet, const DirectoryRow& row,
                               References references)
{
    const QByteArray scope = references == Names ? scopeOf(directory, sheet, row) : QByteArray();
    const TemplateCells text(row.text("html"));
    QStringList cells;
    for (const SheetColumn& column : sheet.columns) {
        const QVariant value = row.values.value(column.field);
        switch (column.kind) {
        case SheetColumn::Flag:
            cells << SheetCells::flag(value.toBool());
            break;
        case SheetColumn::Time:
            cells << (value.isValid() ? SheetCells::time(value.toDouble()) : QString());
            break;
        case SheetColumn::Reference:
            cells << (references == Keys || value.toString().isEmpty()
                          ? value.toString()
                          : directory.reference(column.refers, value.toByteArray(), scope));
            break;
        case SheetColumn::Scope:
            cells << (scope.isEmpty() ? QString() : directory.reference("Departments", scope));
            break;
        case SheetColumn::EquipmentKind:
            cells << SheetCells::equipmentKind(value.toString());
            break;
        case SheetColumn::Rights: {
            QStringList rights = directory.rights(row.key).keys();
            rights.sort();
            cells << rights.join(QStringLiteral(", "));
            break;
        }
        case SheetColumn::Notation:
            cells << text.text;
            break;
        case SheetColumn::TemplateFlag:
            cells << (text.properties.contains(column.field) ? SheetCells::flag(true) : QString());
            break;
        case SheetColumn::TemplateMarker:
            cells << SheetCells::marker(text.properties.value(column.field));
            break;
        case SheetColumn::TemplateCommand:
            cells << text.properties.value(column.field);
            break;
        case SheetColumn::Text:
        case SheetColumn::Verbatim:
        case SheetColumn::SafetyGroup:
        case SheetColumn::Code:
            cells << value.toString();
        }
    }
    return cells;
}

bool SheetExport::write(const Directory& directory, const QDir& folder, QString* failure)
{
    const LongWork work("Выгрузка таблиц", Sheets::all().size());
    qint64 done = 0;
    for (const Sheet& sheet : Sheets::all()) {
        work.advance(done++);
        QVector<QStringList> rows{sheet.headings()};
        for (const DirectoryRow* row : directory.rows(sheet.table))
            rows << cells(directory, sheet, *row);
        if (sheet.earlier && rows.size() == 1)
            continue;
        QSaveFile file(folder.filePath(sheet.file));
        const QByteArray content = Csv::write(rows);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
            *failure = QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
            return false;
        }
    }
    return true;
}
