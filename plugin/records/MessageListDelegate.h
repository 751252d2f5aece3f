#pragma once

#include <QStyledItemDelegate>

/// Roles of the items of a list of comments; the comment's text is the display role.
enum CommentRole {
    CommentKeyRole = Qt::UserRole,
    CommentAuthorRole,
    CommentTimeRole,
    CommentIsMineRole,
    CommentIsReadRole,
};

/// Draws one comment as a small message: the author at the top, the text below it, the date at the bottom
/// right, and for a read comment a mark next to the date.
class MessageListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit MessageListDelegate(QObject* parent);

    /// Height of a text wrapped at word boundaries to the option's width.
    int messageTextHeight(const QStyleOptionViewItem& option, const QString& text) const;
    /// The gap between author and text: half a line.
    int messageBlockSpacing(const QStyleOptionViewItem& option) const;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Background, selection and hover of the item, without a text.
    void drawStyleSheet(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const;
};
