#pragma once

#include <QLayout>
#include <QVector>

/// Places widgets side by side at their preferred widths, and continues in a new line when there is no more
/// space. Owns its items.
class WrapLayout : public QLayout
{
    Q_OBJECT

public:
    explicit WrapLayout(QWidget* parent);
    ~WrapLayout() override;

    void addItem(QLayoutItem* item) override { m_items.append(item); }
    int count() const override { return m_items.size(); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
    /// All in one line.
    QSize sizeHint() const override;
    /// The size of the widest item.
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// The height of the items at the width of \a rect; \a isMoving also places them there.
    int arrange(const QRect& rect, bool isMoving) const;

    QVector<QLayoutItem*> m_items;
};
