#include "VrkTableProxyModel.h"

#include "MDRValues.h"
#include "VrkTableFilterRow.h"

#include <QCollator>

namespace
{
bool isNumber(const MDRField* field)
{
    return field->type == mdr_TBool || field->type == mdr_TByte || field->type == mdr_TInt32 ||
           field->type == mdr_TDouble;
}

// Null is the least value.
int compareNumbers(const MDRField* field, const MDRData* left, const MDRData* right)
{
    MDRVar a;
    MDRVar b;
    MDRGetVal(field, left, &a);
    MDRGetVal(field, right, &b);
    if (a.isNull || b.isNull)
        return (a.isNull ? 0 : 1) - (b.isNull ? 0 : 1);
    const double x = field->type == mdr_TDouble ? a.value.real : a.value.number;
    const double y = field->type == mdr_TDouble ? b.value.real : b.value.number;
    return x < y ? -1 : x > y ? 1 : 0;
}

int compareTexts(const QString& left, const QString& right)
{
    static const QCollator collator = [] {
        QCollator made{QLocale(QLocale::Russian)};
        made.setCaseSensitivity(Qt::CaseInsensitive);
        return made;
    }();
    return collator.compare(left, right);
}
} // namespace

VrkTableProxyModel::VrkTableProxyModel(QObject* parent) : QSortFilterProxyModel(parent) {}

VrkTableProxyModel::~VrkTableProxyModel() = default;

void VrkTableProxyModel::setFilterRows(VrkTableFilterRow* filter)
{
    if (!filter || m_filters.contains(filter))
        return;
    m_filters.append(filter);
    // During a reset the array is being refilled; all rows are filtered at its end anyway.
    const auto ask = [this] {
        if (!tableModel() || !tableModel()->isResetting())
            invalidateFilter();
    };
    connect(filter, &VrkTableFilterRow::enabledChanged, this, ask);
    connect(filter, &QObject::destroyed, this, [this, ask, filter] {
        m_filters.removeAll(filter);
        ask();
    });
    ask();
}

void VrkTableProxyModel::setSourceModel(QAbstractItemModel* model)
{
    m_table = qobject_cast<VrkTableModel*>(model);
    QSortFilterProxyModel::setSourceModel(model);
}

MDRData* VrkTableProxyModel::record(int row) const
{
    const VrkTableModel* model = tableModel();
    return model ? model->record(mapToSource(index(row, 0))) : nullptr;
}

bool VrkTableProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex&) const
{
    const VrkTableModel* model = tableModel();
    MDRData* const record = model ? model->record(sourceRow) : nullptr;
    if (!record)
        return true;
    for (const VrkTableFilterRow* filter : m_filters) {
        if (!filter->isAcceptRow(model->cmdArray(), record))
            return false;
    }
    return true;
}

bool VrkTableProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const VrkTableModel* model = tableModel();
    const MDRField* field = model ? model->field(left.column()) : nullptr;
    const MDRData* a = field ? model->record(left) : nullptr;
    const MDRData* b = field ? model->record(right) : nullptr;
    if (!a || !b)
        return left.row() < right.row();
    const int order = isNumber(field) ? compareNumbers(field, a, b)
                                      : compareTexts(left.data().toString(), right.data().toString());
    if (order != 0)
        return order < 0;
    // In descending order the arguments are swapped; equal rows must keep the order of the array in both
    // cases.
    return sortOrder() == Qt::AscendingOrder ? left.row() < right.row() : left.row() > right.row();
}
