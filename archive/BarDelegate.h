#pragma once

#include <QStyledItemDelegate>

/// Draws the share of a figure as a bar from the left, and its text behind the room of the longest bar.
class BarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
