#include "WrapLayout.h"

#include <QWidget>

WrapLayout::WrapLayout(QWidget* parent) : QLayout(parent) {}

WrapLayout::~WrapLayout()
{
    qDeleteAll(m_items);
}

QLayoutItem* WrapLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

QSize WrapLayout::sizeHint() const
{
    QSize size;
    for (const QLayoutItem* item : m_items) {
        const QSize wanted = item->sizeHint();
        size = QSize(size.width() + wanted.width() + spacing(), qMax(size.height(), wanted.height()));
    }
    const QMargins around = contentsMargins();
    return QSize(qMax(0, size.width() - spacing()), size.height()).grownBy(around);
}

QSize WrapLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

void WrapLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int WrapLayout::arrange(const QRect& rect, bool isMoving) const
{
    const QRect room = rect.marginsRemoved(contentsMargins());
    QPoint corner = room.topLeft();
    int lineHeight = 0;
    for (QLayoutItem* item : m_items) {
        const QSize wanted = item->sizeHint();
        if (corner.x() > room.left() && corner.x() + wanted.width() > room.left() + room.width()) {
            corner = QPoint(room.left(), corner.y() + lineHeight + spacing());
            lineHeight = 0;
        }
        if (isMoving)
            item->setGeometry(QRect(corner, wanted));
        corner.rx() += wanted.width() + spacing();
        lineHeight = qMax(lineHeight, wanted.height());
    }
    return corner.y() + lineHeight - rect.top() + contentsMargins().bottom();
}
