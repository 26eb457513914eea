/// \file
/// Paints a recorded drawing.
///
/// The one way from a `Drawing` to anything that QPainter can paint on: the screen, a bitmap, a vector file, paper. The
/// painter works in logical pixels of 15 twips; whoever wants another scale scales the painter. Lines are one logical
/// pixel wide and not antialiased, so that axes and grid stay crisp; text is text wherever the device knows text.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>

#include "chart/drawing.h"

namespace moistair {

/// Font of all text on the chart, and the name that its files have.
inline constexpr const char* canvasfamily = "DejaVu Sans";
QFont canvasfont();

/// A text as it is painted [logical pixels].
struct PaintedText {
  QString characters;  ///< those that no picture shows and no XML file may hold are made visible
  QPointF baseline;    ///< its left end
  double width;
};

/// Where a text goes. A short one that would run over the right edge of `ground`, the part that can be seen, is moved
/// to end there: the titles are placed for a narrower font than most screens have.
PaintedText paintedtext(const TextOperation& text, const QFontMetricsF& metrics, QSizeF ground);

/// Paints the operations from index `first` on, in black on whatever is there. Returns the rectangle touched [logical
/// pixels], empty if nothing was painted.
QRectF replay(const Drawing& drawing, QPainter& painter, QSizeF ground, std::size_t first = 0);

}  // namespace moistair
