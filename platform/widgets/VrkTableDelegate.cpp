#include "VrkTableDelegate.h"

#include "Contrast.h"
#include "HfnTime.h"
#include "MDRValues.h"
#include "TemplateText.h"
#include "VrkTableProxyModel.h"

#include <cmath>
#include <QAbstractTextDocumentLayout>
#include <QHeaderView>
#include <QPainter>
#include <QRegularExpression>
#include <QTableView>
#include <QTextDocument>
#include <QTextLayout>

namespace
{
constexpr int horizontalMargin = 5;
constexpr int verticalMargin = 3;
constexpr int selectionRule = 2;
constexpr int documentsKept = 256;   // more rows than a screen shows
constexpr int lettersShown = 100000; // some fifty pages: more would take seconds, and nobody reads it in a
                                     // table

constexpr int lettersUnbroken = 500; // the time to lay out a word grows with the square of its length

/// Inserts places to break a line into very long words, but not into tags and named characters.
QString breakable(const QString& text, bool isHtml)
{
    QString result;
    int unbroken = 0;
    bool isMarkup = false;
    for (const QChar letter : text) {
        result += letter;
        isMarkup = isHtml && (isMarkup ? letter != u'>' && letter != u';' : letter == u'<' || letter == u'&');
        unbroken = letter.isSpace() ? 0 : unbroken + 1;
        if (unbroken < lettersUnbroken || isMarkup || letter.isHighSurrogate())
            continue;
        result += QChar(0x200B);
        unbroken = 0;
    }
    return result;
}

/// The part of a text that a cell shows.
QString shownPart(const QString& text)
{
    if (text.size() < lettersUnbroken)
        return text;
    return breakable(text.size() > lettersShown ? text.left(lettersShown) + QChar(0x2026) : text, false);
}

/// The same for a template text; a tag or entity that would be cut is dropped.
QString shownHtml(const QString& html)
{
    if (html.size() < lettersUnbroken)
        return html;
    if (html.size() <= lettersShown)
        return breakable(html, true);
    QString part = html.left(lettersShown);
    for (const auto& [open, close] : {std::pair(u'<', u'>'), std::pair(u'&', u';')})
        if (part.lastIndexOf(open) > part.lastIndexOf(close))
            part.truncate(part.lastIndexOf(open));
    return breakable(part, true) + QChar(0x2026);
}

QTextOption textOption(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

// Lays a plain text out for a width; returns its size.
QSizeF layOut(QTextLayout& layout, qreal width)
{
    QSizeF size;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, size.height()));
        size.setHeight(size.height() + line.height());
        size.setWidth(qMax(size.width(), line.naturalTextWidth()));
    }
    layout.endLayout();
    return size;
}

QSizeF textSize(const QString& text, const QFont& font, qreal width)
{
    QTextLayout layout(VrkTableDelegate::laidOutText(shownPart(text)), font);
    layout.setTextOption(textOption(Qt::AlignLeft));
    return layOut(layout, width);
}

QColor selectionColor(const QStyleOptionViewItem& option)
{
    return option.palette.color(option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive,
                                QPalette::Highlight);
}

/// A translucent background between two lines instead of a solid colour, so that icons keep their colours.
QColor selectionGround(const QStyleOptionViewItem& option)
{
    constexpr double veil = 0.25;
    const bool isAlternate = option.features & QStyleOptionViewItem::Alternate;
    const QColor base = option.palette.color(isAlternate ? QPalette::AlternateBase : QPalette::Base);
    const QColor mark = selectionColor(option);
    return QColor::fromRgbF(base.redF() + (mark.redF() - base.redF()) * veil,
                            base.greenF() + (mark.greenF() - base.greenF()) * veil,
                            base.blueF() + (mark.blueF() - base.blueF()) * veil);
}

QColor ground(const QStyleOptionViewItem& option)
{
    if (option.state & QStyle::State_Selected)
        return selectionGround(option);
    if (option.backgroundBrush.style() == Qt::SolidPattern)
        return option.backgroundBrush.color();
    const bool isAlternate = option.features & QStyleOptionViewItem::Alternate;
    return option.palette.color(isAlternate ? QPalette::AlternateBase : QPalette::Base);
}

/// The cell's text colour, or a shade of it with enough contrast: of a grey one everywhere, of others in the
/// selection.
QColor textColor(const QStyleOptionViewItem& option)
{
    constexpr int greyest = 20;
    const QColor color = option.palette.color(QPalette::Text);
    const bool isGrey = color.hsvSaturation() < greyest;
    const bool isKept = !(option.state & QStyle::State_Selected) && !isGrey;
    return isKept ? color : Contrast::legible(color, ground(option));
}

QSize iconSize(const QStyleOptionViewItem& option)
{
    return option.features & QStyleOptionViewItem::HasDecoration ? option.decorationSize : QSize();
}
} // namespace

VrkTableDelegate::VrkTableDelegate(VrkTableProxyModel* model, QTableView* view)
    : QStyledItemDelegate(view), m_model(model), m_view(view), m_documents(documentsKept)
{
}

VrkTableDelegate::~VrkTableDelegate() = default;

QString VrkTableDelegate::laidOutText(QString text)
{
    static const QRegularExpression betweenInitials(QStringLiteral("(?<=\\b\\w\\.) (?=\\w\\.)"),
                                                    QRegularExpression::UseUnicodePropertiesOption);
    if (text.contains(QLatin1String(". ")))
        text.replace(betweenInitials, QString(QChar::Nbsp));
    return text.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

QStyleOptionViewItem VrkTableDelegate::cellOption(const QModelIndex& index) const
{
    QStyleOptionViewItem option;
    option.initFrom(m_view);
    option.font = m_view->font();
    option.decorationSize = m_view->iconSize();
    initStyleOption(&option, index);
    return option;
}

bool VrkTableDelegate::isTemplateText(const QModelIndex& index) const
{
    const VrkTableModel* model = m_model->tableModel();
    return model && model->isTemplateText(index.column());
}

QTextDocument* VrkTableDelegate::document(const QModelIndex& index, const QFont& font, int width) const
{
    const MDRData* record = m_model->record(index.row());
    QTextDocument* document = m_documents.object(record);
    if (!document) {
        document = new QTextDocument;
        document->setUndoRedoEnabled(false);
        document->setDocumentMargin(0);
        document->setDefaultTextOption(textOption(Qt::AlignLeft));
        document->setDefaultFont(font);
        TemplateText::fill(document, shownHtml(index.data(Qt::UserRole).toString()));
        m_documents.insert(record, document);
    }
    if (document->defaultFont() != font)
        document->setDefaultFont(font);
    if (document->textWidth() != width)
        document->setTextWidth(width);
    return document;
}

int VrkTableDelegate::heightForWidth(const QModelIndex& index, int width) const
{
    const QStyleOptionViewItem option = cellOption(index);
    const QSize icon = iconSize(option);
    const int iconRoom = icon.isEmpty() || option.text.isEmpty() ? 0 : icon.width() + horizontalMargin;
    const int inner = qMax(1, width - 2 * horizontalMargin - iconRoom);
    qreal height = qMax(icon.height(), option.fontMetrics.height());
    if (isTemplateText(index))
        height = qMax(height, document(index, option.font, inner)->size().height());
    else if (!option.text.isEmpty())
        height = qMax(height, textSize(option.text, option.font, inner).height());
    return static_cast<int>(std::ceil(height)) + 2 * verticalMargin;
}

int VrkTableDelegate::naturalWidth(const QModelIndex& index, bool longestWord) const
{
    const QStyleOptionViewItem option = cellOption(index);
    qreal width = qMax(0, option.text.isEmpty() ? iconSize(option).width() : 0);
    if (longestWord) {
        static const QRegularExpression blanks(QStringLiteral("[ \\t\u2028]+"));
        const QStringList words = laidOutText(shownPart(option.text)).split(blanks);
        for (const QString& word : words)
            width = qMax<qreal>(width, option.fontMetrics.horizontalAdvance(word));
    } else if (!option.text.isEmpty()) {
        width = qMax<qreal>(width, option.fontMetrics.size(0, shownPart(option.text)).width());
    }
    if (!iconSize(option).isEmpty() && !option.text.isEmpty())
        width += iconSize(option).width() + horizontalMargin;
    return static_cast<int>(std::ceil(width)) + emptyWidth();
}

int VrkTableDelegate::emptyWidth()
{
    return 2 * horizontalMargin + 2;
}

QDate VrkTableDelegate::day(int row) const
{
    const VrkTableModel* model = m_model->tableModel();
    const MDRField* field = model ? model->field(m_model->sortColumn()) : nullptr;
    const MDRData* record = field && field->type == mdr_TDouble ? m_model->record(row) : nullptr;
    MDRVar time;
    if (!record || MDRGetVal(field, record, &time) != mdr_Ok || !MDRValue::hasTime(time))
        return QDate();
    return HfnTime_to_DateTime(time.value.real, -1).date();
}

QDate VrkTableDelegate::dayLine(int row) const
{
    const QDate date = dayOf(row);
    const bool begins = row > 0 ? day(row - 1) != date : m_hasFirstDayLine;
    return date.isValid() && begins ? date : QDate();
}

int VrkTableDelegate::dayLineHeight(int row) const
{
    return dayLine(row).isValid() ? m_view->fontMetrics().height() + 2 * verticalMargin : 0;
}

QSize VrkTableDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const int width = m_view->columnWidth(index.column());
    return QSize(naturalWidth(index, false), heightForWidth(index, width) + dayLineHeight(index.row()));
}

void VrkTableDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    painter->save();
    painter->setClipRect(option.rect);
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const int dayLine = dayLineHeight(index.row());
    if (dayLine > 0) {
        paintDayLine(painter, QRect(cell.rect.topLeft(), QSize(cell.rect.width(), dayLine)), index.row());
        cell.rect.setTop(cell.rect.top() + dayLine);
    }
    paintLines(painter, cell);
    paintContents(painter, cell, index);
    painter->restore();
}

// Every cell of the row paints its part of one line that is as wide as the table, so that the line scrolls
// with it.
void VrkTableDelegate::paintDayLine(QPainter* painter, const QRect& cell, int row) const
{
    const QHeaderView* header = m_view->horizontalHeader();
    const QRect line(-header->offset(), cell.top(), qMax(header->length(), m_view->viewport()->width()),
                     cell.height());
    const QString text =
        QLocale(QLocale::Russian).toString(dayLine(row), QStringLiteral("d MMMM yyyy, dddd"));
    const QPalette palette = m_view->palette();
    QFont font = m_view->font();
    font.setBold(true);

    painter->save();
    painter->setClipRect(cell);
    painter->fillRect(cell, palette.brush(QPalette::Window));
    painter->setPen(palette.color(QPalette::WindowText));
    painter->setFont(font);
    const QRect visible(line.left() + header->offset(), line.top(), m_view->viewport()->width(),
                        line.height());
    const QRect label = painter->boundingRect(QRect(line.topLeft(), visible.size()), Qt::AlignCenter, text);
    painter->drawText(label, Qt::AlignCenter, text);
    QColor rule = palette.color(QPalette::WindowText);
    rule.setAlphaF(0.5);
    painter->setPen(rule);
    const int middle = line.center().y();
    painter->drawLine(line.left(), middle, label.left() - 2 * horizontalMargin, middle);
    painter->drawLine(label.right() + 2 * horizontalMargin, middle, line.right(), middle);
    painter->restore();
}

void VrkTableDelegate::paintLines(QPainter* painter, const QStyleOptionViewItem& option) const
{
    QColor color = option.palette.color(QPalette::WindowText);
    color.setAlphaF(0.15);
    painter->setPen(color);
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (!(option.state & QStyle::State_Selected))
        return;
    painter->fillRect(option.rect, selectionGround(option));
    painter->setPen(QPen(selectionColor(option), selectionRule));
    painter->drawLine(option.rect.left(), option.rect.top() + 1, option.rect.right(), option.rect.top() + 1);
    painter->drawLine(option.rect.left(), option.rect.bottom(), option.rect.right(), option.rect.bottom());
}

void VrkTableDelegate::paintContents(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    QRect inner = option.rect.adjusted(horizontalMargin, verticalMargin, -horizontalMargin, -verticalMargin);
    painter->setClipRect(option.rect);
    const bool hasText = !option.text.isEmpty();
    const QSize icon = iconSize(option);
    if (!icon.isEmpty()) {
        const int firstLine = qMax(icon.height(), option.fontMetrics.height());
        const QRect box(inner.left(), inner.top(), hasText ? icon.width() : inner.width(), firstLine);
        option.icon.paint(painter, QStyle::alignedRect(option.direction, Qt::AlignCenter, icon, box));
        if (hasText)
            inner.setLeft(inner.left() + icon.width() + horizontalMargin);
    }
    if (!hasText)
        return;

    const QColor color = textColor(option);
    if (isTemplateText(index)) {
        QTextDocument* text = document(index, option.font, inner.width());
        QAbstractTextDocumentLayout::PaintContext context;
        context.palette.setColor(QPalette::Text, color);
        painter->translate(inner.topLeft());
        text->documentLayout()->draw(painter, context);
        return;
    }
    const VrkTableModel* model = m_model->tableModel();
    const MDRField* field = model ? model->field(index.column()) : nullptr;
    const bool centred = field && field->type != mdr_TChar && field->type != mdr_TMemo;
    QTextLayout layout(laidOutText(shownPart(option.text)), option.font);
    layout.setTextOption(textOption(centred ? Qt::AlignHCenter : Qt::AlignLeft));
    layOut(layout, inner.width());
    painter->setPen(color);
    layout.draw(painter, inner.topLeft());
}
