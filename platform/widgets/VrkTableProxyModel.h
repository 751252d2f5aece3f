#pragma once

#include "VrkTableModel.h"

#include <QPointer>
#include <QSortFilterProxyModel>
#include <QVector>

class VrkTableFilterRow;

/// Sorts and filters a VrkTableModel. Numbers and times sort by their stored value, never by what is shown,
/// all other columns by the shown text; equal ones stand in the order of the array, whichever way the column
/// is sorted. A row is shown when every filter keeps it; filters are asked again whenever the record changes
/// or a filter is switched.
class VRK_EXPORT VrkTableProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit VrkTableProxyModel(QObject* parent = nullptr);
    ~VrkTableProxyModel() override;

    /// Adds a filter; one that is there already, or null, changes nothing. Not owned; it leaves when it is
    /// destroyed.
    void setFilterRows(VrkTableFilterRow* filter);
    /// A VrkTableModel; any other model is neither sorted nor filtered.
    void setSourceModel(QAbstractItemModel* model) override;
    VrkTableModel* tableModel() const { return m_table; }
    /// The record behind a row of this model, or null.
    MDRData* record(int row) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QPointer<VrkTableModel> m_table;
    QVector<VrkTableFilterRow*> m_filters;
};
