#include "DirectoryDraft.h"

#include "LongWork.h"

#include <algorithm>

namespace
{
/// The sheets for people, roles, timetable and equipment, and those to which these refer. Templates have the
/// configurator.
const QByteArrayList& tables()
{
    static const QByteArrayList names{"Workers",   "Users",       "Roles",         "WorkerRoles", "Shifts",
                                      "Equipment", "Departments", "Organizations", "OrgTypes"};
    return names;
}

QVector<EditedRow> rowsOf(const Directory& directory, const Sheet& sheet)
{
    QVector<EditedRow> rows;
    for (const DirectoryRow* row : directory.rows(sheet.table))
        rows.append(SheetModel::stored(directory, sheet, *row));
    return rows;
}
} // namespace

DirectoryDraft::DirectoryDraft(QObject* parent) : QObject(parent)
{
    for (const QByteArray& table : tables())
        m_models.append(new SheetModel(Sheets::of(table), &m_undo, this));
}

void DirectoryDraft::show(const Directory& directory)
{
    m_shown = directory;
    for (SheetModel* model : qAsConst(m_models))
        model->setDirectory(&m_shown);
}

bool DirectoryDraft::load(Store* store, StoreError* error)
{
    const LongWork work("Чтение справочников");
    Directory read;
    if (!read.load(store, error))
        return false;
    m_base = read;
    m_undo.clear();
    m_faults.clear();
    show(read);
    for (SheetModel* model : qAsConst(m_models))
        model->setRows(rowsOf(m_base, model->sheet()));
    return true;
}

void DirectoryDraft::drop()
{
    m_undo.clear();
    m_faults.clear();
    show(m_base);
    for (SheetModel* model : qAsConst(m_models))
        model->setRows(rowsOf(m_base, model->sheet()));
}

bool DirectoryDraft::isEdited() const
{
    return std::any_of(m_models.begin(), m_models.end(), [](const SheetModel* model) {
        return std::any_of(model->rows().begin(), model->rows().end(),
                           [](const EditedRow& row) { return row.isChanged(); });
    });
}

std::unique_ptr<SheetImport> DirectoryDraft::import(Store* store, QHash<QString, QVector<Line>>* lines) const
{
    auto import = std::make_unique<SheetImport>(store);
    for (const Sheet& sheet : Sheets::all()) { // in the order in which they refer to each other
        const auto found = std::find_if(m_models.begin(), m_models.end(), [&sheet](const SheetModel* model) {
            return model->sheet().table == sheet.table;
        });
        if (found == m_models.end())
            continue;
        QVector<int> columns;
        QStringList headings;
        for (int i = 0; i < sheet.columns.size(); ++i) {
            if (sheet.columns.at(i).kind == SheetColumn::Scope)
                continue; // references are keys
            columns << i;
            headings << sheet.columns.at(i).heading;
        }
        QVector<QStringList> rows{headings};
        // A name that a row of the store gives up is free for a new row.
        for (const bool isNew : {false, true}) {
            for (const EditedRow& row : (*found)->rows()) {
                if (!row.isChanged() || row.isNew() != isNew)
                    continue;
                QStringList cells;
                for (const int column : qAsConst(columns))
                    cells << row.cells.at(column);
                rows << cells;
                (*lines)[sheet.file].append({*found, row.key});
            }
        }
        if (rows.size() > 1)
            import->take(sheet, rows);
    }
    return import;
}

const QVector<DirectoryDraft::Fault>& DirectoryDraft::check(Store* store)
{
    QHash<QString, QVector<Line>> lines;
    const auto checked = import(store, &lines);
    checked->compareWith(m_base);
    show(checked->directory());
    m_faults.clear();
    QHash<SheetModel*, QHash<QByteArray, QVector<CellFault>>> byModel;
    for (const SheetImport::Fault& one : checked->faults()) {
        const Line line = lines.value(one.file).value(one.line - 2, {nullptr, {}}); // below the headings
        if (!line.model)
            continue;
        Fault fault{line.model, line.key, one.fault};
        const QByteArray table = line.model->sheet().table;
        if (const DirectoryRow* other = m_shown.row(table, one.fault.other))
            fault.fault.text = tr("такая строка уже есть: «%1»%2")
                                   .arg(m_shown.label(table, *other),
                                        other->retired() ? tr(", она помечена удалённой") : QString());
        byModel[line.model][line.key].append(fault.fault);
        m_faults.append(fault);
    }
    for (SheetModel* model : qAsConst(m_models))
        model->setFaults(byModel.value(model));
    return m_faults;
}

bool DirectoryDraft::look(Store* store, Meanwhile* meanwhile, StoreError* error)
{
    const LongWork work("Сверка с журналом");
    *meanwhile = Meanwhile();
    m_fresh = Directory();
    if (!store->position(&m_seen, error))
        return false;
    if (!m_fresh.load(store, error))
        return false;
    for (SheetModel* model : qAsConst(m_models)) {
        const Sheet& sheet = model->sheet();
        int present = 0;
        for (const EditedRow& row : model->rows()) {
            const DirectoryRow* now = m_fresh.row(sheet.table, row.key);
            present += now ? 1 : 0;
            const QStringList theirs = now ? SheetModel::stored(m_fresh, sheet, *now).cells : QStringList();
            if (theirs == row.stored)
                continue;
            ++meanwhile->rows;
            for (int i = 0; i < row.cells.size() && row.isChanged(); ++i) {
                const QString before = row.stored.value(i);
                if (row.cells.at(i) != before && theirs.value(i) != before &&
                    theirs.value(i) != row.cells.at(i))
                    meanwhile->conflicts.append({model, row.key, i, theirs.value(i)});
            }
        }
        meanwhile->rows += m_fresh.rows(sheet.table).size() - present;
    }
    return true;
}

void DirectoryDraft::adopt(const Meanwhile& meanwhile, bool theirs)
{
    if (meanwhile.rows == 0)
        return;
    QSet<QPair<QByteArray, int>> lost;
    for (const Conflict& conflict : meanwhile.conflicts)
        if (theirs)
            lost.insert({conflict.key, conflict.column});
    m_undo.clear(); // its commands know the cells before
    m_base = m_fresh;
    for (SheetModel* model : qAsConst(m_models)) {
        QVector<EditedRow> rows = rowsOf(m_base, model->sheet());
        for (EditedRow& row : rows) {
            const int place = model->find(row.key);
            if (place < 0)
                continue;
            const EditedRow edited = model->rows().at(place);
            for (int i = 0; i < row.cells.size(); ++i)
                if (edited.cells.at(i) != edited.stored.value(i) && !lost.contains({row.key, i}))
                    row.cells[i] = edited.cells.at(i);
        }
        for (const EditedRow& row : model->rows())
            if (row.isNew() && !m_base.row(model->sheet().table, row.key))
                rows.append(row);
        model->setRows(rows);
    }
    show(m_base);
}

int DirectoryDraft::sharedRows(Store* store, const QSet<QByteArray>& keys) const
{
    constexpr int portion = 1000;
    ChangePosition position = m_seen;
    QHash<QByteArray, QSet<qint64>> transactions;
    QVector<StoreChange> changes;
    StoreError error;
    do {
        changes.clear();
        if (!store->changesAfter(&position, portion, &changes, &error))
            return 0; // what follows reads the store and reports it
        for (const StoreChange& change : qAsConst(changes))
            if (keys.contains(change.key))
                transactions[change.key].insert(change.number);
    } while (!changes.isEmpty());
    return int(std::count_if(transactions.begin(), transactions.end(),
                             [](const QSet<qint64>& numbers) { return numbers.size() > 1; }));
}

bool DirectoryDraft::save(Store* store, const QString& url, Outcome* outcome, StoreError* error)
{
    *outcome = Outcome();
    QHash<QString, QVector<Line>> lines;
    const auto checked = import(store, &lines);
    if (!checked->compareWith(m_base))
        return false;
    if (!checked->carryOut(url, error, &outcome->isWritten))
        return false;
    QSet<QByteArray> keys;
    for (const QVector<Line>& ofFile : qAsConst(lines))
        for (const Line& line : ofFile)
            keys.insert(line.key);
    outcome->shared = sharedRows(store, keys);
    return load(store, error);
}
