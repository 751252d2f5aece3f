#include "SheetImport.h"

#include "DemoTemplates.h"
#include "DemoWriter.h"
#include "GenGuid32.h"
#include "LongWork.h"
#include "SheetRow.h"
#include "StoreAdmin.h"
#include "TableCatalog.h"

#include <QFile>
#include <QTextCodec>

QString SheetImport::Fault::text() const
{
    return line > 0 ? QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(fault.line())
                    : QStringLiteral("%1: %2").arg(file, fault.line());
}

void SheetImport::fault(const QString& file, int line, const QString& text)
{
    m_faults.append({file, line, {nullptr, text, true, {}}});
}

QStringList SheetImport::errors() const
{
    QStringList texts;
    for (const Fault& one : m_faults)
        texts << one.text();
    return texts;
}

bool SheetImport::read(const QDir& folder)
{
    QStringList known;
    for (const Sheet& sheet : Sheets::all())
        known << sheet.file;
    const QStringList present = folder.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
    QHash<const Sheet*, QString> files;
    for (const QString& name : present) {
        if (const Sheet* sheet = Sheets::byFile(name)) {
            files.insert(sheet, name);
            continue;
        }
        const QString nearest = Sheets::nearest(name, known);
        fault(name, 0,
              QStringLiteral("таблицы с таким именем нет%1")
                  .arg(nearest.isEmpty() ? QString() : QStringLiteral(", похоже на %1").arg(nearest)));
    }
    if (present.isEmpty())
        fault(folder.path(), 0, QStringLiteral("в папке нет файлов .csv"));
    for (const Sheet& sheet : Sheets::all()) { // in the order in which they refer to each other
        if (files.contains(&sheet))
            readFile(folder.filePath(files.value(&sheet)), sheet);
    }
    return m_faults.isEmpty();
}

bool SheetImport::readFile(const QString& path, const Sheet& sheet)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fault(sheet.file, 0, file.errorString());
        return false;
    }
    QVector<Csv::Row> rows;
    QString error;
    if (!Csv::read(file.readAll(), &rows, &error)) {
        const int colon = error.indexOf(QLatin1Char(':')); // "line: fault"
        fault(sheet.file, error.left(colon).toInt(), error.mid(colon + 2));
        return false;
    }
    if (rows.isEmpty())
        return true;
    File read{&sheet, rows.mid(1), {}};
    if (!readHeadings(&read, rows.constFirst()))
        return false;
    m_files.append(read);
    return true;
}

bool SheetImport::take(const Sheet& sheet, const QVector<QStringList>& rows)
{
    File file{&sheet, {}, {}};
    for (int i = 1; i < rows.size(); ++i)
        file.rows.append({i + 1, rows.at(i)});
    if (!readHeadings(&file, {1, rows.constFirst()}))
        return false;
    m_files.append(file);
    return true;
}

bool SheetImport::readHeadings(File* file, const Csv::Row& headings)
{
    const int before = m_faults.size();
    QStringList cells = headings.cells;
    while (!cells.isEmpty() && cells.constLast().trimmed().isEmpty())
        cells.removeLast();
    for (const QString& cell : qAsConst(cells)) {
        const SheetColumn* column = file->sheet->column(cell);
        const QString nearest = Sheets::nearest(cell.trimmed(), file->sheet->headings());
        if (!column)
            fault(file->sheet->file, headings.line,
                  QStringLiteral("столбца «%1» нет%2")
                      .arg(cell.trimmed(),
                           nearest.isEmpty() ? QString() : QStringLiteral(", похоже на «%1»").arg(nearest)));
        else if (file->columns.contains(column))
            fault(file->sheet->file, headings.line,
                  QStringLiteral("столбец «%1» повторён").arg(column->heading));
        file->columns.append(column);
    }
    for (const SheetColumn& column : file->sheet->columns) {
        if ((column.use & SheetColumn::Required) && !file->columns.contains(&column))
            fault(file->sheet->file, headings.line,
                  QStringLiteral("не хватает столбца «%1»").arg(column.heading));
    }
    return m_faults.size() == before;
}

bool SheetImport::compare(StoreError* error)
{
    Directory stored;
    return stored.load(m_store, error) && compareWith(stored);
}

bool SheetImport::compareWith(const Directory& stored)
{
    m_directory = stored;
    const LongWork work("Сличение таблиц", m_files.size());
    qint64 done = 0;
    for (const File& file : qAsConst(m_files)) {
        compareSheet(file);
        work.advance(++done);
    }
    return m_faults.isEmpty();
}

void SheetImport::compareSheet(const File& file)
{
    Report report{file.sheet, {}, {}, {}};
    QHash<QByteArray, int> seen;
    QVector<Csv::Row> waiting = file.rows;
    // Rows may come before the rows that they belong to.
    for (bool moved = true; moved && !waiting.isEmpty();) {
        moved = false;
        QVector<Csv::Row> left;
        for (const Csv::Row& row : qAsConst(waiting)) {
            if (compareRow(file, row, false, &seen, &report))
                moved = true;
            else
                left.append(row);
        }
        waiting = left;
    }
    for (const Csv::Row& row : ringsIn(file, &waiting))
        fault(file.sheet->file, row.line,
              QStringLiteral("строка и её владельцы входят друг в друга по кругу"));
    for (const Csv::Row& row : qAsConst(waiting))
        compareRow(file, row, true, &seen, &report);
    for (const DirectoryRow* row : m_directory.rows(file.sheet->table)) {
        if (!seen.contains(row->key) && !row->retired())
            report.missing << m_directory.label(file.sheet->table, *row);
    }
    m_reports.append(report);
}

QVector<Csv::Row> SheetImport::ringsIn(const File& file, QVector<Csv::Row>* waiting) const
{
    const auto nameOf = [](const SheetRow& row) {
        return row.row.text(row.row.values.contains("nameLoc") ? "nameLoc" : "name_");
    };
    QHash<QString, QString> owners; // an owner is named by its name or its code
    for (const Csv::Row& row : qAsConst(*waiting)) {
        const SheetRow read(m_directory, *file.sheet, file.columns, row.cells);
        owners.insert(nameOf(read), read.owner);
        if (!read.row.key.isEmpty())
            owners.insert(QString::fromUtf8(read.row.key), read.owner);
    }
    QVector<Csv::Row> rings;
    QVector<Csv::Row> others;
    for (const Csv::Row& row : qAsConst(*waiting)) {
        QString name = nameOf(SheetRow(m_directory, *file.sheet, file.columns, row.cells));
        int steps = 0; // more steps than rows mean a cycle
        while (steps <= owners.size() && owners.contains(name)) {
            name = owners.value(name);
            ++steps;
        }
        (steps > owners.size() ? rings : others).append(row);
    }
    *waiting = others;
    return rings;
}

namespace
{
/// The template that the cells of a row describe; what they leave out it has from the stored one. Returns
/// the fault of the cells, or an empty text.
QString readTemplate(SheetRow* read, const DirectoryRow* stored, QString* html)
{
    const TemplateCells before(stored ? stored->text("html") : QString());
    for (auto property = before.properties.cbegin(); property != before.properties.cend(); ++property) {
        if (!read->textCells.contains(property.key()))
            read->cells.properties.insert(property.key(), *property); // has no column in the file
    }
    const bool isRaw = read->cells.text.startsWith(QLatin1String("html:"));
    if (isRaw)
        read->cells.properties.clear();
    const bool isKept = stored && read->cells == before;
    const QString kind = isRaw || isKept ? QString() : DemoTemplates::unknownKind(read->cells.text);
    const QString nearest = Sheets::nearest(kind, DemoTemplates::parameterKinds());
    if (!kind.isEmpty())
        return QStringLiteral("вида параметра «%1» нет%2")
            .arg(kind, nearest.isEmpty() ? QString() : QStringLiteral(", похоже на «%1»").arg(nearest));
    QString error;
    *html = isKept ? stored->text("html") : read->cells.html(&error);
    return error.isEmpty() ? QString()
                           : QStringLiteral("параметр без названия или без закрывающей скобки: %1")
                                 .arg(error.section(QLatin1Char('"'), 1));
}
} // namespace

bool SheetImport::compareRow(const File& file, const Csv::Row& cells, bool last, QHash<QByteArray, int>* seen,
                             Report* report)
{
    const Sheet& sheet = *file.sheet;
    SheetRow read(m_directory, sheet, file.columns, cells.cells);
    if (read.waits && !last)
        return false;
    const auto wrongCell = [&](const CellFault& one) {
        m_faults.append({sheet.file, cells.line, one});
        return true;
    };
    const auto wrong = [&](const QString& text) { return wrongCell({nullptr, text, true, {}}); };
    for (const CellFault& one : qAsConst(read.faults))
        m_faults.append({sheet.file, cells.line, one});
    if (!read.faults.isEmpty())
        return true;

    const QByteArray same = m_directory.same(sheet.table, read.row);
    const DirectoryRow* stored = m_directory.row(sheet.table, read.row.key.isEmpty() ? same : read.row.key);
    if (!read.row.key.isEmpty() && !same.isEmpty() && same != read.row.key)
        return wrongCell({nullptr,
                          QStringLiteral("такая строка уже есть, её код %1, а не %2")
                              .arg(QString::fromUtf8(same), QString::fromUtf8(read.row.key)),
                          true, same});
    if (!stored && sheet.table == "Users" && StoreAdmin::loginError(read.row.text("login")))
        return wrong(StoreAdmin::loginError(read.row.text("login")).text);
    DirectoryRow row = read.row;
    row.key = stored ? stored->key : row.key.isEmpty() ? GenGuid32() : row.key;
    if (seen->contains(row.key))
        return wrong(QStringLiteral("повторяет строку %1").arg(seen->value(row.key)));
    seen->insert(row.key, cells.line);

    QSet<QByteArray> given = read.given;
    if (read.textCells.contains("html")) {
        QString html;
        const QString fault = readTemplate(&read, stored, &html);
        if (!fault.isEmpty())
            return wrongCell({sheet.column(QStringLiteral("Текст")), fault, true, {}});
        row.values.insert("html", html);
        given.insert("html");
    }
    const CellFault misfit = unfit(sheet, row);
    if (!misfit.text.isEmpty())
        return wrongCell(misfit);
    takeRow(file, row, given, read.hasRights ? takeRights(row, read.rights) : QStringList(), report);
    for (const SheetColumn& column : sheet.columns) {
        if (column.refers == sheet.table && m_directory.ownsItself(sheet.table, row.key, column.field))
            return row.reference(column.field) == row.key
                       ? wrongCell({&column, QStringLiteral("строка входит сама в себя"), true, {}})
                       : wrong(QStringLiteral("строка и её владельцы входят друг в друга по кругу"));
    }
    return true;
}

CellFault SheetImport::unfit(const Sheet& sheet, const DirectoryRow& row) const
{
    const auto faultOf = [&sheet](const CatalogField& field, const QString& text) {
        for (const SheetColumn& column : sheet.columns)
            if (column.field == field.name)
                return CellFault{&column, text, false, {}};
        return CellFault{nullptr, text, false, {}};
    };
    for (const CatalogField& field : TableCatalog::table(sheet.table)->fields) {
        const QString text = row.text(field.name);
        if ((field.type == mdr_TChar || field.type == mdr_TMemo) && !m_store->codec()->canEncode(text))
            return faultOf(field,
                           QStringLiteral("знака нет в кодовой странице журнала: «%1»").arg(text.left(60)));
        if (field.type == mdr_TChar && !sheet.earlier &&
            m_store->codec()->fromUnicode(text).size() > field.width)
            return faultOf(field, QStringLiteral("длиннее %1 знаков: «%2»").arg(field.width).arg(text));
    }
    return {};
}

void SheetImport::takeRow(const File& file, DirectoryRow row, const QSet<QByteArray>& given,
                          const QStringList& rights, Report* report)
{
    const Sheet& sheet = *file.sheet;
    const DirectoryRow* known = m_directory.row(sheet.table, row.key);
    Change change{sheet.table, row, !known, given};
    QStringList headings = rights;
    if (known) {
        const DirectoryRow stored = *known;
        DirectoryRow merged = stored;
        change.fields.clear();
        for (const SheetColumn& column : sheet.columns) {
            if (!given.contains(column.field))
                continue;
            const QVariant now = row.values.value(column.field);
            const QVariant before = stored.values.value(column.field);
            const bool unset = !now.toBool() && !before.toBool();
            const bool flag = column.kind == SheetColumn::Flag || column.kind == SheetColumn::SafetyGroup;
            if (now.toString() == before.toString() || (flag && unset))
                continue; // a flag that was never set is "no"
            change.fields.insert(column.field);
            headings << column.heading;
            if (now.isValid())
                merged.values.insert(column.field, now);
            else
                merged.values.remove(column.field);
        }
        if (headings.isEmpty())
            return;
        row = merged;
        change.row = merged;
        if (sheet.table == "Users" && row.retired() != stored.retired())
            (row.retired() ? m_retired : m_admitted) << row.text("login");
    } else if (sheet.table == "Users" && !row.retired()) {
        m_admitted << row.text("login");
    }
    if (!known)
        row.values.insert("KeyLink", QString::fromUtf8(row.key));
    m_directory.put(sheet.table, row);
    if (!change.fields.isEmpty())
        m_changes.append(change);
    const QString label = m_directory.label(sheet.table, row);
    if (change.fresh)
        report->added << label;
    else
        report->changed << QStringLiteral("%1: %2").arg(label, headings.join(QStringLiteral(", ")));
}

QStringList SheetImport::takeRights(const DirectoryRow& user, const QStringList& rights)
{
    QStringList changes;
    const QHash<QString, QByteArray> present = m_directory.rights(user.key);
    for (const QString& right : Sheets::rights()) {
        const bool wanted = rights.contains(right);
        if (wanted == present.contains(right))
            continue;
        if (wanted)
            m_grants.append({user.key, right});
        else
            m_revoked.append(present.value(right));
        changes << (wanted ? QLatin1Char('+') : QLatin1Char('-')) + right;
    }
    return changes;
}

bool SheetImport::write(StoreError* error)
{
    const LongWork work("Запись");
    DemoWriter writer(m_store);
    for (const Change& change : qAsConst(m_changes)) {
        DemoWriter::Fields fields;
        for (const QByteArray& field : change.fields) {
            const QVariant value = change.row.values.value(field);
            fields.emplace_back(field.constData(), value.isValid() ? value : QVariant(QString()));
        }
        if (change.fresh)
            writer.insert(change.table.constData(), change.row.key, fields);
        else
            writer.update(change.table.constData(), change.row.key, fields);
    }
    for (const auto& [user, right] : qAsConst(m_grants))
        writer.insert("UserRights", GenGuid32(), {{"UserKey", user}, {"rightName", right}});
    for (const QByteArray& key : qAsConst(m_revoked))
        writer.remove("UserRights", key);
    return writer.write(error);
}

bool SheetImport::carryOut(const QString& url, StoreError* error, bool* isWritten)
{
    // A role without a row in Users has no rights, so it may be created first.
    for (const QString& login : qAsConst(m_admitted))
        if (!StoreAdmin::admit(url, login, true, error))
            return false;
    if (!write(error))
        return false;
    if (isWritten)
        *isWritten = true;
    for (const QString& login : qAsConst(m_retired))
        if (!StoreAdmin::admit(url, login, false, error))
            return false;
    return true;
}
