#pragma once

#include "AbstractHfnCellConversion.h"

#include <QHash>
#include <QIcon>

class CModelTable;

/// Columns that depend on the template of a record.

/// The icon of the first marker, if it is set.
class FirstMarkerCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit FirstMarkerCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    mutable QHash<QString, QIcon> m_icons; ///< by path
};

/// The icon of the second marker, if it is set; the tooltip shows when and by whom.
class SecondMarkerCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    SecondMarkerCell(CModelTable* workers, QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QString toolTip(const AbstractHfnCellData& cell) const;

    CModelTable* m_workers;
    mutable QHash<QString, QIcon> m_icons; ///< by path
};

/// The execution time if the template requires one, and a note if it is missing.
class TimeExecutionCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit TimeExecutionCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;
};
