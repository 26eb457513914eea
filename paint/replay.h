/// \file
/// Paints a recorded drawing.
///
/// The one way from a `Drawing` to anything that QPainter can paint on: the screen, a bitmap, a vector file, paper. The
/// painter works in logical pixels of 15 twips; whoever wants another scale scales the painter. Lines are one logical
/// pixel wide; in a picture, whose pixels may be smaller, the nearest whole number of those. There a level or upright
/// line covers them fully, so that axes and grid stay crisp and alike, and slanted lines and curves are smooth. Text is
/// text wherever the device knows text.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>
#include <QString>

#include "chart/drawing.h"

namespace moistair {

/// A place of a drawing [twips] in logical pixels.
QPointF pixels(float x, float y);

/// Font of all text on the chart, and the name that its files have.
inline constexpr const char* canvasFamily = "DejaVu Sans";
QFont canvasFont();

/// A text as one line that every font can show: control characters, line breaks among them, become blanks, and what no
/// XML file may hold the replacement character.
QString printable(QString text);

/// Whether a painting that begins with this operation would begin within a curve, so that its edges get two coats
/// there.
bool cutsCurve(const Drawing& drawing, std::size_t first);

/// A text as it is painted [logical pixels].
struct PaintedText {
  QString characters;  ///< `printable`
  QPointF baseline;    ///< its left end
  double width;
};

/// Where a text goes. A short one that would run over the right edge of `ground`, the part that can be seen, is moved
/// to end there: the titles are placed for a narrower font than most screens have.
PaintedText paintedText(const TextOperation& text, const QFontMetricsF& metrics, QSizeF ground);

/// Paints the operations from index `first` on, in black on whatever is there. Returns the rectangle touched [logical
/// pixels], empty if nothing was painted.
QRectF replay(const Drawing& drawing, QPainter& painter, QSizeF ground, std::size_t first = 0);

}  // namespace moistair
