#pragma once

#include <QStyledItemDelegate>

class QTreeWidget;

/// Lets the last top-level row of a property table fill the remaining height of a large window; it is never
/// lower than its size hint. Must stay installed as the delegate of that table.
class LastRowFiller : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// \a tree becomes the parent.
    explicit LastRowFiller(QTreeWidget* tree);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int roomLeft() const;
    void layOutAnew();

    QTreeWidget* m_tree;
    const QObject* m_viewport; ///< of the tree; the only member of the tree that may be used in the
                               ///< destructor
};
