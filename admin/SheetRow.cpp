#include "SheetRow.h"

#include "DemoTemplates.h"
#include "SheetCells.h"

namespace
{
constexpr int highestSafetyGroup = 5;
}

SheetRow::SheetRow(const Directory& directory, const Sheet& sheet, const QVector<const SheetColumn*>& columns,
                   const QStringList& texts)
    : m_directory(directory), m_sheet(sheet)
{
    // A scope restricts the references at any position in the file.
    for (const bool scope : {true, false}) {
        for (int i = 0; i < columns.size(); ++i) {
            if ((columns[i]->kind == SheetColumn::Scope) == scope)
                readCell(*columns[i], texts.value(i));
        }
    }
    for (int i = columns.size(); i < texts.size(); ++i) {
        if (!texts[i].trimmed().isEmpty())
            faults.append({nullptr, QStringLiteral("лишняя ячейка «%1»").arg(texts[i].trimmed()), true, {}});
    }
    waits = waits && faults.size() == 1;
}

void SheetRow::fault(const SheetColumn& column, const QString& text)
{
    faults.append({&column, text, true, {}});
}

void SheetRow::unknown(const SheetColumn& column, const QString& what, const QString& cell,
                       const QString& nearest)
{
    fault(column, QStringLiteral("%1 «%2» нет%3")
                      .arg(what, cell.simplified(),
                           nearest.isEmpty() ? QString() : QStringLiteral(", похоже на «%1»").arg(nearest)));
}

void SheetRow::readCell(const SheetColumn& column, const QString& cell)
{
    const QString name = cell.simplified();
    if ((column.use & SheetColumn::Required) && name.isEmpty())
        return fault(column, QStringLiteral("ячейка пуста"));
    const auto set = [&](const QVariant& value) {
        given.insert(column.field);
        if (value.isValid() && !value.toString().isEmpty())
            row.values.insert(column.field, value);
    };
    switch (column.kind) {
    case SheetColumn::Text:
        return set(name);
    case SheetColumn::Verbatim:
        return set(cell);
    case SheetColumn::EquipmentKind:
        return set(SheetCells::readEquipmentKind(cell));
    case SheetColumn::SafetyGroup: {
        bool number = true;
        const int value = name.isEmpty() ? 0 : name.toInt(&number);
        if (!number)
            return fault(column, QStringLiteral("«%1» не число").arg(name));
        return value >= 0 && value <= highestSafetyGroup
                   ? set(value)
                   : fault(column,
                           QStringLiteral("группы «%1» нет, есть от 1 до %2; 0 или пусто, если группы нет")
                               .arg(name)
                               .arg(highestSafetyGroup));
    }
    case SheetColumn::Flag: {
        const QVariant value = SheetCells::readFlag(cell);
        return value.isValid() ? set(value)
                               : fault(column, QStringLiteral("«%1» не «да» и не «нет»").arg(name));
    }
    case SheetColumn::Time: {
        const QVariant value = SheetCells::readTime(cell);
        return value.isValid()
                   ? set(value)
                   : fault(column, QStringLiteral("«%1» не время вида чч:мм или дд.ММ.гггг чч:мм").arg(name));
    }
    case SheetColumn::Reference:
    case SheetColumn::Scope:
        return readReference(column, cell);
    case SheetColumn::Rights:
        return readRights(cell);
    case SheetColumn::Notation:
        cells.text = cell;
        textCells.insert(column.field);
        return;
    case SheetColumn::TemplateFlag: {
        const QVariant value = SheetCells::readFlag(cell);
        if (!value.isValid())
            return fault(column, QStringLiteral("«%1» не «да» и не «нет»").arg(name));
        textCells.insert(column.field);
        if (value.toBool())
            cells.properties.insert(column.field, QStringLiteral("1"));
        return;
    }
    case SheetColumn::TemplateMarker:
        return readMarker(column, name);
    case SheetColumn::TemplateCommand:
        textCells.insert(column.field);
        if (!name.isEmpty())
            cells.properties.insert(column.field, name);
        return;
    case SheetColumn::Code:
        row.key = name.toUtf8();
    }
}

void SheetRow::readReference(const SheetColumn& column, const QString& cell)
{
    const bool scope = column.kind == SheetColumn::Scope;
    const QByteArray table = scope ? QByteArray("Departments") : column.refers;
    if (!scope)
        given.insert(column.field);
    if (cell.trimmed().isEmpty())
        return;
    const QVector<QByteArray> found = m_directory.resolve(table, cell, m_department);
    if (found.size() == 1) {
        if (scope)
            m_department = found.constFirst();
        else
            row.values.insert(column.field, QString::fromUtf8(found.constFirst()));
        return;
    }
    if (found.isEmpty()) {
        if (table == m_sheet.table) {
            waits = true;
            owner = cell.section(QLatin1Char('/'), -1).simplified();
        }
        return unknown(column, QStringLiteral("в таблице «%1» строки").arg(Sheets::of(table).title), cell,
                       m_directory.nearest(table, cell, m_department));
    }
    QStringList names;
    for (const QByteArray& key : found) {
        const QString label = m_directory.label(table, *m_directory.row(table, key));
        names << QStringLiteral("«%1» (код %2)").arg(label, QString::fromUtf8(key));
    }
    names.sort();
    fault(column,
          QStringLiteral("«%1» неоднозначно: %2").arg(cell.simplified(), names.join(QStringLiteral(", "))));
}

void SheetRow::readRights(const QString& cell)
{
    hasRights = true;
    for (const QString& word : cell.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString right = word.trimmed().toUpper();
        if (right.isEmpty())
            continue;
        if (!Sheets::rights().contains(right))
            unknown(*m_sheet.column(QStringLiteral("Права")), QStringLiteral("права"), word,
                    Sheets::nearest(right, Sheets::rights()));
        rights << right;
    }
}

void SheetRow::readMarker(const SheetColumn& column, const QString& cell)
{
    textCells.insert(column.field);
    if (cell.isEmpty())
        return;
    const QString path = cell.startsWith(QLatin1String(":/")) ? cell : DemoTemplates::markerPath(cell);
    if (path.isEmpty())
        return unknown(column, QStringLiteral("маркера"), cell,
                       Sheets::nearest(cell, DemoTemplates::markerLabels()));
    cells.properties.insert(column.field, path);
}
