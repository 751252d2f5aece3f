#include "BarDelegate.h"

#include "FiguresModel.h"

#include <QPainter>

namespace
{
constexpr int margin = 6;  // beside the bar
constexpr int spacing = 3; // above and below it

/// The place of the longest bar: what the longest text leaves.
QRect barRoom(const QStyleOptionViewItem& option)
{
    const int text = option.fontMetrics.horizontalAdvance(QStringLiteral("100,0 %"));
    return option.rect.adjusted(margin, spacing, -text - 3 * margin, -spacing);
}
} // namespace

void BarDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideNone;
}

QSize BarDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * spacing);
}

void BarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    QRect bar = barRoom(option);
    const int length = qRound(index.data(FiguresModel::BarRole).toDouble() * bar.width());
    if (length <= 0)
        return;
    bar.setWidth(length);
    const bool isSelected = option.state & QStyle::State_Selected;
    painter->save();
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->setBrush(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight));
    painter->drawRect(bar.adjusted(0, 0, -1, -1));
    painter->restore();
}
