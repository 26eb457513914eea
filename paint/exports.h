/// \file
/// A drawing as a picture or a file.
///
/// Sizes are logical pixels of 15 twips. A writer replaces a file of that name only when the new one is complete, and
/// returns false if it could not be written: a full disk or a missing folder leaves what was there before. The formats
/// but PDF, which carries its date, repeat byte for byte.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include "chart/drawing.h"

namespace moistair {

/// The drawing on white ground, `scale` picture pixels to the logical pixel.
QImage drawingimage(const Drawing& drawing, QSize size, double scale = 1);

/// A 24-bit Windows bitmap of any picture, whatever the ending of the name.
bool writebmp(const QImage& picture, const QString& path);
bool writepng(const Drawing& drawing, QSize size, double scale, const QString& path);
/// Vector files: text stays text, a line is 1/96 inch wide, the page is the drawing's size at 96 to the inch.
bool writesvg(const Drawing& drawing, QSize size, const QString& path);
bool writepdf(const Drawing& drawing, QSize size, const QString& path);

/// Paints the drawing as large as it fits into `page` [device units of the painter], centred, its proportions kept.
void paintfitted(const Drawing& drawing, QSize size, QPainter& painter, const QRectF& page);

}  // namespace moistair
