#pragma once

#include "AbstractHfnCellConversion.h"

#include <QIcon>
#include <utility>
#include <vector>

class CModelTable;

/// Columns that show an icon and no text.

/// The icon for the value of one field, from a table; a value without an icon shows nothing.
class IconCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    /// A value of the field and the path of its picture; logical fields have the value 1 for true.
    using Pictures = std::vector<std::pair<int, const char*>>;

    QVariant data(const AbstractHfnCellData& cell) const override;

protected:
    IconCell(const char* field, const Pictures& pictures, QObject* parent);

private:
    const char* m_field;
    std::vector<std::pair<int, QIcon>> m_icons;
};

/// Approved, draft, deleted.
struct StatusCell : IconCell {
    explicit StatusCell(QObject* parent);
};

/// The record has comments.
struct CommentCell : IconCell {
    explicit CommentCell(QObject* parent);
};

/// The record has files.
struct FileCell : IconCell {
    explicit FileCell(QObject* parent);
};

/// The arrow of the message's direction.
struct DirectionCell : IconCell {
    explicit DirectionCell(QObject* parent);
};

/// The visa; its tooltip shows who has set it.
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
