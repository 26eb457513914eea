/// \file
/// A sheet on the screen, in files and on paper.
///
/// One replay serves all that QPainter paints on; SVG is written as text, so that its texts stay texts. A file of
/// pixels and an SVG drawing hold the pages one under the other, a PDF document and paper one by one.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <functional>
#include <string_view>

#include "sheet/layout.h"

namespace moistair {

/// What texts take in the font of the charts.
ExtentFunction sheetExtents();

QPolygonF polygonOf(const std::vector<SheetPoint>& points);

/// Paints a page in pixels of 1/96 inch, its ground included.
void paintPage(const SheetDrawing& sheet, std::size_t page, QPainter& painter);

/// Paints a page as large as it fits into a rectangle [device units of the painter], centered.
void paintFitted(const SheetDrawing& sheet, std::size_t page, QPainter& painter, const QRectF& room);

/// Paints every page so; `nextPage` is called between two and says whether it could begin another.
bool paintPages(const SheetDrawing& sheet, QPainter& painter, const QRectF& room,
                const std::function<bool()>& nextPage);

/// All pages one under the other, `scale` picture pixels to the pixel; a null image without enough memory.
QImage sheetImage(const SheetDrawing& sheet, double scale);

QByteArray sheetSvg(const SheetDrawing& sheet, std::string_view title);

/// The contents of a file of a sheet by the format's ending, as in `fileFormats`; empty if they could not be made.
QByteArray sheetContent(std::string_view ending, const SheetDrawing& sheet, std::string_view title, double scale);

}  // namespace moistair
