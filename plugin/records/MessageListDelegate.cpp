#include "MessageListDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextOption>

namespace
{
constexpr int lettersShown = 100000; // painting more of a text would take seconds

QString messageOf(const QModelIndex& index)
{
    const QString text = index.data().toString();
    return text.size() > lettersShown ? text.left(lettersShown) + QChar(0x2026) : text;
}

int heightOf(const QRect& rect)
{
    return rect.bottom() - rect.top() + 1;
}

/// The item's own pen; for a selected item, and for a dark colour on a dark background, the pen of the
/// view.
QPen penFor(const QStyleOptionViewItem& option, const QColor& color)
{
    constexpr int dark = 100;
    if (option.state.testFlag(QStyle::State_Selected))
        return QPen(option.palette.color(QPalette::HighlightedText));
    if (option.palette.color(QPalette::Base).lightness() < dark && color.lightness() < dark)
        return QPen(option.palette.color(QPalette::Text));
    return QPen(color);
}

/// One point smaller if the font's size is given in points.
QFont smaller(QFont font)
{
    if (font.pointSize() > 1)
        font.setPointSize(font.pointSize() - 1);
    return font;
}

void drawLine(QPainter* painter, const QRect& rect, const QFont& font, const QPen& pen, const QString& text,
              const QTextOption& layout)
{
    painter->save();
    painter->setFont(font);
    painter->setPen(pen);
    painter->drawText(QRectF(rect), text, layout);
    painter->restore();
}
} // namespace

MessageListDelegate::MessageListDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

int MessageListDelegate::messageTextHeight(const QStyleOptionViewItem& option, const QString& text) const
{
    return heightOf(option.fontMetrics.boundingRect(option.rect, Qt::TextWordWrap, text));
}

int MessageListDelegate::messageBlockSpacing(const QStyleOptionViewItem& option) const
{
    return option.fontMetrics.height() / 2;
}

QSize MessageListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // Deliberate: roles that the items do not have, because an empty text still has the height of a line.
    constexpr int authorMeasure = 28;
    constexpr int dateMeasure = 27;
    const QRect author =
        option.fontMetrics.boundingRect(option.rect, Qt::AlignLeft, index.data(authorMeasure).toString());
    const QRect date =
        option.fontMetrics.boundingRect(option.rect, Qt::AlignRight, index.data(dateMeasure).toString());
    return QSize(option.rect.width(), heightOf(author) + messageBlockSpacing(option) +
                                          messageTextHeight(option, messageOf(index)) + heightOf(date));
}

void MessageListDelegate::drawStyleSheet(QPainter* painter, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const
{
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    item.text.clear();
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, option.widget);
}

void MessageListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    if (!index.isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    drawStyleSheet(painter, option, index);

    const QString message = messageOf(index);
    const bool isRead = index.data(CommentIsReadRole).toBool();
    const bool isMine = index.data(CommentIsMineRole).toBool();
    QString author = index.data(CommentAuthorRole).toString();
    if (isMine)
        author += QStringLiteral(" (Вы)");

    const int line = option.fontMetrics.height();
    const int textTop = line + messageBlockSpacing(option);
    const int textHeight = messageTextHeight(option, message);
    const int dateTop = textTop + textHeight;
    const int width = option.rect.right() - option.rect.left() - 2;

    QFont authorFont = smaller(option.font);
    authorFont.setWeight(QFont::Bold);
    const QFont dateFont = smaller(option.font);

    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QPen plain = isSelected ? QPen(option.palette.color(QPalette::HighlightedText)) : painter->pen();
    painter->save();
    painter->translate(option.rect.left() + 1, option.rect.top() + 1);
    drawLine(painter, QRect(0, 0, width, line), authorFont,
             isMine ? penFor(option, QColor(0x30, 0x9A, 0xC7)) : plain, author, QTextOption());
    QTextOption wrapped;
    wrapped.setWrapMode(QTextOption::WordWrap);
    drawLine(painter, QRect(0, textTop, width, textHeight), option.font, plain, message, wrapped);
    drawLine(painter, QRect(0, dateTop, isRead ? width - line - 4 : width, line), dateFont,
             penFor(option, QColor(0x3E, 0x40, 0x3E)), index.data(CommentTimeRole).toString(),
             QTextOption(Qt::AlignRight));
    // Also drawn for an unread comment: there it is outside the right edge and invisible.
    const QPixmap mark = QPixmap(QStringLiteral(":/icons/readed.png"))
                             .scaled(line, line, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter->save();
    painter->drawPixmap(QRect(isRead ? width - line : width + 4, dateTop, line, line), mark);
    painter->restore();
    painter->restore();
}
