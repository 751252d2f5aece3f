#pragma once

#include "VrkPreviewPages.h"

#include <QPageLayout>

class QPagedPaintDevice;

/// Puts the pages of a table on paper: A4 sheets of a printer, a preview or a PDF.
namespace VrkPreviewPaper
{
void setUp(QPagedPaintDevice* device, QPageLayout::Orientation orientation);
/// Lays out and paints all pages; \a progress gets each half of the work as one total. False if it cancelled; the pages
/// painted so far remain on the device.
bool paint(VrkPreviewPages* pages, QPagedPaintDevice* device, const VrkPreviewPages::Progress& progress = {});
/// Appends a PDF of all pages to \a bytes; false if \a progress cancelled.
bool writePdf(VrkPreviewPages* pages, const QString& title, QPageLayout::Orientation orientation,
              QByteArray* bytes, const VrkPreviewPages::Progress& progress = {});
} // namespace VrkPreviewPaper
