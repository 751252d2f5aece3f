#pragma once

#include "JournalFigures.h"

#include <QAbstractTableModel>

/// The figures of a journal as a table, one row each, single figures first. A heading is shown in the first row of its group only; the
/// others have it for screen readers and for tables that are taken out of the program.
class FiguresModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Group, Name, Count, Total, Share, Columns };
    enum Role {
        BarRole = Qt::UserRole + 1 ///< of Share: length of the bar, from 0 to 1: of a group's greatest count
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setFigures(const QVector<JournalFigures::Figure>& figures, int lateMinutes);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool isFirstOfGroup(int row) const;
    QString shown(int row, int column) const;
    double bar(int row) const;

    QVector<JournalFigures::Figure> m_figures;
    QHash<QByteArray, qint64> m_greatest; ///< count by group
    int m_lateMinutes = 0;
};
