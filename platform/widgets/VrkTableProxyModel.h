#pragma once

#include "VrkTableModel.h"

#include <QPointer>
#include <QSortFilterProxyModel>
#include <QVector>

class VrkTableFilterRow;

/// Sorts and filters a VrkTableModel. Numbers and times are sorted by their stored value, never by the
/// shown text; all other columns by the shown text. Equal rows keep the order of the array in both sort
/// directions. A row is shown if every filter accepts it; filters are applied again whenever the record
/// changes or a filter is switched.
class VRK_EXPORT VrkTableProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit VrkTableProxyModel(QObject* parent = nullptr);
    ~VrkTableProxyModel() override;

    /// Adds a filter; null or one that was already added changes nothing. Not owned; it is removed when it
    /// is destroyed.
    void setFilterRows(VrkTableFilterRow* filter);
    /// Expects a VrkTableModel; any other model is neither sorted nor filtered.
    void setSourceModel(QAbstractItemModel* model) override;
    VrkTableModel* tableModel() const { return m_table; }
    /// The record of a row of this model, or null.
    MDRData* record(int row) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QPointer<VrkTableModel> m_table;
    QVector<VrkTableFilterRow*> m_filters;
};
