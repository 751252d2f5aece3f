#pragma once

#include <QLayout>
#include <QVector>

/// Puts widgets beside each other, as wide as they want to be, and goes on in a new line where there is no more room.
/// Owns its items.
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
    /// The widest one alone.
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// The height that the items take in the width of \a rect; \a isMoving puts them there.
    int arrange(const QRect& rect, bool isMoving) const;

    QVector<QLayoutItem*> m_items;
};
