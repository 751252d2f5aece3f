#include "VrkTableHeader.h"

#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QToolTip>

namespace
{
constexpr int margin = 5;
constexpr int arrowHeight = 4;
constexpr int lettersOfFolded = 3;

QString beginning(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        if (line.size() > lettersOfFolded)
            line = line.left(lettersOfFolded) + QChar(0x2026);
    return lines.join(QLatin1Char('\n'));
}

QString elided(const QFontMetrics& metrics, const QString& text, int width)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, width);
    return lines.join(QLatin1Char('\n'));
}
} // namespace

VrkTableHeader::VrkTableHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

VrkTableHeader::~VrkTableHeader() = default;

QString VrkTableHeader::text(int section) const
{
    return model() ? model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString() : QString();
}

QIcon VrkTableHeader::icon(int section) const
{
    return model() ? model()->headerData(section, Qt::Horizontal, Qt::DecorationRole).value<QIcon>()
                   : QIcon();
}

int VrkTableHeader::iconSide() const
{
    return qMax(style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this), fontMetrics().height());
}

int VrkTableHeader::foldedWidth(int section) const
{
    const int needed = neededWidth(section);
    return icon(section).isNull() ? qMin(needed, textSize(beginning(text(section))).width() + 2 * margin)
                                  : needed;
}

// The text of a section that is too narrow for it, unless it has a tool tip of its own.
bool VrkTableHeader::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const int section = logicalIndexAt(help->pos());
        const bool isOwn = section >= 0 && model() &&
                           model()->headerData(section, Qt::Horizontal, Qt::ToolTipRole).isValid();
        if (section >= 0 && !isOwn && sectionSize(section) < neededWidth(section)) {
            QToolTip::showText(help->globalPos(), text(section).simplified(), viewport());
            return true;
        }
    }
    return QHeaderView::viewportEvent(event);
}

QSize VrkTableHeader::textSize(const QString& text) const
{
    const auto known = m_textSizes.constFind(text);
    return known != m_textSizes.constEnd() ? *known : *m_textSizes.insert(text, fontMetrics().size(0, text));
}

void VrkTableHeader::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_textSizes.clear();
    QHeaderView::changeEvent(event);
}

QSize VrkTableHeader::sectionSizeFromContents(int section) const
{
    QSize size = textSize(text(section));
    if (!icon(section).isNull()) {
        size.rwidth() += iconSide() + (size.width() > 0 ? margin : 0);
        size.setHeight(qMax(size.height(), iconSide()));
    }
    return size + QSize(2 * margin, 2 * (arrowHeight + 1));
}

void VrkTableHeader::paintSection(QPainter* painter, const QRect& rect, int section) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = section;
    option.state |= isEnabled() ? QStyle::State_Enabled | QStyle::State_Raised : QStyle::State_None;
    const int visual = visualIndex(section);
    option.position = visual == 0             ? QStyleOptionHeader::Beginning
                      : visual == count() - 1 ? QStyleOptionHeader::End
                                              : QStyleOptionHeader::Middle;
    painter->save();
    painter->setClipRect(rect);
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    const QString label = text(section);
    const QIcon image = icon(section);
    QRect inner = rect.adjusted(margin, 0, -margin, 0);
    if (!image.isNull()) {
        const QSize size(iconSide(), iconSide());
        const Qt::Alignment where = label.isEmpty() ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
        image.paint(painter, QStyle::alignedRect(Qt::LeftToRight, where, size, inner));
        inner.setLeft(inner.left() + size.width() + margin);
    }
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(
        inner, Qt::AlignCenter,
        rect.width() < neededWidth(section) ? elided(painter->fontMetrics(), label, inner.width()) : label);
    if (isSortIndicatorShown() && sortIndicatorSection() == section)
        paintArrow(painter, rect);
    painter->restore();
}

// A small triangle at the upper edge that points to the greater values.
void VrkTableHeader::paintArrow(QPainter* painter, const QRect& rect) const
{
    const bool rising = sortIndicatorOrder() == Qt::AscendingOrder;
    const int middle = rect.center().x();
    const int base = rising ? rect.top() : rect.top() + arrowHeight;
    const int tip = rising ? rect.top() + arrowHeight : rect.top();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(palette().color(QPalette::ButtonText));
    painter->drawPolygon(QPolygon(
        {QPoint(middle - arrowHeight, base), QPoint(middle + arrowHeight, base), QPoint(middle, tip)}));
}
