#include "Directory.h"

#include "MDRValues.h"
#include "TableCatalog.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
constexpr int deepest = 64;

QString parting()
{
    return QStringLiteral(" / ");
}

QString folded(const QString& name)
{
    return name.simplified().toCaseFolded();
}

QVariant fetched(const MDRVar& value, QTextCodec* codec)
{
    if (value.isNull)
        return {};
    switch (value.type) {
    case mdr_TDouble:
        return value.value.real;
    case mdr_TBool:
        return value.value.number != 0;
    case mdr_TInt32:
    case mdr_TByte:
        return value.value.number;
    default:
        return MDRValue::hasText(value) ? QVariant(codec->toUnicode(MDRValue::copy(value))) : QVariant();
    }
}

bool readTable(Store* store, const QByteArray& name, QHash<QByteArray, DirectoryRow>* rows, StoreError* error)
{
    const CatalogTable& table = *TableCatalog::table(name);
    QByteArrayList fields;
    for (const CatalogField& field : table.fields)
        fields << field.name;
    CMDArray answer;
    answer = store->select("SELECT " + fields.join(", ") + " FROM " + name, error);
    if (!answer.array)
        return false;
    for (int i = 0; i < answer.RecCount(); ++i) {
        DirectoryRow row;
        for (int k = 0; k < table.fields.size(); ++k) {
            MDRVar value;
            MDRGetVal(MDRFldByNum(answer.array, k), MDARec(answer.array, 0, i), &value);
            const QVariant content = fetched(value, store->codec());
            if (content.isValid())
                row.values.insert(table.fields.at(k).name, content);
        }
        row.key = row.reference("KeyLink");
        rows->insert(row.key, row);
    }
    return true;
}

DirectoryRow rowOf(const RowChange& change)
{
    DirectoryRow row;
    row.key = change.key;
    for (int i = 0; i < change.after.size(); ++i)
        if (change.after.at(i).isValid())
            row.values.insert(change.fields.at(i), change.after.at(i));
    return row;
}

QString identityOf(const Sheet& sheet, const DirectoryRow& row)
{
    QStringList parts;
    for (const SheetColumn& column : sheet.columns) {
        if (column.use & SheetColumn::Identity)
            parts << (column.kind == SheetColumn::Reference ? row.text(column.field)
                                                            : folded(row.text(column.field)));
    }
    return parts.join(QChar(1));
}
} // namespace

bool Directory::load(Store* store, StoreError* error)
{
    for (const Sheet& sheet : Sheets::all()) {
        if (!readTable(store, sheet.table, &m_tables[sheet.table].rows, error))
            return false;
    }
    QHash<QByteArray, DirectoryRow> rights;
    if (!readTable(store, "UserRights", &rights, error))
        return false;
    for (const DirectoryRow& row : qAsConst(rights))
        addRight(row);
    return true;
}

bool Directory::load(LogHistory* history, qint64 number)
{
    QByteArrayList tables{"UserRights"};
    for (const Sheet& sheet : Sheets::all())
        tables << sheet.table;
    QVector<RowChange> rows;
    if (!history->tablesAt(tables, number, &rows))
        return false;
    for (const RowChange& change : qAsConst(rows)) {
        if (change.table == "UserRights")
            addRight(rowOf(change));
        else
            m_tables[change.table].rows.insert(change.key, rowOf(change));
    }
    return true;
}

QVector<const DirectoryRow*> Directory::rows(const QByteArray& table) const
{
    QVector<QPair<QString, const DirectoryRow*>> sorted;
    const QHash<QByteArray, DirectoryRow>& rows = m_tables[table].rows;
    for (const DirectoryRow& row : rows)
        sorted.append({label(table, row), &row});
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first : a.second->key < b.second->key;
    });
    QVector<const DirectoryRow*> all;
    for (const auto& [name, row] : qAsConst(sorted))
        all.append(row);
    return all;
}

const DirectoryRow* Directory::row(const QByteArray& table, const QByteArray& key) const
{
    const QHash<QByteArray, DirectoryRow>& rows = m_tables[table].rows;
    const auto found = rows.constFind(key);
    return found == rows.cend() ? nullptr : &*found;
}

void Directory::put(const QByteArray& table, const DirectoryRow& row)
{
    Table& known = m_tables[table];
    const DirectoryRow* before = this->row(table, row.key);
    const bool fresh = !before;
    const bool keepsNames = before && label(table, *before) == label(table, row) &&
                            identityOf(Sheets::of(table), *before) == identityOf(Sheets::of(table), row);
    known.rows.insert(row.key, row);
    if (keepsNames)
        return; // a change of another field costs nothing, however many rows there are
    if (!fresh)
        known.stale = true; // its old names must be removed
    else if (!known.stale)
        enter(table, row);
}

QString Directory::label(const QByteArray& table, const DirectoryRow& row) const
{
    const QString made = label(table, row, 0);
    if (!made.isEmpty())
        return made;
    // A row that only its key identifies.
    for (const char* field : {"name_", "nameLat"})
        if (!row.text(field).isEmpty())
            return row.text(field);
    return QString::fromUtf8(row.key);
}

QString Directory::label(const QByteArray& table, const DirectoryRow& row, int depth) const
{
    QStringList owners;
    QStringList own;
    for (const SheetColumn& column : Sheets::of(table).columns) {
        if (!(column.use & SheetColumn::Identity))
            continue;
        const QString text = row.text(column.field);
        if (column.kind != SheetColumn::Reference) {
            if (!text.isEmpty())
                own << text;
            continue;
        }
        const DirectoryRow* owner = this->row(column.refers, text.toUtf8());
        if (owner && depth < deepest)
            owners << label(column.refers, *owner, depth + 1);
    }
    if (!own.isEmpty())
        owners << own.join(QLatin1Char(' '));
    return owners.join(parting());
}

void Directory::enter(const QByteArray& table, const DirectoryRow& row) const
{
    Table& known = m_tables[table];
    known.identities.insert(identityOf(Sheets::of(table), row), row.key);
    QString name = label(table, row);
    for (;;) {
        known.names.insert(folded(name), row.key);
        const int part = name.indexOf(parting());
        if (part < 0)
            return;
        name = name.mid(part + parting().size());
    }
}

const Directory::Table& Directory::indexed(const QByteArray& table) const
{
    Table& known = m_tables[table];
    if (known.stale) {
        known.names.clear();
        known.identities.clear();
        known.stale = false;
        for (const DirectoryRow& row : qAsConst(known.rows))
            enter(table, row);
    }
    return known;
}

QVector<QByteArray> Directory::resolve(const QByteArray& table, const QString& text,
                                       const QByteArray& department) const
{
    if (row(table, text.trimmed().toUtf8()))
        return {text.trimmed().toUtf8()};
    const QString name = folded(text);
    QVector<QByteArray> found;
    QVector<QByteArray> present;
    QVector<QByteArray> exact;
    const auto keys = indexed(table).names.values(name);
    for (const QByteArray& key : keys) {
        const DirectoryRow& candidate = *row(table, key);
        if (found.contains(key) ||
            (!department.isEmpty() && candidate.reference("DepartmentKey") != department))
            continue;
        found.append(key);
        if (!candidate.retired())
            present.append(key);
        if (folded(label(table, candidate)) == name)
            exact.append(key);
    }
    return exact.size() == 1 ? exact : present.isEmpty() ? found : present;
}

QString Directory::reference(const QByteArray& table, const QByteArray& key,
                             const QByteArray& department) const
{
    const DirectoryRow* referred = row(table, key);
    if (!referred)
        return QString::fromUtf8(key); // of a row that no longer exists: not a name, but not lost
    const QStringList parts = label(table, *referred).split(parting());
    for (int first = parts.size() - 1; first >= 0; --first) {
        const QString name = parts.mid(first).join(parting());
        if (resolve(table, name, department) == QVector<QByteArray>{key})
            return name;
    }
    return QString::fromUtf8(key);
}

QString Directory::nearest(const QByteArray& table, const QString& text, const QByteArray& department) const
{
    QStringList names;
    for (const DirectoryRow* one : rows(table)) {
        if (!department.isEmpty() && one->reference("DepartmentKey") != department)
            continue;
        const QString name = label(table, *one);
        names << name.section(parting(), -1) << name;
    }
    return Sheets::nearest(text.simplified(), names);
}

QByteArray Directory::same(const QByteArray& table, const DirectoryRow& row) const
{
    QByteArray found;
    const QVector<SheetColumn>& columns = Sheets::of(table).columns;
    if (std::none_of(columns.begin(), columns.end(),
                     [](const SheetColumn& column) { return column.use & SheetColumn::Identity; }))
        return found;
    const auto keys = indexed(table).identities.values(identityOf(Sheets::of(table), row));
    for (const QByteArray& key : keys) {
        if (found.isEmpty() || !this->row(table, key)->retired())
            found = key;
    }
    return found;
}

bool Directory::ownsItself(const QByteArray& table, const QByteArray& key, const QByteArray& field) const
{
    const DirectoryRow* owner = row(table, key);
    for (int depth = 0; owner && depth < deepest; ++depth) {
        owner = row(table, owner->reference(field));
        if (owner && owner->key == key)
            return true;
    }
    return false;
}
