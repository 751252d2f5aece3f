#include "TemplateEditorChipPainter.h"

#include "TemplateEditorChip.h"

#include <QPainter>
#include <QTextDocument>
#include <QtMath>
#include <QWidget>

namespace
{
QFont fontOf(const QTextDocument* document, const QTextFormat& format)
{
    return format.toCharFormat().font().resolve(document->defaultFont());
}

qreal padding(const QFontMetricsF& metrics)
{
    return metrics.averageCharWidth() * 0.6;
}

/// An object is centred on the middle of small letters; this part of it is above the baseline.
qreal ascentOf(qreal height, const QFontMetricsF& metrics)
{
    return (height + metrics.xHeight() / 2) / 2;
}
} // namespace

TemplateEditorChipPainter::TemplateEditorChipPainter(QWidget* editor) : QObject(editor), m_editor(editor) {}

QSizeF TemplateEditorChipPainter::intrinsicSize(QTextDocument* document, int, const QTextFormat& format)
{
    const QFontMetricsF metrics(fontOf(document, format));
    const qreal wanted = metrics.horizontalAdvance(TemplateEditorChip::caption(format.toCharFormat()));
    const qreal frame = 2 * padding(metrics) + 2;
    qreal room = metrics.averageCharWidth() * 60;
    if (document->textWidth() > 0)
        room = qMin(room, document->textWidth() - 2 * document->documentMargin());
    const qreal least = metrics.averageCharWidth() * 4;
    return QSizeF(qCeil(qMin(wanted + frame, qMax(room, least))),
                  2 * (metrics.ascent() + 1) - metrics.xHeight() / 2);
}

void TemplateEditorChipPainter::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document,
                                           int, const QTextFormat& format)
{
    const QFont font = fontOf(document, format);
    const QFontMetricsF metrics(font);
    const QTextCharFormat chip = format.toCharFormat();
    const QPalette colors = m_editor->palette();
    const bool selected = chip.hasProperty(QTextFormat::BackgroundBrush);
    const qreal baseline = rect.top() + ascentOf(rect.height(), metrics);
    const QRectF box(rect.left() + 1, baseline - metrics.ascent(), rect.width() - 2,
                     metrics.ascent() + metrics.descent());

    QColor ground = selected ? chip.background().color() : colors.color(QPalette::Highlight);
    if (!selected)
        ground.setAlphaF(0.16);
    QPen frame(colors.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    frame.setStyle(TemplateEditorChip::isOptional(chip) ? Qt::DashLine : Qt::SolidLine);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(frame);
    painter->setBrush(ground);
    const qreal round = box.height() / 4;
    painter->drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), round, round);
    painter->setFont(font);
    painter->setPen(selected ? chip.foreground().color() : colors.color(QPalette::Text));
    const qreal pad = padding(metrics);
    const QString shown =
        metrics.elidedText(TemplateEditorChip::caption(chip), Qt::ElideRight, box.width() - 2 * pad + 1);
    painter->drawText(QPointF(box.left() + pad, baseline), shown);
    painter->restore();
}
