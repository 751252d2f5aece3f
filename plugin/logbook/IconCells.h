#pragma once

#include "AbstractHfnCellConversion.h"

#include <QIcon>

class CModelTable;

/// Columns that show an icon and no text.

/// Approved, draft, deleted.
class StatusCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit StatusCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QIcon m_icons[3]; ///< by RecordStatus
};

/// The visa; its tooltip names who put it.
class SignCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    SignCell(CModelTable* workers, QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    CModelTable* m_workers;
    QIcon m_icon;
};

/// The record has comments.
class CommentCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit CommentCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QIcon m_icon;
};

/// The record has files.
class FileCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit FileCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QIcon m_icon;
};

/// The arrow of the message's direction.
class DirectionCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    explicit DirectionCell(QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QIcon m_left;
    QIcon m_right;
};
