#include "IconCells.h"

#include "CellIcon.h"
#include "HfnWrapper.h"
#include "LogbookFields.h"
#include "RecordValue.h"

namespace
{
/// Decoration of a cell without a text: \a icon when \a isShown; other roles are the base's.
QVariant iconData(const AbstractHfnCellConversion& conversion, const AbstractHfnCellData& cell,
                  const QIcon& icon, const char* field)
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role == Qt::DecorationRole)
        return isSet(recordValue(cell.record, field)) ? QVariant(icon) : QVariant();
    return conversion.AbstractHfnCellConversion::data(cell);
}
} // namespace

StatusCell::StatusCell(QObject* parent)
    : AbstractHfnCellConversion(parent),
      m_icons{cellIcon(QStringLiteral(":/icons/apply.png")), cellIcon(QStringLiteral(":/icons/draft.png")),
              cellIcon(QStringLiteral(":/icons/deleted.png"))}
{
}

QVariant StatusCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role != Qt::DecorationRole)
        return AbstractHfnCellConversion::data(cell);
    for (const int status : {StatusApproved, StatusDraft, StatusDeleted})
        if (hasStatus(cell.record, status))
            return m_icons[status];
    return QVariant();
}

SignCell::SignCell(CModelTable* workers, QObject* parent)
    : AbstractHfnCellConversion(parent),
      m_workers(workers),
      m_icon(cellIcon(QStringLiteral(":/icons/sign.png")))
{
}

QVariant SignCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role != Qt::DecorationRole && cell.role != Qt::ToolTipRole)
        return AbstractHfnCellConversion::data(cell);
    const MDRVar visa = recordValue(cell.record, "VisaWorkerKey");
    if (!MDRValue::hasText(visa))
        return QVariant();
    if (cell.role == Qt::DecorationRole)
        return m_icon;
    return HfnWrapper::workerShortName(cell.codec, m_workers, QString::fromUtf8(MDRValue::bytes(visa)));
}

CommentCell::CommentCell(QObject* parent)
    : AbstractHfnCellConversion(parent), m_icon(cellIcon(QStringLiteral(":/icons/comment.png")))
{
}

QVariant CommentCell::data(const AbstractHfnCellData& cell) const
{
    return iconData(*this, cell, m_icon, "comment");
}

FileCell::FileCell(QObject* parent)
    : AbstractHfnCellConversion(parent), m_icon(cellIcon(QStringLiteral(":/icons/affix.png")))
{
}

QVariant FileCell::data(const AbstractHfnCellData& cell) const
{
    return iconData(*this, cell, m_icon, "file");
}

DirectionCell::DirectionCell(QObject* parent)
    : AbstractHfnCellConversion(parent),
      m_left(cellIcon(QStringLiteral(":/icons/arrow_left.png"))),
      m_right(cellIcon(QStringLiteral(":/icons/arrow_right.png")))
{
}

QVariant DirectionCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role != Qt::DecorationRole)
        return AbstractHfnCellConversion::data(cell);
    const MDRVar direction = recordValue(cell.record, "direction");
    if (direction.type != mdr_TInt32 || direction.isNull)
        return QVariant();
    if (direction.value.number == DirectionLeft)
        return m_left;
    if (direction.value.number == DirectionRight)
        return m_right;
    return QVariant();
}
