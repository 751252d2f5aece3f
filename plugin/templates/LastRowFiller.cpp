#include "LastRowFiller.h"

#include <algorithm>
#include <QEvent>
#include <QTreeWidget>

LastRowFiller::LastRowFiller(QTreeWidget* tree)
    : QStyledItemDelegate(tree), m_tree(tree), m_viewport(tree->viewport())
{
    tree->setItemDelegate(this);
    tree->viewport()->installEventFilter(this);
    connect(tree, &QTreeWidget::itemExpanded, this, &LastRowFiller::layOutAnew);
    connect(tree, &QTreeWidget::itemCollapsed, this, &LastRowFiller::layOutAnew);
}

QSize LastRowFiller::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    const bool isLast = !index.parent().isValid() && index.row() == m_tree->topLevelItemCount() - 1;
    return isLast ? QSize(hint.width(), std::max(hint.height(), roomLeft())) : hint;
}

int LastRowFiller::roomLeft() const
{
    int room = m_tree->viewport()->height();
    for (int i = 0; i < m_tree->topLevelItemCount() - 1; ++i) {
        const QTreeWidgetItem* row = m_tree->topLevelItem(i);
        room -= row->sizeHint(0).height();
        for (int child = 0; row->isExpanded() && child < row->childCount(); ++child)
            room -= row->child(child)->sizeHint(0).height();
    }
    return room;
}

bool LastRowFiller::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_viewport)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == QEvent::Resize)
        layOutAnew();
    return false; // the delegate would take the viewport for one of its editors, and consume their keys
}

void LastRowFiller::layOutAnew()
{
    if (m_tree->topLevelItemCount() > 0)
        emit sizeHintChanged(m_tree->model()->index(m_tree->topLevelItemCount() - 1, 0));
}
