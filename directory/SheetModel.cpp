#include "SheetModel.h"

#include "GenGuid32.h"
#include "SheetCells.h"
#include "SheetExport.h"

#include <QApplication>
#include <QFont>
#include <QStyle>
#include <QUndoStack>

namespace
{
/// One changed cell.
class CellCommand : public QUndoCommand
{
public:
    CellCommand(SheetModel* model, const EditedRow& row, int column, const QString& cell,
                QUndoCommand* parent = nullptr)
        : QUndoCommand(QCoreApplication::translate("SheetModel", "правку ячейки"), parent),
          m_model(model),
          m_key(row.key),
          m_column(column),
          m_before(row.cells.at(column)),
          m_after(cell)
    {
    }
    void undo() override { m_model->put(m_key, m_column, m_before); }
    void redo() override { m_model->put(m_key, m_column, m_after); }

private:
    SheetModel* m_model;
    QByteArray m_key;
    int m_column;
    QString m_before;
    QString m_after;
};

/// A new row appears, or disappears.
class RowCommand : public QUndoCommand
{
public:
    RowCommand(SheetModel* model, int at, const EditedRow& row, bool isAdded, QUndoCommand* parent = nullptr)
        : QUndoCommand(isAdded ? QCoreApplication::translate("SheetModel", "новую строку")
                               : QCoreApplication::translate("SheetModel", "удаление строки"),
                       parent),
          m_model(model),
          m_at(at),
          m_row(row),
          m_isAdded(isAdded)
    {
    }
    void undo() override { set(!m_isAdded); }
    void redo() override { set(m_isAdded); }

private:
    void set(bool present)
    {
        if (present)
            m_model->insert(m_at, m_row);
        else
            m_model->remove(m_row.key);
    }

    SheetModel* m_model;
    int m_at;
    EditedRow m_row;
    bool m_isAdded;
};

bool isYes(const QString& cell)
{
    return SheetCells::readFlag(cell).toBool();
}
} // namespace

SheetModel::SheetModel(const Sheet& sheet, QUndoStack* undo, QObject* parent)
    : QAbstractTableModel(parent), m_sheet(sheet), m_undo(undo)
{
    for (int i = 0; i < sheet.columns.size(); ++i)
        if (sheet.columns.at(i).field == "deleted_")
            m_retirement = i;
}

EditedRow SheetModel::stored(const Directory& directory, const Sheet& sheet, const DirectoryRow& row)
{
    EditedRow edited;
    edited.key = row.key;
    edited.cells = SheetExport::cells(directory, sheet, row, SheetExport::Keys);
    edited.stored = edited.cells;
    return edited;
}

void SheetModel::setRows(const QVector<EditedRow>& rows)
{
    beginResetModel();
    m_rows = rows;
    m_faults.clear();
    m_names.clear();
    m_places.clear();
    endResetModel();
}

int SheetModel::find(const QByteArray& key) const
{
    const int place = m_places.value(key, -1);
    if (place >= 0 && place < m_rows.size() && m_rows.at(place).key == key)
        return place;
    QHash<QByteArray, int>& places = const_cast<SheetModel*>(this)->m_places;
    places.clear();
    for (int i = 0; i < m_rows.size(); ++i)
        places.insert(m_rows.at(i).key, i);
    return places.value(key, -1);
}

void SheetModel::put(const QByteArray& key, int column, const QString& cell)
{
    const int row = find(key);
    if (row < 0)
        return;
    m_rows[row].cells[column] = cell;
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit headerDataChanged(Qt::Vertical, row, row);
    emit edited();
}

void SheetModel::insert(int at, const EditedRow& row)
{
    beginInsertRows({}, at, at);
    m_rows.insert(at, row);
    endInsertRows();
    emit edited();
}

void SheetModel::remove(const QByteArray& key)
{
    const int row = find(key);
    if (row < 0)
        return;
    beginRemoveRows({}, row, row);
    m_rows.remove(row);
    endRemoveRows();
    emit edited();
}

QByteArray SheetModel::append()
{
    EditedRow row;
    row.key = GenGuid32();
    for (const SheetColumn& column : m_sheet.columns)
        row.cells << (column.kind == SheetColumn::Code ? QString::fromUtf8(row.key) : QString());
    m_undo->push(new RowCommand(this, m_rows.size(), row, true));
    return row.key;
}

bool SheetModel::discard(const QVector<QByteArray>& keys)
{
    for (const QByteArray& key : keys)
        if (m_retirement < 0 && !m_rows.at(find(key)).isNew())
            return false;
    auto* all = new QUndoCommand(tr("удаление строк"));
    for (const QByteArray& key : keys) {
        const int row = find(key);
        const EditedRow edited = m_rows.at(row);
        if (edited.isNew())
            new RowCommand(this, row, edited, false, all);
        else if (!isYes(edited.cells.at(m_retirement)))
            new CellCommand(this, edited, m_retirement, SheetCells::flag(true), all);
    }
    if (all->childCount() > 0)
        m_undo->push(all);
    else
        delete all;
    return true;
}

bool SheetModel::isFormer(int row) const
{
    const EditedRow& edited = m_rows.at(row);
    return m_retirement >= 0 && !edited.isChanged() && isYes(edited.stored.at(m_retirement));
}

void SheetModel::setDirectory(const Directory* directory)
{
    m_directory = directory;
    m_names.clear();
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, 0), index(m_rows.size() - 1, columnCount() - 1));
}

void SheetModel::setFaults(const QHash<QByteArray, QVector<CellFault>>& faults)
{
    m_faults = faults;
    if (m_rows.isEmpty())
        return;
    emit dataChanged(index(0, 0), index(m_rows.size() - 1, columnCount() - 1));
    emit headerDataChanged(Qt::Vertical, 0, m_rows.size() - 1);
}

SheetModel::State SheetModel::state(int row) const
{
    const EditedRow& edited = m_rows.at(row);
    if (edited.isNew())
        return Added;
    if (!edited.isChanged())
        return Same;
    const bool isLeaving =
        m_retirement >= 0 && isYes(edited.cells.at(m_retirement)) && !isYes(edited.stored.at(m_retirement));
    return isLeaving ? Retired : Changed;
}

QByteArray SheetModel::scope(const EditedRow& row) const
{
    for (const SheetColumn& column : m_sheet.columns) {
        if (column.kind != SheetColumn::Scope || !m_directory)
            continue;
        for (int i = 0; i < m_sheet.columns.size(); ++i) {
            if (m_sheet.columns.at(i).refers != "Workers")
                continue;
            const DirectoryRow* worker = m_directory->row("Workers", row.cells.at(i).toUtf8());
            return worker ? worker->reference(column.field) : QByteArray();
        }
    }
    return {};
}

QString SheetModel::shown(const EditedRow& row, int column, bool former) const
{
    const SheetColumn& one = m_sheet.columns.at(column);
    const QString cell = (former ? row.stored : row.cells).value(column);
    const bool isScope = one.kind == SheetColumn::Scope;
    if (!m_directory || !(isScope || one.kind == SheetColumn::Reference))
        return cell;
    const QByteArray department = scope(row);
    const QByteArray table = isScope ? QByteArray("Departments") : one.refers;
    const QByteArray key = isScope ? department : cell.toUtf8();
    if (key.isEmpty() || !m_directory->row(table, key))
        return isScope ? QString() : cell;
    QString& name = m_names[QString::fromUtf8(table + '/' + key + '/' + department)];
    if (name.isEmpty())
        name = m_directory->reference(table, key, isScope ? QByteArray() : department);
    return name;
}

QString SheetModel::cell(const EditedRow& row, int column, const QString& typed) const
{
    const SheetColumn& one = m_sheet.columns.at(column);
    if (one.kind != SheetColumn::Reference || !m_directory || typed.trimmed().isEmpty())
        return typed.trimmed();
    const QVector<QByteArray> found = m_directory->resolve(one.refers, typed, scope(row));
    return found.size() == 1 ? QString::fromUtf8(found.constFirst()) : typed.trimmed();
}

QString SheetModel::label(const EditedRow& row) const
{
    QStringList own;
    for (int i = 0; i < m_sheet.columns.size(); ++i)
        if ((m_sheet.columns.at(i).use & SheetColumn::Identity) && !shown(row, i).isEmpty())
            own << shown(row, i);
    return own.isEmpty() ? tr("новая строка") : own.join(QLatin1Char(' '));
}

int SheetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int SheetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_sheet.columns.size() - 1; // the code comes last
}

QString SheetModel::faultText(const EditedRow& row, int column) const
{
    QStringList texts;
    const auto faults = m_faults.value(row.key);
    for (const CellFault& fault : faults) {
        const bool isHere = fault.column ? fault.column == &m_sheet.columns.at(qMax(0, column)) : column <= 0;
        if (isHere || column < 0)
            texts << fault.line();
    }
    return texts.join(QLatin1Char('\n'));
}

QVariant SheetModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const EditedRow& row = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shown(row, index.column());
    case StateRole:
        return state(index.row());
    case FaultRole:
    case Qt::AccessibleDescriptionRole:
        return faultText(row, index.column());
    case Qt::ToolTipRole: {
        const QString fault = faultText(row, index.column());
        if (!fault.isEmpty())
            return fault;
        const bool isOther = !row.isNew() && row.cells.at(index.column()) != row.stored.at(index.column());
        return isOther ? tr("В журнале: %1").arg(shown(row, index.column(), true)) : QVariant();
    }
    case Qt::DecorationRole:
        return faultText(row, index.column()).isEmpty()
                   ? QVariant()
                   : QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    case Qt::FontRole: {
        QFont font;
        font.setBold(row.isNew() || row.cells.at(index.column()) != row.stored.at(index.column()));
        font.setStrikeOut(m_retirement >= 0 && isYes(row.cells.at(m_retirement)));
        return font;
    }
    default:
        return {};
    }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal) {
        const SheetColumn& column = m_sheet.columns.at(section);
        if (role == Qt::DisplayRole)
            return (column.use & SheetColumn::Required) ? column.heading + QLatin1Char('*') : column.heading;
        if (role == Qt::ToolTipRole && (column.use & SheetColumn::Required))
            return tr("Заполнять обязательно");
        return {};
    }
    static const char* const marks[] = {" ", "+", "~", "−"};
    const QString texts[] = {QString(), tr("Новая строка"), tr("Строка изменена"), tr("Будет убрана")};
    const bool isFaulty = m_faults.contains(m_rows.at(section).key);
    if (role == Qt::DisplayRole)
        return isFaulty ? QStringLiteral("!") : QString::fromUtf8(marks[state(section)]);
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole)
        return isFaulty ? faultText(m_rows.at(section), -1) : texts[state(section)];
    return {};
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    const EditedRow row = m_rows.at(index.row());
    const QString text = cell(row, index.column(), value.toString());
    if (text != row.cells.at(index.column()))
        m_undo->push(new CellCommand(this, row, index.column(), text));
    return true;
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const bool isDerived = index.isValid() && m_sheet.columns.at(index.column()).kind == SheetColumn::Scope;
    return isDerived ? flags : flags | Qt::ItemIsEditable;
}
