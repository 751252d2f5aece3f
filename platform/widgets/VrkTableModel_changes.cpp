#include "AbstractHfnCellConversion.h"
#include "VrkTableModel.h"

#include <algorithm>

void VrkTableModel::readFields()
{
    const MDArray* array = m_array ? m_array->array : nullptr;
    m_columns.clear();
    const int count = MDAFldCount(array);
    m_columns.resize(count);
    for (int i = 0; i < count; ++i) {
        Column& column = m_columns[i];
        column.field = MDRFldByNum(array, i);
        const auto settings = m_settings.constFind(QString::fromLatin1(column.field->name).toLower());
        if (settings != m_settings.constEnd()) {
            column.conversion = settings->conversion;
            column.header = settings->header;
        }
        const bool isText = column.field->type == mdr_TChar || column.field->type == mdr_TMemo;
        column.templateText = isText && qstricmp(column.field->name, TemplateField) == 0;
    }
    m_rows = MDAKeyRecCount(array, 0);
    m_texts.clear();
}

void VrkTableModel::beginResetModel()
{
    if (m_resets++ == 0)
        QAbstractTableModel::beginResetModel();
}

void VrkTableModel::endResetModel()
{
    if (m_resets == 0 || --m_resets > 0)
        return;
    readFields();
    QAbstractTableModel::endResetModel();
}

void VrkTableModel::resetQuietly()
{
    beginResetModel();
    endResetModel();
}

void VrkTableModel::beginAppendRows(int count)
{
    m_appending = isResetting() || !m_array ? 0 : std::max(count, 0);
    if (m_appending == 0)
        return;
    m_last = record(m_rows - 1);
    QAbstractTableModel::beginInsertRows(QModelIndex(), m_rows, m_rows + m_appending - 1);
}

void VrkTableModel::endAppendRows()
{
    if (m_appending == 0)
        return;
    const int before = m_rows;
    m_rows += m_appending;
    m_appending = 0;
    const bool asTold = MDAKeyRecCount(m_array->array, 0) == m_rows &&
                        (!m_last || MDARecPos(m_array->array, 0, m_last) == before - 1);
    m_last = nullptr;
    endInsertRows();
    if (!asTold)
        resetQuietly();
}

void VrkTableModel::beginRemoveRecord(MDRData* record)
{
    const QModelIndex index = isResetting() ? QModelIndex() : indexOf(record);
    m_removing = index.isValid() ? record : nullptr;
    if (m_removing)
        beginRemoveRows(QModelIndex(), index.row(), index.row());
}

void VrkTableModel::endRemoveRecord()
{
    if (!m_removing)
        return;
    m_texts.remove(m_removing);
    m_removing = nullptr;
    --m_rows;
    endRemoveRows();
    if (MDAKeyRecCount(m_array->array, 0) != m_rows)
        resetQuietly();
}

void VrkTableModel::updateRecord(MDRData* record, const QVector<int>& columns)
{
    m_texts.remove(record);
    const QModelIndex left = isResetting() ? QModelIndex() : indexOf(record);
    if (!left.isValid())
        return;
    int first = 0;
    int last = m_columns.size() - 1;
    if (!columns.isEmpty()) {
        const auto range = std::minmax_element(columns.cbegin(), columns.cend());
        first = std::max(first, *range.first);
        last = std::min(last, *range.second);
    }
    if (first <= last)
        emit dataChanged(index(left.row(), first), index(left.row(), last));
}
