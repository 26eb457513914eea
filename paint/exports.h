/// \file
/// A drawing as a picture, as the contents of a file, and on paper.
///
/// Sizes are logical pixels of 15 twips. Nothing here touches a file: contents are made whole and handed to whoever
/// writes them. No contents at all means that they could not be made, as for a picture without an area or without
/// enough memory. All but PDF, which carries its date, repeat byte for byte. The window and the headless tool take the
/// kinds of file from the one table.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <array>
#include <functional>
#include <string_view>

#include "chart/drawing.h"

class QPainter;
class QPdfWriter;

namespace moistair {

/// The drawing on white ground, `scale` picture pixels to the logical pixel.
QImage drawingImage(const Drawing& drawing, QSize size, double scale = 1);

/// A 24-bit Windows bitmap of any picture.
QByteArray bmpContent(const QImage& picture);

/// A PNG picture, without transparency.
QByteArray pngContent(const QImage& picture);

/// A PDF document with a page of so many pixels of 1/96 inch, in which the painter works; the writer begins further
/// pages.
QByteArray pdfContent(QSizeF size, const QString& title, const std::function<void(QPainter&, QPdfWriter&)>& paint);

/// A kind of file that a drawing can be written to.
struct FileFormat {
  const char* ending;  ///< of the file's name, with its dot
  const char* filter;  ///< in the list of a save dialog
  bool pixels;         ///< whether `scale` counts; vector files are sharp at any size
  QByteArray (*content)(const Drawing& drawing, QSize size, double scale);
};

/// Vector files first: in them text stays text, a line is 1/96 inch wide and the page is the drawing's size at 96 to
/// the inch.
extern const std::array<FileFormat, 4> fileFormats;

/// The format by the ending of a name, in capitals or not; null for any other.
const FileFormat* formatOfName(std::string_view name);

/// Paints the drawing as large as it fits into `page` [device units of the painter], centered, its proportions kept.
void paintFitted(const Drawing& drawing, QSize size, QPainter& painter, const QRectF& page);

}  // namespace moistair
