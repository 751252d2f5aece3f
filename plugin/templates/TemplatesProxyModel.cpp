#include "TemplatesProxyModel.h"

#include "CModelTable.h"

namespace
{
bool isIn(const QModelIndex& index, const CModelTable* table, const CModelTable* edits)
{
    const auto* record = index.isValid() ? static_cast<MDRData*>(index.internalPointer()) : nullptr;
    const MDArray* owner = MDARecArr(record);
    return owner && (owner == table->data.array || owner == edits->data.array);
}
} // namespace

void TemplatesProxyModel::setFilterRoot(QString key)
{
    set(m_filterRoot, key);
    invalidate(); // apply the filter again to all rows
}

bool TemplatesProxyModel::isReadyData() const
{
    return m_categories && m_categoriesEdit && m_templates && m_templatesEdit;
}

bool TemplatesProxyModel::isCategory(const QModelIndex& index) const
{
    return isReadyData() && isIn(index, m_categories, m_categoriesEdit);
}

bool TemplatesProxyModel::isTemplate(const QModelIndex& index) const
{
    return isReadyData() && isIn(index, m_templates, m_templatesEdit);
}

bool TemplatesProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (!m_filterRoot.isEmpty() && !sourceParent.isValid()) {
        const QModelIndex row = sourceModel()->index(sourceRow, 0, sourceParent);
        if (row.isValid())
            return row.data(Qt::UserRole).toString() == m_filterRoot;
    }
    return QSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent);
}

bool TemplatesProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (isTemplate(left) && !isTemplate(right))
        return false;
    if (isCategory(left) && !isCategory(right))
        return true;
    return QSortFilterProxyModel::lessThan(left, right);
}
