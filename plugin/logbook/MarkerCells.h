#pragma once

#include "AbstractHfnCellConversion.h"

#include <QHash>
#include <QIcon>

class CModelTable;

/// Columns that show what the template of a record asks for.

/// The icon of the first marker, when it is set.
class FirstMarkerCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit FirstMarkerCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    mutable QHash<QString, QIcon> m_icons; ///< by path
};

/// The icon of the second marker, when it is set; the tooltip tells when and by whom.
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

/// The execution time where the template needs one, and that it is missing.
class TimeExecutionCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit TimeExecutionCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;
};
