#include "VrkPreviewPaper.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace
{
constexpr qreal marginMillimetres = 12;
} // namespace

void VrkPreviewPaper::setUp(QPagedPaintDevice* device, QPageLayout::Orientation orientation)
{
    device->setPageSize(QPageSize(QPageSize::A4));
    device->setPageOrientation(orientation);
    device->setPageMargins(
        QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
        QPageLayout::Millimeter);
}

bool VrkPreviewPaper::paint(VrkPreviewPages* pages, QPagedPaintDevice* device,
                            const VrkPreviewPages::Progress& progress)
{
    constexpr qreal unitsPerPoint = VrkPreviewPages::unitsPerInch / 72;
    const int rows = pages->table().rows.size();
    const auto goesOn = [&](int done, int) { return !progress || progress(done, 2 * rows); };
    const QSizeF page = device->pageLayout().paintRect(QPageLayout::Point).size() * unitsPerPoint;
    if (!pages->layOut(page, goesOn))
        return false;
    QPainter painter(device);
    if (!painter.isActive())
        return true;
    painter.scale(device->width() / page.width(), device->height() / page.height());
    for (int i = 0; i < pages->count(); ++i) {
        if (!goesOn(rows + rows * i / pages->count(), 2 * rows))
            return false;
        if (i > 0)
            device->newPage();
        pages->paint(&painter, i);
    }
    return true;
}

bool VrkPreviewPaper::writePdf(VrkPreviewPages* pages, const QString& title,
                               QPageLayout::Orientation orientation, QByteArray* bytes,
                               const VrkPreviewPages::Progress& progress)
{
    QBuffer buffer(bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    setUp(&writer, orientation);
    return paint(pages, &writer, progress);
}
