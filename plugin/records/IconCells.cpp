#include "IconCells.h"

#include "CellIcon.h"
#include "HfnWrapper.h"
#include "LogbookFields.h"
#include "RecordValue.h"

IconCell::IconCell(const char* field, const Pictures& pictures, QObject* parent)
    : AbstractHfnCellConversion(parent), m_field(field)
{
    for (const auto& [value, path] : pictures)
        m_icons.emplace_back(value, cellIcon(QLatin1String(path)));
}

QVariant IconCell::data(const AbstractHfnCellData& cell) const
{
    if (cell.role == Qt::DisplayRole)
        return QVariant();
    if (cell.role != Qt::DecorationRole)
        return AbstractHfnCellConversion::data(cell);
    const MDRVar value = Row(cell.record).value(m_field);
    if (value.isNull || (value.type != mdr_TInt32 && value.type != mdr_TBool))
        return QVariant();
    const int number = value.type == mdr_TBool ? int(isSet(value)) : value.value.number;
    for (const auto& [known, icon] : m_icons)
        if (known == number)
            return icon;
    return QVariant();
}

StatusCell::StatusCell(QObject* parent)
    : IconCell(Field::status,
               {{StatusApproved, ":/icons/apply.png"},
                {StatusDraft, ":/icons/draft.png"},
                {StatusDeleted, ":/icons/deleted.png"}},
               parent)
{
}

CommentCell::CommentCell(QObject* parent) : IconCell(Field::comment, {{1, ":/icons/comment.png"}}, parent) {}

FileCell::FileCell(QObject* parent) : IconCell(Field::file, {{1, ":/icons/affix.png"}}, parent) {}

DirectionCell::DirectionCell(QObject* parent)
    : IconCell(Field::direction,
               {{DirectionLeft, ":/icons/arrow_left.png"}, {DirectionRight, ":/icons/arrow_right.png"}},
               parent)
{
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
    const MDRVar visa = Row(cell.record).value(Field::VisaWorkerKey);
    if (!MDRValue::hasText(visa))
        return QVariant();
    if (cell.role == Qt::DecorationRole)
        return m_icon;
    return HfnWrapper::workerShortName(cell.codec, m_workers, QString::fromUtf8(MDRValue::bytes(visa)));
}
